#include "components/folder_image_set.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <system_error>
#include <utility>

#include "shared/utf.h"

namespace tessera {
namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t greatestFile = std::uintmax_t{64} << 20;

std::vector<std::byte> bytesOf(const fs::path& path) {
  std::error_code failed;
  const std::uintmax_t size = fs::file_size(path, failed);
  if (failed || size == 0 || size > greatestFile) return {};
  std::vector<std::byte> bytes(size);
  std::ifstream in(path, std::ios::binary);
  in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
  return in ? bytes : std::vector<std::byte>();
}

}  // namespace

FolderImageSet::FolderImageSet(std::string id, fs::path folder, PictureDecoder decode, Narrow narrow)
    : id_(std::move(id)), folder_(std::move(folder)), decode_(std::move(decode)), narrow_(std::move(narrow)) {
  list();
}

FolderImageSet::~FolderImageSet() { close(); }

void FolderImageSet::close() {
  if (std::exchange(closed_, true)) return;
  sinks_.each([](ImageSetNotifications& sink) { return sink.SourceClosing(VARIANT_FALSE), true; });
  sinks_.unadviseAll();
}

void FolderImageSet::list() {
  files_.clear();
  fault_.clear();
  std::error_code failed;
  for (fs::directory_iterator it(folder_, failed), end; !failed && it != end; it.increment(failed)) {
    std::error_code ignored;
    const fs::path& path = it->path();
    const bool hidden = path.filename().string().starts_with('.');
    if (!hidden && it->is_regular_file(ignored)) files_[keyOf(path)].push_back(path);
  }
  if (failed) fault_ = failed.message();
  for (auto& [key, paths] : files_) std::sort(paths.begin(), paths.end());
}

std::string FolderImageSet::keyOf(const fs::path& path) const {
  const std::string name = path.stem().string();
  return narrow_ ? narrow_(utf16FromUtf8(name)) : name;
}

void FolderImageSet::reload() {
  list();
  sinks_.each([](ImageSetNotifications& sink) { return sink.DataChanged(0), true; });
}

HResult FolderImageSet::Advise(ImageSetNotifications* sink) { return closed_ ? E_FAIL : sinks_.advise(sink); }

void FolderImageSet::Unadvise(ImageSetNotifications* sink) { sinks_.unadvise(sink); }

void FolderImageSet::GetID(XString& id) { id = XString::fromNarrow(id_); }

Picture FolderImageSet::picture(const std::string& key) const {
  const auto found = files_.find(key);
  if (found == files_.end()) return {};
  for (const fs::path& path : found->second) {
    const std::vector<std::byte> bytes = bytesOf(path);
    const BitmapRef bitmap = bytes.empty() ? nullptr : decode_(bytes);
    if (bitmap) return {bitmap->width, bitmap->height, bitmap->pixels};
  }
  return {};
}

}  // namespace tessera
