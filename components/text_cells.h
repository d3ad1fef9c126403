// The cells of a text column: UTF-8 in one arena, eight bytes a cell beside the text itself.

#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tessera {

// Cells are numbered from 0. An empty cell holds nothing, which is not the same as a text of no characters.
// A text that grows is stored anew; once half of the arena is left-over bytes it is packed.
class TextCells {
 public:
  std::size_t size() const { return handles_.size(); }
  bool isEmpty(std::int32_t cell) const { return handles_[static_cast<std::size_t>(cell)] == 0; }
  // Valid until the next change of any cell. The empty text for an empty cell.
  std::string_view view(std::int32_t cell) const;

  void reserve(std::size_t cells, std::size_t arenaBytes);
  void append(std::string_view utf8);
  void appendEmpty() { handles_.push_back(0); }
  // `utf8` may not lie inside the arena.
  void set(std::int32_t cell, std::string_view utf8);
  void setEmpty(std::int32_t cell);

  // The bytes that a text of `length` bytes takes in the arena.
  static std::size_t storedSize(std::size_t length);
  std::size_t memoryBytes() const { return handles_.capacity() * sizeof(Handle) + arena_.capacity(); }

 private:
  using Handle = std::uint64_t;  // offset into the arena; 0 is the empty cell

  Handle store(std::string_view utf8);
  std::size_t entrySize(Handle handle) const;
  void packWhenWasteful();

  std::vector<Handle> handles_;
  std::vector<char> arena_ = std::vector<char>(1);  // length in base 128, then the text
  std::size_t wasted_ = 0;
};

}  // namespace tessera
