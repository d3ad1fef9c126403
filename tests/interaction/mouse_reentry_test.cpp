#include "mouse_press_fixture.h"

namespace tessera {
namespace {

// What a listener does to the grid while one of the events of a press runs.
class MouseReentry : public test::MousePress {
 public:
  void removeRows() {
    data->rows.clear();
    data->currentRow = 0;
    parts.rows.buildPlain(0);
    parts.page.VisibleRows.clear();
    parts.focus.FocusRow = nullptr;
    parts.focus.SelectedRows.clear();
  }
  void renewNodes() {
    parts.rows.reset();
    parts.rows.buildPlain(10);
    const GridFrame frame = parts.frame();
    parts.loader(frame).LoadVisibleRows(true);
  }
  void loseWindow() {
    editors.windowDestroyed();
    closeWindow();
  }
};

TEST_F(MouseReentry, ThePressStillTellsItself) {
  using Act = void (MouseReentry::*)();
  struct Case {
    EventId event;
    Act act;
    const char* log;
  };
  const std::string down = "OnLButtonDown 3 2 a 30 50; ";
  for (const Case& row :
       {Case{EventId::OnSelChange, &MouseReentry::rebuild, "OnSelChange a 2; "},
        {EventId::OnSelChange, &MouseReentry::removeRows, "OnSelChange a 2; "},
        {EventId::OnSelChange, &MouseReentry::loseWindow, "OnSelChange a 2; "},
        {EventId::OnSelChange, &MouseReentry::renewNodes, "OnSelChange a 2; OnSelChanged a 2; "},
        {EventId::OnSelChanged, &MouseReentry::rebuild, "OnSelChange a 2; OnSelChanged a 2; "},
        {EventId::OnSelChanged, &MouseReentry::removeRows, "OnSelChange a 2; OnSelChanged a 2; "},
        {EventId::OnSelChanged, &MouseReentry::loseWindow, "OnSelChange a 2; OnSelChanged a 2; "}}) {
    services.inside.clear();
    services.inside[row.event] = [this, act = row.act] { (this->*act)(); };
    EXPECT_EQ(press(30, 50), row.log + down);
    services.inside.clear();
    if (!parts.window) {
      parts.window = &window;
      editors.windowCreated();
    }
    setRows(10);
    parts.focus.FocusColumn = position("b");
    EXPECT_EQ(press(100, 70), "OnSelChange b 3; OnSelChanged b 3; OnLButtonDown 3 3 b 100 70; ");
    EXPECT_EQ(focus(), "3 b");
    press(150, 30);
  }
}

// What the host was asked about becomes the focus, wherever it lies by then.
TEST_F(MouseReentry, AListenerScrolls) {
  const auto scroll = [this] { parts.page.RowsDown(parts.rows, parts.frame().rowCapacity(), 3); };
  services.inside[EventId::OnSelChange] = scroll;
  EXPECT_EQ(press(100, 50), "OnSelChange b 2; OnSelChanged b 2; OnLButtonDown 3 2 b 100 50; ");
  EXPECT_EQ(focus(), "2 b");
  EXPECT_GE(parts.page.VisibleIndex(parts.focus.FocusRow), 0);
  services.inside[EventId::OnSelChange] = scroll;
  EXPECT_EQ(press(5, 50), "OnSelChange  3; OnSelChanged  3; OnLButtonDown 1 3  5 50; ");
  EXPECT_EQ(focus(), "rows 3");
  services.inside[EventId::OnSelChange] = [this] { editors.openEditor(false); };
  press(100, 30);
  EXPECT_FALSE(editors.active());
}

// A data set may notify when a row gets its flag, and a refresh then makes nodes and columns anew.
TEST_F(MouseReentry, FlagsThatRebuildTheGrid) {
  struct Case {
    const char* what;
    std::function<void()> prepare;
    std::function<void()> act;
  };
  const auto rows = [this](std::initializer_list<std::int32_t> ys) {
    for (const std::int32_t y : ys) {
      press(5, y);
      window.keys.control = true;
    }
    window.keys = {};
  };
  for (const Case& row : {
           Case{"a cell", [] {}, [this] { press(100, 50); }},
           {"a key", [] {}, [this] { keys.keyDown(key::down); }},
           {"the row property", [] {}, [this] { focusing.setRowPosition(4); }},
           {"into row mode", [] {}, [this] { focusing.setColumnPosition(u""); }},
           {"into cell mode",
            [&] {
              rows({30, 50});
            },
            [this] { focusing.setColumnPosition(u"a"); }},
           {"one row",
            [&] {
              rows({30, 50});
            },
            [this] { press(5, 70); }},
           {"one row more", [&] { rows({30}); }, [&] { window.keys.control = true, press(5, 70); }},
           {"one row less",
            [&] {
              rows({30, 50});
            },
            [&] { window.keys.control = true, press(5, 30); }},
           {"a range", [&] { rows({30}); }, [&] { window.keys.shift = true, press(5, 90); }},
           {"a key over rows", [&] { rows({30}); }, [this] { keys.keyDown(key::down); }},
       }) {
    SCOPED_TRACE(row.what);
    parts.focus.CellMode = true;
    setRows(10);
    loadPage();
    row.prepare();
    int runs = 0;
    bool selfMove = false;
    std::string rebuilt;
    data->whenFlagged = [&](std::int32_t) {
      ++runs;
      selfMove = parts.link.SelfMove();
      rebuild();
      rebuilt = focus();
    };
    row.act();
    data->whenFlagged = nullptr;
    window.keys = {};
    EXPECT_EQ(runs, 1) << "the rest of the flags are another grid's";
    EXPECT_EQ(focus(), rebuilt) << "nothing is stored in it";
    EXPECT_TRUE(selfMove) << "what the flags set off is no move of somebody else";
    const FocusModel& model = parts.focus;
    if (model.CellMode) {
      EXPECT_EQ(parts.rows.find(RowNumber(model.FocusRow)), model.FocusRow);
      EXPECT_EQ(position(model.FocusColumn->value().id.toUtf8()), model.FocusColumn);
    }
    for (const RowNode* node : model.SelectedRows) EXPECT_EQ(parts.rows.find(node->row), node);
    press(100, 70);
    EXPECT_EQ(focus(), "3 b");
  }
}

TEST_F(MouseReentry, WhileTheEditorCloses) {
  using Act = void (MouseReentry::*)();
  struct Case {
    Act act;
    const char* log;
  };
  for (const Case& row :
       {Case{&MouseReentry::rebuild,
             "OnExit b 1 1; OnSelChange a 2; OnSelChanged a 2; OnLButtonDown 3 2 a 30 50; "},
        {&MouseReentry::removeRows, "OnExit b 1 1; OnLButtonDown 6 -1  30 50; "}}) {
    setRows(10);
    openEditor();
    services.inside[EventId::OnExit] = [this, act = row.act] { (this->*act)(); };
    EXPECT_EQ(press(30, 50), row.log);
    EXPECT_FALSE(editors.active());
  }
  setRows(10);
  openEditor();
  services.inside[EventId::OnExit] = [this] { loseWindow(); };
  EXPECT_EQ(press(30, 50).substr(0, 27), "OnExit b 1 1; OnLButtonDown");
  EXPECT_EQ(press(30, 50), "");
  EXPECT_EQ(release(30, 50), "");
}

TEST_F(MouseReentry, ASortThatRebuildsTheGrid) {
  data->whenSorted = [this] { rebuild(); };
  press(100, 10);
  EXPECT_EQ(release(100, 10), "OnLButtonUp 2 -1 b 100 10; ");
  EXPECT_FALSE(window.captured);
  EXPECT_EQ(parts.mouse.sort.column, nullptr);
  EXPECT_EQ(press(30, 50), "OnSelChange a 2; OnSelChanged a 2; OnLButtonDown 3 2 a 30 50; ");
}

}  // namespace
}  // namespace tessera
