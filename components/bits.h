// One bit for each record, stored only as far as a bit was ever set.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessera {

class Bits {
 public:
  bool get(std::int32_t index) const {
    const std::size_t word = static_cast<std::size_t>(index) / 64;
    return word < words_.size() && (words_[word] >> (index % 64) & 1) != 0;
  }
  void set(std::int32_t index, bool on) {
    const std::size_t word = static_cast<std::size_t>(index) / 64;
    if (word >= words_.size()) {
      if (!on) return;
      words_.resize(word + 1);
    }
    const std::uint64_t mask = std::uint64_t{1} << (index % 64);
    words_[word] = on ? words_[word] | mask : words_[word] & ~mask;
  }
  void clear() { std::vector<std::uint64_t>().swap(words_); }
  // True: no bit was set since the last clear().
  bool untouched() const { return words_.empty(); }

 private:
  std::vector<std::uint64_t> words_;
};

}  // namespace tessera
