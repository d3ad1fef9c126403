#include "components/text_cells.h"

#include <algorithm>
#include <cstring>

namespace tessera {
namespace {

constexpr std::size_t smallestWaste = std::size_t{64} << 10;

std::size_t lengthBytes(std::size_t length) {
  std::size_t bytes = 1;
  while (length >>= 7) ++bytes;
  return bytes;
}

char* putLength(char* at, std::size_t length) {
  for (; length >= 0x80; length >>= 7) *at++ = static_cast<char>(length | 0x80);
  *at++ = static_cast<char>(length);
  return at;
}

std::string_view entryAt(const char* at) {
  std::size_t length = 0;
  for (unsigned shift = 0;; shift += 7) {
    const auto byte = static_cast<unsigned char>(*at++);
    length |= static_cast<std::size_t>(byte & 0x7F) << shift;
    if (byte < 0x80) return {at, length};
  }
}

}  // namespace

std::size_t TextCells::storedSize(std::size_t length) { return lengthBytes(length) + length; }

std::string_view TextCells::view(std::int32_t cell) const {
  const Handle handle = handles_[static_cast<std::size_t>(cell)];
  return handle == 0 ? std::string_view() : entryAt(arena_.data() + handle);
}

void TextCells::reserve(std::size_t cells, std::size_t arenaBytes) {
  handles_.reserve(cells);
  arena_.reserve(arenaBytes + 1);
}

void TextCells::append(std::string_view utf8) { handles_.push_back(store(utf8)); }

TextCells::Handle TextCells::store(std::string_view utf8) {
  const std::size_t start = arena_.size();
  const std::size_t end = start + storedSize(utf8.size());
  // A quarter more and not twice as much: a single edit of a big column must not double it.
  if (end > arena_.capacity()) arena_.reserve(end + end / 4 + 4096);
  arena_.resize(end);
  char* text = putLength(arena_.data() + start, utf8.size());
  if (!utf8.empty()) std::memcpy(text, utf8.data(), utf8.size());
  return start;
}

std::size_t TextCells::entrySize(Handle handle) const {
  return handle == 0 ? 0 : storedSize(entryAt(arena_.data() + handle).size());
}

void TextCells::set(std::int32_t cell, std::string_view utf8) {
  Handle& handle = handles_[static_cast<std::size_t>(cell)];
  const std::size_t before = entrySize(handle);
  const std::size_t now = storedSize(utf8.size());
  if (now > before) {
    wasted_ += before;
    handle = store(utf8);
  } else {
    wasted_ += before - now;
    char* text = putLength(arena_.data() + handle, utf8.size());
    if (!utf8.empty()) std::memcpy(text, utf8.data(), utf8.size());
  }
  packWhenWasteful();
}

void TextCells::setEmpty(std::int32_t cell) {
  Handle& handle = handles_[static_cast<std::size_t>(cell)];
  wasted_ += entrySize(handle);
  handle = 0;
  packWhenWasteful();
}

void TextCells::packWhenWasteful() {
  if (wasted_ < smallestWaste || wasted_ < arena_.size() / 2) return;
  std::vector<char> packed(1);
  packed.reserve(arena_.size() - wasted_ + 1);
  for (Handle& handle : handles_) {
    if (handle == 0) continue;
    const char* from = arena_.data() + handle;
    const std::size_t size = entrySize(handle);
    handle = packed.size();
    packed.insert(packed.end(), from, from + size);
  }
  arena_.swap(packed);
  wasted_ = 0;
}

}  // namespace tessera
