// The controllers of a grid, wired to each other.

#pragma once

#include "config/info_services.h"
#include "interaction/editor_controller.h"
#include "interaction/focus_controller.h"
#include "interaction/key_controller.h"
#include "interaction/key_filter.h"
#include "interaction/menu_controller.h"
#include "interaction/mouse_controller.h"
#include "interaction/row_operations.h"
#include "interaction/row_toggle.h"
#include "interaction/scroll_messages.h"

namespace tessera {

// The edit box hands its own keys to the keyboard dispatch of the grid's window, and rows that are
// pressed to the toggling of trees: the ties that go back. The control shows the row that became current.
struct Controllers {
  Controllers(GridParts& parts, GridServices& services, InfoServices& info,
              RowOperations::ShowCurrentRow showCurrentRow)
      : editors(parts, services, info),
        focus(parts, services, editors),
        keys(parts, services, focus, editors, blocks),
        keyFilter(parts, services, focus, editors, blocks),
        mouse(parts, services, focus, editors, gestures),
        scroll(parts, services, editors),
        menu(parts, services),
        rowToggle(parts, services, editors),
        rowOperations(parts, services, editors, std::move(showCurrentRow)) {
    editors.setNodeTarget([this](Row row) { rowToggle.ToggleNode(row); });
    editors.setKeyTarget([this](std::int32_t key) { keys.keyDown(key); });
  }
  Controllers(const Controllers&) = delete;
  Controllers& operator=(const Controllers&) = delete;

  BlockKeys blocks;
  MouseGestures gestures;
  EditorController editors;
  FocusController focus;
  KeyController keys;
  KeyFilter keyFilter;
  MouseController mouse;
  ScrollController scroll;
  MenuController menu;
  RowToggle rowToggle;
  RowOperations rowOperations;
};

}  // namespace tessera
