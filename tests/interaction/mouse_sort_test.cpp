#include "interaction/sort_press.h"
#include "mouse_fixture.h"

namespace tessera {
namespace {

class MouseSort : public test::MouseTest {
 protected:
  // A press on the column's header that is released there.
  void clickOn(std::string_view id) {
    const Rect header = column(id).header.rect;
    ASSERT_TRUE(sort.start(position(id), {header.left + 10, 10}));
    EXPECT_TRUE(sort.release(position(id)));
  }
  std::string marks() {
    std::string text;
    for (const ColumnRecord& record : parts.config.columns) text += std::to_string(record.header.sortMark);
    return text;
  }
  std::string state() { return data->sort.toUtf8() + ' ' + marks() + ' ' + std::to_string(data->sorts); }

  SortPressController sort{parts};
};

TEST_F(MouseSort, AscendingThenBackAndForth) {
  clickOn("b");
  EXPECT_EQ(state(), "+b 010 1");
  clickOn("b");
  EXPECT_EQ(state(), "-b 020 2");
  clickOn("b");
  EXPECT_EQ(state(), "+b 010 3");
  clickOn("c");
  EXPECT_EQ(state(), "+c 001 4");
}

TEST_F(MouseSort, ThePresentOrderIsSearchedAsText) {
  struct Case {
    const char16_t* present;
    const char* next;
  };
  for (const Case& row :
       {Case{u"+a,-b", "+b"}, {u"+a,+b", "-b"}, {u"+bc", "-b"}, {u"+B", "+b"}, {u"b", "+b"}}) {
    data->sort = row.present;
    clickOn("b");
    EXPECT_EQ(data->sort.toUtf8(), row.next);
  }
}

TEST_F(MouseSort, WhatRefusesThePress) {
  const auto starts = [this] {
    const bool started = sort.start(position("b"), {90, 10});
    EXPECT_EQ(window.captured, started);
    sort.end();
    return started;
  };
  EXPECT_TRUE(starts());
  EXPECT_FALSE(sort.start(nullptr, {90, 10}));
  EXPECT_FALSE(sort.start(position("b"), {76 + 60, 10}));
  parts.settings.Sort = false;
  EXPECT_FALSE(starts());
  parts.settings.Sort = true;
  parts.settings.ViewHeader = false;
  EXPECT_FALSE(starts());
  parts.settings.ViewHeader = true;
  parts.config.tree.rowMode = RowMode::Tree;
  EXPECT_FALSE(starts());
  parts.config.tree.rowMode = RowMode::Group;
  EXPECT_TRUE(starts());
  column("b").viewVisible = false;
  EXPECT_FALSE(starts());
  column("b").viewVisible = true;
  column("b").refColumnId = u"";
  EXPECT_FALSE(starts());
}

TEST_F(MouseSort, TheHeaderIsDownWhileThePointerIsOverIt) {
  const std::int32_t& shown = column("b").header.borderStyle;
  ASSERT_TRUE(sort.start(position("b"), {90, 10}));
  EXPECT_EQ(shown, border::sunkenInner);
  EXPECT_FALSE(sort.step({91, 11}));
  EXPECT_TRUE(sort.step({91, 20}));
  EXPECT_EQ(shown, border::raisedInner);
  EXPECT_FALSE(sort.step({200, 20}));
  EXPECT_TRUE(sort.step({135, 0}));
  EXPECT_EQ(shown, border::sunkenInner);
  EXPECT_TRUE(sort.end());
  EXPECT_EQ(shown, border::raisedInner);
  EXPECT_FALSE(window.captured);
  EXPECT_FALSE(sort.step({135, 0}));
  EXPECT_FALSE(sort.end());
}

TEST_F(MouseSort, ReleasedOverAnotherHeaderSortsNothing) {
  ASSERT_TRUE(sort.start(position("b"), {90, 10}));
  EXPECT_TRUE(sort.release(position("c")));
  ASSERT_TRUE(sort.start(position("b"), {90, 10}));
  EXPECT_TRUE(sort.release(nullptr));
  EXPECT_FALSE(sort.release(position("b")));
  EXPECT_FALSE(sort.release(nullptr));
  EXPECT_EQ(state(), " 000 0");
}

TEST_F(MouseSort, TheFocusStaysOnItsColumn) {
  parts.focus.FocusColumn = position("c");
  clickOn("b");
  EXPECT_EQ(parts.focus.FocusColumnName, u"c");
  parts.focus.FocusColumnName = u"";
  parts.focus.CellMode = false;
  clickOn("b");
  EXPECT_EQ(parts.focus.FocusColumnName, u"");
}

TEST_F(MouseSort, WithoutDataNothingIsMarked) {
  parts.link.releaseDataSet();
  clickOn("b");
  EXPECT_EQ(marks(), "000");
}

TEST_F(MouseSort, TheHeaderIsUpBeforeTheRowsChange) {
  data->whenSorted = [this] {
    EXPECT_EQ(column("b").header.borderStyle, border::raisedInner);
    EXPECT_FALSE(window.captured);
    rebuild();
  };
  clickOn("b");
  EXPECT_EQ(data->sorts, 1);
}

TEST_F(MouseSort, ARebuiltGridEndsThePress) {
  ASSERT_TRUE(sort.start(position("b"), {90, 10}));
  rebuild();
  column("b").header.borderStyle = border::raisedOuter;
  EXPECT_FALSE(sort.step({90, 50}));
  EXPECT_TRUE(window.captured);
  EXPECT_TRUE(sort.release(position("b")));
  EXPECT_FALSE(window.captured);
  EXPECT_EQ(column("b").header.borderStyle, border::raisedOuter);
  EXPECT_EQ(data->sorts, 0);
}

}  // namespace
}  // namespace tessera
