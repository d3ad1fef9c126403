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

// What a key or a press can do with a cell; interaction/cell_actions.cpp does it.
enum class CellAction { None, OpenBox, OpenList, FirePopup, FlipMark, SetMark };

// The window that a cell is edited in.
enum class CellEditor { None, Box, List };

enum class ButtonRule { None, Always, WhenEditable };

struct CellKindRow {
  CellKind kind;
  const CellFace* face;
  // A cell that shows its text and nothing else, but for a button. Nothing of it goes beyond its rectangle.
  bool isText = false;
  // Equal rows may stand as one tall cell.
  bool spans = false;
  ButtonRule button = ButtonRule::None;
  CellEditor editor = CellEditor::None;
  CellAction enter = CellAction::None;
  bool enterAsksEditable = false;
  CellAction space = CellAction::None;  // where the cell is editable
  CellAction press = CellAction::None;  // likewise, on the mark or the focus cell's button
  bool takesTab = true;                 // Tab stops here
};

inline constexpr std::array cellKinds = {
    CellKindRow{.kind = CellKind::None, .face = &plainFace, .isText = true, .spans = true, .takesTab = false},
    CellKindRow{.kind = CellKind::Edit,
                .face = &editFace,
                .isText = true,
                .button = ButtonRule::Always,
                .editor = CellEditor::Box,
                .enter = CellAction::OpenBox,
                .enterAsksEditable = true,
                .press = CellAction::FirePopup},
    CellKindRow{.kind = CellKind::Combo,
                .face = &dropFace,
                .isText = true,
                .button = ButtonRule::WhenEditable,
                .editor = CellEditor::List,
                .enter = CellAction::OpenList,
                .press = CellAction::OpenList},
    CellKindRow{.kind = CellKind::Lookup,
                .face = &dropFace,
                .isText = true,
                .button = ButtonRule::WhenEditable,
                .editor = CellEditor::List,
                .enter = CellAction::OpenList,
                .press = CellAction::OpenList},
    CellKindRow{.kind = CellKind::Check,
                .face = &checkFace,
                .enter = CellAction::FlipMark,
                .enterAsksEditable = true,
                .space = CellAction::FlipMark,
                .press = CellAction::FlipMark},
    CellKindRow{.kind = CellKind::Image, .face = &imageFace},
    CellKindRow{.kind = CellKind::Radio,
                .face = &radioFace,
                .enter = CellAction::SetMark,
                .press = CellAction::SetMark},
    CellKindRow{.kind = CellKind::Bar, .face = &barFace},
};
static_assert(isInOrderOfKinds(cellKinds), "a row for every kind, in their order");

constexpr const CellKindRow& kindOf(const ColumnRecord& column) {
  return cellKinds[static_cast<std::size_t>(column.child.type)];
}

// Whether the focus cell of this column has its button, for the row of `eval`.
bool showsButton(const ColumnRecord& column, EvalState& eval);

}  // namespace tessera
