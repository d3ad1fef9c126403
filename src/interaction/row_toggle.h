// Opening and closing the rows of a tree.

#pragma once

#include <cstdint>

#include "interaction/editor_controller.h"
#include "interaction/grid_parts.h"
#include "shared/grid_services.h"

namespace tessera {

// Single rows ask the host first and tell it afterwards; all at once is done without a word. An open edit is
// saved before anything moves, and may refuse. Selected flags in the data set stay as they are: when the
// focus moves up to the row that closes, the hidden row keeps its flag until the next move.
class RowToggle {
 public:
  RowToggle(GridParts& parts, GridServices& services, EditorController& editors)
      : parts_(parts), services_(services), editors_(editors) {}

  // Opens a closed row, closes an open one. False for a leaf, after a veto, and when the host changed the
  // grid meanwhile. The callers repaint.
  bool ToggleNode(Row row);

  // Automation. Nothing in a plain grid, without rows on the page, while the grid is being read, and for a
  // row that is not as it must be.
  void expand(std::int32_t number) { toggleFrom(RowState::Collapsed, number); }
  void collapse(std::int32_t number) { toggleFrom(RowState::Expanded, number); }
  void expandAll();
  // The focus goes to the first row; the data set's current row stays.
  void collapseAll();

 private:
  bool hasTree() const;
  void toggleFrom(RowState state, std::int32_t number);
  bool open(Row row);
  bool close(Row row);
  // Asks the host; true when `row` is still there and as it was.
  template <EventId question>
  bool mayToggle(Row row);
  void moveFocus(Row row);
  void showRows();

  GridParts& parts_;
  GridServices& services_;
  EditorController& editors_;
};

}  // namespace tessera
