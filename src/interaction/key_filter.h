// What the host asks before it takes a key for itself.

#pragma once

#include <cstdint>

#include "interaction/key_controller.h"

namespace tessera {

enum class KeyRoute {
  Host,    // the grid has no use for the key: the host may take it, then the window gets it
  Window,  // the window with the focus gets the key, whatever the host would do with it
  Done,    // nobody else gets the key
};

// Sees every key that goes down in the grid's windows. Tab walks over the cells that can be edited; the
// clipboard keys become events.
class KeyFilter {
 public:
  KeyFilter(GridParts& parts, GridServices& services, FocusController& focus, EditorController& editors,
            const BlockKeys& blocks)
      : parts_(parts), services_(services), focus_(focus), editors_(editors), blocks_(blocks) {}

  // `key` becomes key::tabDone when a Tab has moved the focus: the window then gets that.
  KeyRoute translate(std::int32_t& key);

 private:
  KeyRoute tab(std::int32_t& key);
  std::optional<Cell> nextEditable(const Cell& start, bool back);
  bool someCellEdits() const;
  KeyRoute copy();
  KeyRoute paste();

  GridParts& parts_;
  GridServices& services_;
  FocusController& focus_;
  EditorController& editors_;
  const BlockKeys& blocks_;
};

}  // namespace tessera
