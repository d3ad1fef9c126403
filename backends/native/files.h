// Whole files, read and replaced.

#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace tessera {

// Why a file could not be read or written.
struct FileError {
  std::filesystem::path path;
  std::string reason;
};

using FileBytes = std::vector<std::byte>;
using FileResult = std::variant<FileBytes, FileError>;

// The whole file; pipes are read to their end.
FileResult readFile(const std::filesystem::path& path);

// Writes a new file in the same folder and renames it to `path`, so that a reader sees the old bytes or the
// new ones and never a part. A file that is replaced hands on its permissions; a symbolic link stays and its
// target is replaced. On failure the old file is untouched and nothing is left behind.
std::optional<FileError> writeFileBeside(const std::filesystem::path& path, std::span<const std::byte> bytes);

}  // namespace tessera
