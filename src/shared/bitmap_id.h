// Tells pixels apart.

#pragma once

#include <atomic>
#include <cstdint>

namespace tessera {

// A number that no other pixels of the process ever have, unlike an address, which is used again. A copy is
// another picture; what is moved takes its number along.
class BitmapId {
 public:
  BitmapId() = default;
  BitmapId(const BitmapId&) : BitmapId() {}
  BitmapId(BitmapId&& other) noexcept : value_(other.value_) { other.value_ = next(); }
  BitmapId& operator=(const BitmapId&) {
    value_ = next();
    return *this;
  }
  BitmapId& operator=(BitmapId&& other) noexcept {
    value_ = other.value_;
    other.value_ = next();
    return *this;
  }
  ~BitmapId() = default;

  std::uint64_t value() const { return value_; }

 private:
  static std::uint64_t next() noexcept {
    static std::atomic<std::uint64_t> last = 0;
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
  }

  std::uint64_t value_ = next();
};

}  // namespace tessera
