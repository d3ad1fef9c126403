// The window's messages and what they do.

#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tessera {

class Tessera;

// The two words of a message, with the readings that the table needs.
struct MessageWords {
  std::uint64_t wParam = 0;
  std::int64_t lParam = 0;

  std::int32_t lowWord() const { return static_cast<std::int32_t>(wParam & 0xFFFF); }
  std::int32_t highWord() const { return static_cast<std::int32_t>(wParam >> 16 & 0xFFFF); }
  std::int32_t signedWord() const { return static_cast<std::int32_t>(static_cast<std::uint32_t>(wParam)); }
  // Both coordinates of a mouse message are unsigned.
  std::int32_t x() const { return static_cast<std::int32_t>(lParam & 0xFFFF); }
  std::int32_t y() const { return static_cast<std::int32_t>(lParam >> 16 & 0xFFFF); }
};

struct MessageRow {
  std::uint32_t number;
  std::string_view name;
  void (*handle)(Tessera& control, const MessageWords& words);
};

// In the order of the numbers.
std::span<const MessageRow> messageTable();
// Null for a message that is not the grid's.
const MessageRow* findMessage(std::uint32_t number);

}  // namespace tessera
