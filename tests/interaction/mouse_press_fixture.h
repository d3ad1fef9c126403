// A grid whose presses of the mouse buttons are written down.

#pragma once

#include "interaction/key_controller.h"
#include "interaction/mouse_controller.h"
#include "mouse_fixture.h"

namespace tessera::test {

// Writes its calls into the log of the events.
class LoggedGestures : public MouseGestures {
 public:
  explicit LoggedGestures(LiveServices& services) : services_(services) {}
  bool canDrag(const Hit&, Point) override { return drags; }
  bool tryDrag(const Hit&, Point) override { return note("drag", drags); }
  bool startBlock(Point from) override {
    return note("block " + std::to_string(from.x) + ' ' + std::to_string(from.y), blocks);
  }
  void clearBlock() override { note("clear", true); }

  bool drags = false;
  bool blocks = false;
  bool logs = false;

 private:
  bool note(const std::string& text, bool answer) {
    if (logs) services_.log += text + "; ";
    return answer;
  }

  LiveServices& services_;
};

// The focus is on a in row 1. Row n lies from 20 n to 20 n + 20, a from 16 to 76, b to 136, c to 196.
class MousePress : public MouseTest {
 protected:
  MousePress() {
    editors.windowCreated();
    window.focus = FakeWindow::Focus::Grid;
    parts.focus.state = FocusState::Grid;
    data->rows[0].selected = 1;
    column("b").child.type = CellKind::Edit;
    column("b").index = 4;
  }
  ~MousePress() override { editors.windowDestroyed(); }

  std::string press(std::int32_t x, std::int32_t y) {
    mouse.leftDown({x, y});
    return services.take();
  }
  std::string release(std::int32_t x, std::int32_t y) {
    mouse.leftUp({x, y});
    return services.take();
  }
  std::string twice(std::int32_t x, std::int32_t y) {
    mouse.leftDown({x, y});
    mouse.leftUp({x, y});
    services.take();
    mouse.leftDouble({x, y});
    return services.take();
  }
  void openEditor() {
    press(100, 30);
    ASSERT_TRUE(editors.openEditor(false));
    services.take();
    services.repaints = 0;
  }
  std::string selected() const {
    std::string text;
    for (const FakeDataSet::Row& row : data->rows) text += row.selected != 0 ? '1' : '0';
    return text;
  }
  std::string headers() const { return test::headersOf(parts.config.columns); }

  LookupServices info;
  EditorController editors{parts, services, info};
  FocusController focusing{parts, services, editors};
  LoggedGestures gestures{services};
  BlockKeys blocks;
  KeyController keys{parts, services, focusing, editors, blocks};
  MouseController mouse{parts, services, focusing, editors, gestures};
};

}  // namespace tessera::test
