// The focus cell and the selected rows, and every move of them.

#pragma once

#include <cstdint>
#include <optional>

#include "geometry/cell_steps.h"
#include "geometry/hit_test.h"
#include "interaction/editor_controller.h"
#include "interaction/grid_parts.h"
#include "interaction/grid_watch.h"
#include "interaction/row_select.h"
#include "shared/grid_services.h"

namespace tessera {

enum class MoveResult {
  Moved,
  EditorStays,  // OnExit kept the editor open
  Vetoed,       // OnSelChange said no
  Gone,         // the host changed the grid meanwhile
};

// What a move does beside moving.
struct MoveStyle {
  std::int32_t scrollRows = 0;  // the page goes first: down above 0, up below
  bool showCell = true;         // the page follows the focus
  bool onTop = false;           // the target row becomes the first of the page
  bool setInput = true;         // the input method follows the focus
};

// All moves, those by Left, Right, Home and End too, keep one order: an open editor closes, OnSelChange is
// asked, flags and focus change, the data set's current row follows, the page follows, OnSelChanged. A
// refusal leaves everything as it was.
class FocusController {
 public:
  FocusController(GridParts& parts, GridServices& services, EditorController& editors)
      : parts_(parts), services_(services), editors_(editors) {}

  // Automation.
  void setRowPosition(std::int32_t row);
  void setColumnPosition(const XString& id);

  // Whether the focus must not move to this place; nothing when it may. Whatever is open ends first, and so
  // does what the host opens while it is asked: none may stand over a cell that is no longer the focus cell.
  std::optional<MoveResult> refusal(const XString& colid, std::int32_t row);
  // A press of the left button whose move was not refused, on what `hit` says wherever it lies by now.
  void pressRow(const Hit& hit, Point at, Modifiers modifiers);

  // The grid's window got or lost the keyboard focus.
  void focusGained();
  void focusLost();

  void applyImeMode();
  void syncCurrentRow();

  // The focus cell; without row or column in row mode and while there is none.
  Cell focusCell() const;
  // The callers repaint.
  MoveResult moveTo(const Cell& target, const MoveStyle& style = {});
  // Row mode: `target` becomes the only selected row.
  MoveResult selectRow(Row target, const MoveStyle& style = {});
  // Scrolls sideways as far as it goes; FocusLeft follows. The result is how far the columns went to the
  // right, in pixels.
  std::int32_t scrollFullyLeft();
  std::int32_t scrollFullyRight();
  // Takes back a scrolling by `dx` pixels that began at `stop`.
  void scrollBack(std::int32_t dx, std::int32_t stop);

 private:
  void scrollPage(std::int32_t rows);
  bool markFocusRow(Row row);
  void storeFocus(const Cell& cell);
  void showRow(Row row, bool onTop);
  void showColumn(ColumnPosition column);
  void followColumn();

  template <class Store>
  MoveResult move(const XString& colid, Row row, Store store);
  MoveResult focusRow(Row target);
  void toCellMode(ColumnPosition column);
  void toRowMode();
  MoveResult takeColumn(ColumnPosition column, Row row);
  void pressIndicator(Row row, Modifiers modifiers);
  void pressCell(Row row, ColumnPosition column);
  RowSelection selection() const { return {parts_, services_}; }

  GridParts& parts_;
  GridServices& services_;
  EditorController& editors_;
};

}  // namespace tessera
