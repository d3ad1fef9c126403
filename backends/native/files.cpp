#include "backends/native/files.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tessera {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t pieceBytes = std::size_t{64} << 10;
constexpr int nameAttempts = 100;

FileError lastError(const fs::path& path) { return {path, std::generic_category().message(errno)}; }

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }
  bool isOpen() const { return number_ >= 0; }
  // False when the system reports only now that a write failed.
  bool close() {
    const int number = std::exchange(number_, -1);
    return number < 0 || ::close(number) == 0;
  }

 private:
  int number_;
};

// A first guess for the buffer: one byte more than a regular file has, so that its end is seen in one read.
std::size_t expectedBytes(const Descriptor& file) {
  struct stat status = {};
  if (fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) return pieceBytes;
  return static_cast<std::size_t>(status.st_size) + 1;
}

bool writeAll(const Descriptor& file, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(file.number(), bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return true;
}

bool takePermissions(const Descriptor& file, const fs::path& from) {
  struct stat status = {};
  if (::stat(from.c_str(), &status) != 0) return errno == ENOENT;
  return ::fchmod(file.number(), status.st_mode & 0777) == 0;
}

// Without the sync a crash after the rename could leave an empty file under the final name.
bool fill(Descriptor& file, const fs::path& target, std::span<const std::byte> bytes) {
  return takePermissions(file, target) && writeAll(file, bytes) && ::fsync(file.number()) == 0 &&
         file.close();
}

// Opens a file that nobody else has, with the permissions that the process gives to new files.
int createBeside(const fs::path& target, fs::path& name) {
  int number = -1;
  for (int attempt = 0; attempt < nameAttempts; ++attempt) {
    name = target;
    for (const long part : {static_cast<long>(::getpid()), static_cast<long>(attempt)}) {
      name += ".";
      name += std::to_string(part);
    }
    name += ".new";
    number = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (number >= 0 || errno != EEXIST) break;
  }
  return number;
}

}  // namespace

FileResult readFile(const fs::path& path) {
  Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.isOpen()) return lastError(path);
  FileBytes bytes(expectedBytes(file));
  std::size_t length = 0;
  for (;;) {
    if (length == bytes.size()) bytes.resize(length * 2);
    const ssize_t count = ::read(file.number(), bytes.data() + length, bytes.size() - length);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return lastError(path);
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
  }
  bytes.resize(length);
  return bytes;
}

std::optional<FileError> writeFileBeside(const fs::path& path, std::span<const std::byte> bytes) {
  std::error_code notThere;
  const fs::path resolved = fs::canonical(path, notThere);
  const fs::path& target = notThere ? path : resolved;
  fs::path name;
  Descriptor file(createBeside(target, name));
  if (!file.isOpen()) return lastError(path);
  if (fill(file, target, bytes) && ::rename(name.c_str(), target.c_str()) == 0) return std::nullopt;
  const FileError error = lastError(path);
  ::unlink(name.c_str());
  return error;
}

}  // namespace tessera
