#include "components/replace_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tessera {
namespace fs = std::filesystem;

namespace {

std::string unusedNameBeside(const std::string& path) {
  std::error_code ignored;
  for (int i = 0;; ++i) {
    std::string name = path + ".new" + (i > 0 ? std::to_string(i) : std::string());
    if (!fs::exists(name, ignored)) return name;
  }
}

}  // namespace

FileReplacement::FileReplacement(std::string path) : path_(std::move(path)) {
  std::error_code failed;
  const fs::path real = fs::canonical(path_, failed);
  target_ = failed ? path_ : real.string();
  beside_ = unusedNameBeside(target_);
  errno = 0;
  out_.open(beside_, std::ios::binary | std::ios::trunc);
}

FileReplacement::~FileReplacement() {
  if (done_) return;
  out_.close();
  std::error_code ignored;
  fs::remove(beside_, ignored);
}

void FileReplacement::write(std::string_view bytes) {
  if (out_) out_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::optional<LoadError> FileReplacement::fault(const char* what) {
  return LoadError{
      path_, 0,
      std::string("it cannot be ") + what + (errno ? std::string(": ") + std::strerror(errno) : "")};
}

std::optional<LoadError> FileReplacement::commit() {
  if (!out_.is_open()) return fault("written");
  out_.flush();
  const bool written = out_.good();
  out_.close();
  if (!written || !out_) return fault("written");
  std::error_code failed;
  const fs::perms kept = fs::status(target_, failed).permissions();
  if (!failed && fs::exists(target_, failed)) fs::permissions(beside_, kept, failed);
  fs::rename(beside_, target_, failed);
  if (failed) {
    errno = failed.value();
    return fault("replaced");
  }
  done_ = true;
  return std::nullopt;
}

}  // namespace tessera
