// A byte stream in memory.

#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include <tessera/persistence.h>

namespace tessera {

// Reads from and writes to one sequence of bytes in memory, which is a file's content before or after.
class MemoryStream : public ByteStream {
 public:
  MemoryStream() = default;
  explicit MemoryStream(std::vector<std::byte> bytes) : bytes_(std::move(bytes)) {}

  const std::vector<std::byte>& bytes() const { return bytes_; }

  bool read(std::span<std::byte> bytes) override {
    if (bytes.size() > bytes_.size() - position_) return false;
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(position_), bytes.size(), bytes.begin());
    position_ += bytes.size();
    return true;
  }
  bool write(std::span<const std::byte> bytes) override {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    return true;
  }

 private:
  std::vector<std::byte> bytes_;
  std::size_t position_ = 0;
};

}  // namespace tessera
