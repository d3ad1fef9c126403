// What keys do that reach the grid's window.

#pragma once

#include <cstdint>

#include "interaction/focus_controller.h"
#include "interaction/keys.h"

namespace tessera {

// Keys that draw a block. The defaults are those of a grid that has no blocks.
class BlockKeys {
 public:
  virtual ~BlockKeys() = default;
  // True: the key is dealt with and nothing else happens but a repaint.
  virtual bool take(std::int32_t, Modifiers) { return false; }
  // True when a block stood.
  virtual bool clear() { return false; }
  virtual bool stands() const { return false; }
};

class KeyController {
 public:
  KeyController(GridParts& parts, GridServices& services, FocusController& focus, EditorController& editors,
                BlockKeys& blocks)
      : parts_(parts), services_(services), focus_(focus), editors_(editors), blocks_(blocks) {}

  // A key went down in the grid's window, or in the edit box, which hands its own keys up first.
  void keyDown(std::int32_t key);
  // The same with Alt.
  void systemKeyDown();

 private:
  // True when there is something to repaint.
  bool dispatch(std::int32_t key, Modifiers modifiers);
  bool arrow(std::int32_t key);
  bool arrowOfRows(std::int32_t key);
  bool leftArrow(const Cell& from);
  bool rightArrow(const Cell& from);
  bool verticalArrow(const Cell& from, std::int32_t key);
  bool page(std::int32_t key);
  bool pageOfRows(bool down, std::int32_t rows);
  bool edge(std::int32_t key, bool control);
  bool edgeOfRows(Row target);
  bool edgeOfCells(bool atEnd, bool control);

  Row neighbour(Row row, bool down);
  Row awayFrom(Row row, bool down, std::int32_t count);
  CellSteps steps() { return {parts_.config.columns, parts_.metrics, parts_.rows}; }

  GridParts& parts_;
  GridServices& services_;
  FocusController& focus_;
  EditorController& editors_;
  BlockKeys& blocks_;
};

}  // namespace tessera
