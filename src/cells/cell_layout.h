// Where the parts of a cell stand.

#pragma once

#include <cstdint>
#include <limits>

#include "config/column_record.h"
#include "config/tree_info.h"
#include "rows/row_view.h"
#include "shared/rect.h"

namespace tessera {

// A cell, as far as the places of its parts depend on it.
struct CellPlace {
  const ColumnRecord& column;
  const TreeInfo& tree;
  Rect cell;                  // all of it, even where it does not show
  std::int32_t clipLeft = 0;  // nothing left of here shows, GridFrame::clipLeft()
  std::int32_t bottomLimit = std::numeric_limits<std::int32_t>::max();  // nothing from here down shows
  RowView row = {};
  std::int32_t level = 0;    // of the style, as CellSpan has it: above 0 the row sums others
  bool showsButton = false;  // it is the focus cell, and showsButton() grants it
  bool isOff = false;        // the cell's mark is off
  bool hasLabel = false;     // there is text beside its mark
};

// Painter and press do not always mean the same pixels.
struct CellPart {
  Glyph glyph = Glyph::None;
  Rect drawn;    // empty when it is not drawn
  Rect pressed;  // empty when no press can meet it

  // Takes a glyph at `left`, in the middle of a cell from top to bottom.
  static CellPart ofGlyph(Glyph glyph, const Rect& cell, std::int32_t left);
};

// Painter, presses, edit box and list read one layout.
struct CellLayout {
  // Text, mark and tree are drawn in all of the cell and cut while they are drawn: their places do not change
  // while the column scrolls away. A list stands at its left and bottom.
  Rect cell;
  // What shows of it. The button is drawn here, and the focus is.
  Rect visible;
  // What a press can meet: as `visible`, but not cut at the bottom. Marks and buttons are pressed where they
  // would stand in here, so a mark that has partly scrolled away is pressed at the left of what is left.
  Rect reachable;
  Rect body;  // `visible` without the button: what tint and focus rectangle cover

  // Of the text within `cell`, as a DrawStyle takes them.
  std::int32_t leftMargin = 0;
  std::int32_t rightMargin = 0;
  std::int32_t align = 0;

  CellPart mark;     // a mark is pressed as if it were on, and as if its label had a text whenever it has one
  CellPart button;   // to be pressed on the focus cell only
  CellPart treeBox;  // two pixels around it count as the box; its column does not cut it off from a press
  Rect icon;         // kept free for the icon of a node
  Rect editor;       // where an edit box stands
};

CellLayout layoutCell(const CellPlace& place);

// The tree column's cells, of any kind, show the tree and the text.
bool isTreeCell(const ColumnRecord& column, const TreeInfo& tree);

// --- For the layouts of the kinds.

// The cell gets a button at its right end.
void placeButton(const CellPlace& place, Glyph glyph, CellLayout& layout);
// The cell gets the tree's parts, and loses the mark that its kind would have drawn.
void placeTree(const CellPlace& place, CellLayout& layout);

}  // namespace tessera
