#include "binding/data_link.h"

#include <functional>
#include <gtest/gtest.h>

#include "tests/binding/fake_host.h"

namespace tessera {
namespace {

using namespace test;

class CountingDataSet : public FakeDataSet {
 public:
  using FakeDataSet::FakeDataSet;
  void GetColumnIndex(const XString& name, std::int32_t& column) override {
    ++lookups;
    column = name == u"AMOUNT" ? 3 : 0;
  }
  void GetCurrentRow(std::int32_t& row) override { row = current; }
  void SetCurrentRow(std::int32_t row) override {
    current = row;
    if (onMove) onMove();
  }
  int lookups = 0;
  std::int32_t current = 1;
  std::function<void()> onMove;
};

class DataLinkTest : public ::testing::Test {
 protected:
  DataLinkTest() { page.objects = {data}; }
  std::shared_ptr<CountingDataSet> data = std::make_shared<CountingDataSet>(u"orders");
  FakeEnumeration page;
  FakeSite site{&page};
  QuietClient listener;
  DataLink link;
};

TEST_F(DataLinkTest, NeutralAnswersWithoutADataSet) {
  XValue value = XValue::ofInt(5);
  link.value(1, 1, value);
  EXPECT_EQ(value.type(), VT_EMPTY);
  XString text = u"old";
  link.text(1, 1, text);
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(link.rowCount(), 0);
  EXPECT_EQ(link.currentRow(), -1);
  EXPECT_EQ(link.level(1), 0);
  EXPECT_EQ(link.columnIndex(u"AMOUNT"), 0);
  EXPECT_FALSE(link.keepDeleted());
  link.setRowSelected(1, true);
  link.syncCurrentRow(4);
}

TEST_F(DataLinkTest, ColumnNumbersAreAskedOnceUntilForgotten) {
  ASSERT_EQ(link.bindDataSet(listener, &site, u"orders"), S_OK);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(link.columnIndex(u"AMOUNT"), 3);
    EXPECT_EQ(link.columnIndex(u"OTHER"), 0);
  }
  EXPECT_EQ(data->lookups, 2);
  link.forgetColumns();
  link.columnIndex(u"AMOUNT");
  EXPECT_EQ(data->lookups, 3);
  link.releaseDataSet();
  EXPECT_EQ(link.columnIndex(u"AMOUNT"), 0);
}

TEST_F(DataLinkTest, RefusedSubscriptionLeavesNoDataSet) {
  ASSERT_EQ(link.bindDataSet(listener, &site, u"orders"), S_OK);
  data->adviseStatus = E_FAIL;
  EXPECT_EQ(link.bindDataSet(listener, &site, u"ORDERS"), E_FAIL);
  EXPECT_EQ(link.dataSet(), nullptr);
}

TEST_F(DataLinkTest, SelfMoveHoldsDuringTheGridsOwnMoves) {
  link.bindDataSet(listener, &site, u"orders");
  bool during = false;
  data->onMove = [&] { during = link.SelfMove(); };
  link.syncCurrentRow(4);
  EXPECT_TRUE(during);
  EXPECT_EQ(data->current, 4);
  EXPECT_FALSE(link.SelfMove());

  during = false;
  link.syncCurrentRow(4);  // it stands there: no call
  EXPECT_FALSE(during);

  DataLink::SelfMoveScope outer(link);
  { DataLink::SelfMoveScope inner(link); }
  EXPECT_TRUE(link.SelfMove());
}

// The data set may close, and be let go of, in the middle of the grid's call.
TEST_F(DataLinkTest, SurvivesADataSetThatGoesWhileItMoves) {
  link.bindDataSet(listener, &site, u"orders");
  page.objects.clear();
  std::weak_ptr<CountingDataSet> watch = data;
  data->onMove = [&] { link.unbind(), link.releaseDataSet(); };
  data.reset();
  link.syncCurrentRow(9);
  EXPECT_TRUE(watch.expired());
  EXPECT_EQ(link.currentRow(), -1);
}

}  // namespace
}  // namespace tessera
