#include "interaction/ime_mode.h"

namespace tessera {
namespace {

constexpr std::int32_t leaveAlone = 0, native = 1, english = 2;

std::int32_t wantedMode(const ChildSpec& child, std::int32_t ofControl) {
  return child.type == CellKind::Edit && child.ime != leaveAlone ? child.ime : ofControl;
}

}  // namespace

void applyImeMode(const GridParts& parts) {
  const FocusModel& focus = parts.focus;
  if (!parts.window || parts.settings.ColumnInfo.empty() || !focus.CellMode || !focus.FocusColumn) return;
  const std::int32_t mode = wantedMode(focus.FocusColumn->value().child, parts.settings.IME);
  if (mode == native || mode == english) parts.window->inputMethod().setNative(mode == native);
}

}  // namespace tessera
