// Which of the control's windows has the keyboard focus.

#pragma once

#include "interaction/grid_parts.h"

namespace tessera {

// Editor or List for the open box and the list, else Outside.
inline FocusState focusedChild(const GridParts& parts) {
  const EditorModel& editor = parts.editor;
  if (editor.active && editor.box && editor.box->hasFocus()) return FocusState::Editor;
  return editor.list && editor.list->hasFocus() ? FocusState::List : FocusState::Outside;
}

// Whether the grid's own window or one of those two has it.
inline bool controlHasFocus(const GridParts& parts) {
  return parts.window && (parts.window->hasFocus() || focusedChild(parts) != FocusState::Outside);
}

}  // namespace tessera
