// Tells whether somebody else wrote a file.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>

namespace tessera {

// A file that cannot be looked at has the stamp of an empty one from the beginning of time.
struct FileStamp {
  std::uintmax_t size = 0;  // bytes
  std::filesystem::file_time_type written{};

  static FileStamp of(const std::string& path) {
    std::error_code failed;
    FileStamp stamp;
    stamp.size = std::filesystem::file_size(path, failed);
    if (!failed) stamp.written = std::filesystem::last_write_time(path, failed);
    return failed ? FileStamp{} : stamp;
  }
  bool operator==(const FileStamp&) const = default;
};

}  // namespace tessera
