// The kinds of cells: a row each.

#pragma once

#include <optional>

#include "cells/cell_job.h"
#include "config/child_words.h"

namespace tessera {

// How a kind looks. Each stands in the file of its kind.
struct CellFace {
  // Completes the layout of a text in a bare cell; null: that is all.
  void (*layout)(const CellPlace& place, CellLayout& layout);
  // False when the cell's value is none for this kind: then the column paints no further row.
  bool (*paint)(const CellTools& tools, const CellJob& job);
  // Without the margins; nothing for a row that does not count.
  std::optional<std::int32_t> (*width)(const WidthJob& job);
};

extern const CellFace plainFace, editFace, dropFace, checkFace, radioFace, imageFace, barFace;

// Whether a mark over this text is drawn as off: "F" in any case, and texts that start with "0".
bool isOff(std::u16string_view value);

// Text, lines and box of a row of any level in a tree column, whatever the kind of the column's cells.
void paintTreeCell(const CellTools& tools, const CellJob& job);

// What a key or a press can do with a cell; EditorController::act() does it.
enum class CellAction { None, OpenBox, OpenList, FirePopup, FlipMark, SetMark };

// The window that a cell is edited in.
enum class CellEditor { None, Box, List };

enum class ButtonRule { None, Always, WhenEditable };

struct CellKindRow {
  CellKind kind;
  const CellFace* face;
  // A cell that shows its text and nothing else, but for a button. Nothing of it goes beyond its rectangle.
  bool isText = false;
  ButtonRule button = ButtonRule::None;
  CellEditor editor = CellEditor::None;
  CellAction enter = CellAction::None;
  CellAction space = CellAction::None;  // where the cell is editable
  CellAction press = CellAction::None;  // likewise, on the mark or the focus cell's button
  bool enterAsks = true;                // Enter does it only where the cell is editable
  bool spans = false;                   // equal rows may stand as one tall cell
  bool takesTab = true;                 // Tab stops here
};

constexpr CellKindRow rowWithList(CellKind kind) {
  return {.kind = kind,
          .face = &dropFace,
          .isText = true,
          .button = ButtonRule::WhenEditable,
          .editor = CellEditor::List,
          .enter = CellAction::OpenList,
          .press = CellAction::OpenList};
}

inline constexpr std::array cellKinds = {
    CellKindRow{.kind = CellKind::None, .face = &plainFace, .isText = true, .spans = true, .takesTab = false},
    CellKindRow{.kind = CellKind::Edit,
                .face = &editFace,
                .isText = true,
                .button = ButtonRule::Always,
                .editor = CellEditor::Box,
                .enter = CellAction::OpenBox,
                .press = CellAction::FirePopup},
    rowWithList(CellKind::Combo),
    rowWithList(CellKind::Lookup),
    CellKindRow{.kind = CellKind::Check,
                .face = &checkFace,
                .enter = CellAction::FlipMark,
                .space = CellAction::FlipMark,
                .press = CellAction::FlipMark},
    CellKindRow{.kind = CellKind::Image, .face = &imageFace},
    CellKindRow{.kind = CellKind::Radio,
                .face = &radioFace,
                .enter = CellAction::SetMark,
                .press = CellAction::SetMark,
                .enterAsks = false},
    CellKindRow{.kind = CellKind::Bar, .face = &barFace},
};
static_assert(isInOrderOfKinds(cellKinds), "a row for every kind, in their order");

constexpr const CellKindRow& kindOf(const ColumnRecord& column) {
  return cellKinds[static_cast<std::size_t>(column.child.type)];
}

// Whether the focus cell of this column has its button, for the row of `eval`.
bool showsButton(const ColumnRecord& column, EvalState& eval);

}  // namespace tessera
