// What the buttons and the moves of the mouse do.

#pragma once

#include <cstdint>

#include "interaction/column_resize.h"
#include "interaction/editor_controller.h"
#include "interaction/focus_controller.h"
#include "interaction/grid_watch.h"
#include "interaction/mouse_gestures.h"
#include "interaction/sort_press.h"

namespace tessera {

// One function a message, points in client pixels. The message's event fires last, when the grid has done all
// that the message asks for. A listener may rebuild the grid or close its window in any event: then the rest
// of the work is left undone, but the message's own event still fires, with what lay under the pointer
// before.
class MouseController {
 public:
  MouseController(GridParts& parts, GridServices& services, FocusController& focus, EditorController& editors,
                  MouseGestures& gestures)
      : parts_(parts),
        services_(services),
        focus_(focus),
        editors_(editors),
        gestures_(gestures),
        resize_(parts),
        sort_(parts) {}

  void leftDown(Point at);
  void leftUp(Point at);
  void leftDouble(Point at);
  void rightDown(Point at);
  void rightUp(Point at);
  void rightDouble(Point at);
  void move(Point at);
  // Whatever a press holds goes back, without an effect; true when there was something. The caller repaints.
  // For a window that lost the keyboard focus, and for a press whose release never came.
  bool endPress();
  // Before parts.window is cleared.
  void windowDestroyed();
  // The window asks for the cursor over the place of the pointer.
  void showCursor();

 private:
  // What lies under the pointer, with what tells whether it is still there.
  struct Spot {
    Hit hit;
    XString colid;  // empty without a column
    Point at;
    GridWatch watch;
  };
  struct PressResult {
    bool over = false;     // nothing more happens but the message's event
    bool handled = false;  // a glyph of the cell took the press
    bool repaint = false;
  };

  Hit hitAt(Point at) const;
  Spot spotAt(Point at) const;
  // After the host ran: false when the column or the row of `spot` may be gone.
  bool stands(const Spot& spot) const;

  // False when the open editor stays.
  bool closeEditor();
  bool isFocusCell(const Hit& hit) const;
  bool changesSelection(const Hit& hit) const;
  bool isOnTreeBox(const Spot& spot) const;

  PressResult press(Spot& spot);
  bool tickHeadCheck(const Spot& spot);
  bool pressHeader(const Spot& spot);
  PressResult pressRows(Spot& spot);

  void fireMouse(EventId id, const Spot& spot);
  void fireSelChanged(const Spot& spot);

  GridParts& parts_;
  GridServices& services_;
  FocusController& focus_;
  EditorController& editors_;
  MouseGestures& gestures_;
  ColumnResize resize_;
  SortPressController sort_;
};

}  // namespace tessera
