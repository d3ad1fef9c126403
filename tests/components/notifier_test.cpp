#include "components/notifier.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "components/data_set_fixture.h"

namespace tessera {
namespace {

using testing::NotingSink;
using testing::storeOf;
using testing::wide;

TEST(Notifier, AllTwelveReachEverySubscriber) {
  Notifier notifier;
  NotingSink a;
  NotingSink b;
  EXPECT_EQ(notifier.advise(&a), S_OK);
  EXPECT_EQ(notifier.advise(&b), S_OK);
  EXPECT_EQ(notifier.advise(&a), S_OK);
  EXPECT_EQ(notifier.advise(nullptr), E_INVALIDARG);
  notifier.sortReset();
  notifier.structureChanged(1);
  notifier.rowsAdded(2);
  notifier.dataChanged(3);
  EXPECT_TRUE(notifier.canChange(4));
  notifier.currentRowChanged(5);
  notifier.rowsReset();
  notifier.reserved(7);
  notifier.rowInserted(8);
  notifier.rowDeleted(9);
  notifier.cellChanged(10, 11);
  notifier.sourceClosing(true);
  notifier.sourceClosing(false);
  notifier.rowsReset();
  const std::string all =
      "SortReset StructureChanged(1) RowsAdded(2) DataChanged(3) CurrentRowChanged(5) RowsReset Reserved(7) "
      "RowInserted(8) RowDeleted(9) CellChanged(10,11) SourceClosing(-1) SourceClosing(0)";
  EXPECT_EQ(a.taken(), all);
  EXPECT_EQ(b.taken(), all);
}

TEST(Notifier, SubscribersLeaveAndComeInsideACall) {
  Notifier notifier;
  NotingSink a;
  auto b = std::make_unique<NotingSink>();
  NotingSink c;
  NotingSink late;
  notifier.advise(&a);
  notifier.advise(b.get());
  notifier.advise(&c);
  a.inside = [&](const std::string&) {
    notifier.unadvise(&a);
    notifier.unadvise(b.get());
    b.reset();  // whoever left may be gone at once
    for (int i = 0; i < 100; ++i) notifier.advise(&late);
  };
  notifier.reserved(1);
  EXPECT_EQ(a.taken(), "Reserved(1)");
  EXPECT_EQ(c.taken(), "Reserved(1)");
  EXPECT_EQ(late.taken(), "");
  notifier.reserved(2);
  EXPECT_EQ(a.taken(), "");
  EXPECT_EQ(c.taken(), "Reserved(2)");
  EXPECT_EQ(late.taken(), "Reserved(2)");
}

TEST(Notifier, LeavingInsideANestedCall) {
  Notifier notifier;
  NotingSink a;
  NotingSink b;
  notifier.advise(&a);
  notifier.advise(&b);
  a.inside = [&](const std::string& note) {
    if (note == "Reserved(1)") notifier.reserved(2);
  };
  b.inside = [&](const std::string&) { notifier.unadvise(&b); };
  notifier.reserved(1);
  EXPECT_EQ(a.taken(), "Reserved(1) Reserved(2)");
  EXPECT_EQ(b.taken(), "Reserved(2)");
}

TEST(Notifications, ChangesMadeInsideANotification) {
  MemoryDataSet rows(storeOf("n\n1\n2\n3\n"));
  NotingSink sink(rows);
  sink.inside = [&](const std::string& note) {
    if (note == "CellChanged(1,1)") rows.DeleteRow(1);
    if (note == "RowDeleted(1)") rows.InsertRow(1);
    if (note == "RowInserted(1)") rows.ApplySort();
  };
  rows.SetText(1, 1, wide("9"));
  // The sort by nothing puts the new row behind the loaded ones, and it stays current.
  EXPECT_EQ(testing::columnTexts(rows, 1), "2 3 ");
  EXPECT_EQ(testing::answer(rows, &DataSetControl::GetCurrentRow), 3);
  EXPECT_EQ(
      sink.taken(),
      "CellChanged(1,1) RowDeleted(1) RowInserted(1) RowsReset CurrentRowChanged(3) CurrentRowChanged(3) "
      "CurrentRowChanged(3)");
}

TEST(Notifications, RowsThatGoWhileTheVoteIsTaken) {
  for (const bool write : {false, true}) {
    MemoryDataSet rows(storeOf("n\n1\n2\n"));
    NotingSink sink(rows);
    sink.inside = [&](const std::string& note) {
      if (note != "CanChange") return;
      rows.replaceRows(storeOf("n\n7\n"));
    };
    if (write)
      rows.SetText(2, 1, wide("9"));
    else
      rows.DeleteRow(2);
    EXPECT_EQ(testing::columnTexts(rows, 1), "7");
    EXPECT_EQ(sink.taken(), "StructureChanged(0)");
  }
}

TEST(Notifications, EveryCurrentRowIsToldAndWrongOnesAreNot) {
  MemoryDataSet rows(storeOf("n\n1\n2\n"));
  NotingSink sink(rows);
  for (const std::int32_t row : {2, 2, 3, -1, 0}) rows.SetCurrentRow(row);
  EXPECT_EQ(sink.taken(), "CurrentRowChanged(2) CurrentRowChanged(2) CurrentRowChanged(0)");
}

TEST(Notifications, ClosingComesOnceAndEndsSubscription) {
  NotingSink sink;
  NotingSink gone;
  {
    MemoryDataSet rows(storeOf("n\n1\n"));
    rows.Advise(&sink, 1);
    rows.Advise(&gone, 1);
    rows.Unadvise(&gone);
    sink.inside = [&](const std::string&) { rows.Unadvise(&sink); };
    rows.close();
    rows.SetText(1, 1, wide("9"));
    EXPECT_EQ(rows.Advise(&sink, 1), E_FAIL);
  }
  EXPECT_EQ(sink.taken(), "SourceClosing(0)");
  EXPECT_EQ(gone.taken(), "");
}

}  // namespace
}  // namespace tessera
