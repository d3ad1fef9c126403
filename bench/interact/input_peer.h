// One grid with a million rows and a person before it.

#pragma once

#include <cstdint>
#include <memory>

namespace tessera {

constexpr std::int32_t peerRows = 1'000'000;
constexpr std::int32_t peerColumns = 6;
constexpr std::int32_t peerWidth = 900;
constexpr std::int32_t peerHeight = 600;

// Each input is worked off with its paint before the call returns.
class InputPeer {
 public:
  virtual ~InputPeer() = default;
  virtual void keyDown() = 0;
  virtual void pageDown() = 0;
  // Drags the thumb of the vertical bar until `row` (from 1) is on top, as far as there are rows.
  virtual void thumbTo(std::int32_t row) = 0;
  virtual void wheelNotch() = 0;
  // The whole client area anew.
  virtual void repaint() = 0;

  // Rows from 1: the one with the focus, and the one on top.
  virtual std::int32_t focusRow() const = 0;
  virtual std::int32_t topRow() const = 0;
};

std::unique_ptr<InputPeer> makeTableViewPeer();

}  // namespace tessera
