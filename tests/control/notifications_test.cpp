#include "tests/control/control_fixture.h"

namespace tessera {
namespace {

using namespace test;

class Notifications : public ControlTest {};

TEST_F(Notifications, CurrentRowMovesFocusAndPage) {
  auto data = addData(100);
  open();
  EXPECT_EQ(page(), "1-5 top 1 of 100 focus 1 a");
  data->SetCurrentRow(3);
  EXPECT_EQ(page(), "1-5 top 1 of 100 focus 3 a");
  data->SetCurrentRow(50);
  EXPECT_EQ(page(), "48-52 top 48 of 100 focus 50 a");
  const int repaints = window.repaints;
  data->notifier().currentRowChanged(50);  // it stands there already
  EXPECT_EQ(window.repaints, repaints);
  data->notifier().currentRowChanged(101);  // no such row: no focus, the page stays, nothing is painted
  EXPECT_EQ(page(), "48-52 top 48 of 100 focus - a");
  EXPECT_EQ(window.repaints, repaints);
}

TEST_F(Notifications, RowsComeAndGo) {
  auto data = addData(100);
  open();
  data->SetCurrentRow(50);
  data->InsertRow(3);
  EXPECT_EQ(control.parts().rows.displayCount(), 101);
  EXPECT_EQ(control.parts().focus.FocusRow->row, 3);
  data->SetCurrentRow(101);
  data->DeleteRow(101);
  EXPECT_EQ(control.parts().rows.displayCount(), 100);
  EXPECT_EQ(page(), "97-100 top 97 of 100 focus 100 a");
  while (control.parts().rows.displayCount() > 0) data->DeleteRow(1);
  EXPECT_EQ(page(), "empty top 1 of 0 focus - a");
  EXPECT_EQ(control.parts().focus.FocusRow, nullptr);
  data->InsertRow(1);
  EXPECT_EQ(page().substr(0, 19), "1-1 top 1 of 1 focu");
}

TEST_F(Notifications, KeptDeletedRowStays) {
  auto data = addData(10, {.keepDeleted = true});
  open();
  const int repaints = window.repaints;
  data->DeleteRow(2);
  EXPECT_EQ(control.parts().rows.displayCount(), 10);
  EXPECT_GT(window.repaints, repaints);
}

TEST_F(Notifications, AddedRowsMoveOnlyTheBar) {
  auto data = addData(100);
  open();
  const int repaints = window.repaints;
  data->appendRows(50);
  EXPECT_EQ(control.parts().rows.displayCount(), 150);
  EXPECT_EQ(window.repaints, repaints);
  EXPECT_EQ(window.bars[Bar::Vertical].maximum, 150);
}

TEST_F(Notifications, FirstRowsFillAnEmptyPage) {
  auto data = addData(0);
  open();
  EXPECT_EQ(page(), "empty top 1 of 0 focus - -");
  const int repaints = window.repaints;
  data->appendRows(9);
  EXPECT_EQ(page(), "1-5 top 1 of 9 focus 1 a");
  EXPECT_GT(window.repaints, repaints);
}

TEST_F(Notifications, SortingReloadsThePage) {
  auto data = addData(20);
  open();
  const std::uint64_t generation = control.generation();
  data->SetCurrentRow(2);
  data->SetSortExpr(u"-A");
  data->ApplySort();
  EXPECT_EQ(page(), "16-20 top 16 of 20 focus 19 a");
  EXPECT_NE(control.generation(), generation);  // the nodes are new ones
}

TEST_F(Notifications, ClosingDataSetLeavesThePageUntilTheNextChange) {
  auto data = addData(20);
  open();
  data->close();
  EXPECT_EQ(page().substr(0, 3), "1-5");
  EXPECT_EQ(control.parts().link.dataSet(), nullptr);
  const auto before = control.generation();
  control.Refresh();
  control.put_ColumnInfo(u"<GRID/>");
  EXPECT_EQ(control.generation(), before);
  window.size.height = 61;
  control.windowResized();
  EXPECT_EQ(page().substr(0, 3), "1-3");
}

TEST_F(Notifications, NothingIsHeardWithoutAWindow) {
  auto data = addData(20);
  open();
  control.windowDestroyed();
  data->SetCurrentRow(15);
  data->InsertRow(1);
  EXPECT_EQ(page(), "1-5 top 1 of 20 focus 1 a");
  control.windowCreated(window);
  EXPECT_EQ(page(), "1-5 top 1 of 21 focus 1 a");
}

TEST_F(Notifications, TheGridsOwnMovesAreNotHeard) {
  auto data = addData(20);
  open();
  DataLink& link = const_cast<GridParts&>(control.parts()).link;
  link.syncCurrentRow(15);
  EXPECT_EQ(page(), "1-5 top 1 of 20 focus 1 a");
}

TEST_F(Notifications, SortResetTakesTheMarksAway) {
  auto data = addData(3);
  open();
  ColumnRecord& column = const_cast<GridParts&>(control.parts()).config.columns.head()->value();
  column.header.sortMark = 2;
  const int repaints = window.repaints;
  data->notifier().sortReset();
  EXPECT_EQ(column.header.sortMark, 0);
  EXPECT_EQ(window.repaints, repaints);
}

}  // namespace
}  // namespace tessera
