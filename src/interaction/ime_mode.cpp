#include "interaction/ime_mode.h"

#include "cells/cell_kinds.h"

namespace tessera {
namespace {

constexpr std::int32_t leaveAlone = 0, native = 1, english = 2;

std::int32_t wantedMode(const ColumnRecord& column, std::int32_t ofControl) {
  const bool hasBox = kindOf(column).editor == CellEditor::Box;
  return hasBox && column.child.ime != leaveAlone ? column.child.ime : ofControl;
}

}  // namespace

void applyImeMode(const GridParts& parts) {
  const FocusModel& focus = parts.focus;
  if (!parts.window || parts.settings.ColumnInfo.empty() || !focus.CellMode || !focus.FocusColumn) return;
  const std::int32_t mode = wantedMode(focus.FocusColumn->value(), parts.settings.IME);
  if (mode == native || mode == english) parts.window->inputMethod().setNative(mode == native);
}

}  // namespace tessera
