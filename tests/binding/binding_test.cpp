// The ties to the data set and the image set, as far as a whole grid does not show them.

#include <gtest/gtest.h>

#include "binding/component_locator.h"
#include "binding/data_sink.h"
#include "binding/image_cache.h"
#include "binding/image_sink.h"
#include "tests/support/fake_data_set.h"
#include "tests/support/fake_image_set.h"
#include "tests/support/one_object_site.h"

namespace tessera {
namespace {

// Counts, refuses and tells.
class WatchedDataSet : public FakeDataSet {
 public:
  using FakeDataSet::FakeDataSet;
  void GetColumnIndex(const XString& name, std::int32_t& column) override {
    ++lookups;
    FakeDataSet::GetColumnIndex(name, column);
  }
  void SetCurrentRow(std::int32_t row) override {
    FakeDataSet::SetCurrentRow(row);
    if (whenMoved) whenMoved();
  }
  HResult Advise(DataSetNotifications*, std::int32_t) override { return adviseStatus; }

  int lookups = 0;
  HResult adviseStatus = S_OK;
  std::function<void()> whenMoved;
};

class ToldClient : public ImageClient {
 public:
  HResult ImageSortReset(std::int32_t cookie) override { return tell("sort " + std::to_string(cookie)); }
  HResult ImageDataChanged(std::int32_t cookie, std::int32_t value) override {
    return tell("data " + std::to_string(cookie) + ' ' + std::to_string(value));
  }
  HResult ImageSourceClosing(std::int32_t cookie) override {
    return tell("closing " + std::to_string(cookie));
  }

  std::string told;

 private:
  HResult tell(const std::string& what) {
    told += what + "; ";
    return S_OK;
  }
};

TEST(DataLink, AnswersWithoutADataSet) {
  DataLink link;
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

TEST(DataLink, AsksForAColumnsNumberOnce) {
  const auto data = std::make_shared<WatchedDataSet>(std::vector<XString>{u"A", u"B"},
                                                     std::vector<std::vector<const char16_t*>>{});
  DataLink link;
  bindTo(link, data);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(link.columnIndex(u"B"), 2);
    EXPECT_EQ(link.columnIndex(u"OTHER"), 0);
  }
  EXPECT_EQ(data->lookups, 2);
  link.forgetColumns();
  link.columnIndex(u"B");
  EXPECT_EQ(data->lookups, 3);
  data->adviseStatus = E_FAIL;
  bindTo(link, data);
  EXPECT_EQ(link.dataSet(), nullptr) << "a subscription that is refused";
  EXPECT_EQ(link.columnIndex(u"B"), 0);
}

TEST(DataLink, KnowsItsOwnMoves) {
  auto data = std::make_shared<WatchedDataSet>();
  DataLink link;
  bindTo(link, data);
  int own = 0;
  data->whenMoved = [&] { own += link.SelfMove() ? 1 : 0; };
  link.syncCurrentRow(4);
  link.syncCurrentRow(4);  // it stands there: no call
  EXPECT_EQ(own, 1);
  EXPECT_FALSE(link.SelfMove());
  {
    DataLink::SelfMoveScope outer(link);
    { DataLink::SelfMoveScope inner(link); }
    EXPECT_TRUE(link.SelfMove());
  }
  // The data set may close, and be let go of, in the middle of the call.
  const std::weak_ptr<WatchedDataSet> watch = data;
  data->whenMoved = [&] { link.unbind(), link.releaseDataSet(); };
  data.reset();
  link.syncCurrentRow(9);
  EXPECT_TRUE(watch.expired());
}

TEST(Sinks, AnswerForThemselvesWhileDetached) {
  DataSink sink;
  VariantBool allowed = VARIANT_FALSE;
  EXPECT_EQ(sink.CanChange(0, allowed), E_NOTIMPL);
  EXPECT_EQ(allowed, VARIANT_TRUE);
  EXPECT_EQ(sink.RowsReset(), E_NOTIMPL);
  EXPECT_EQ(ImageSink().DataChanged(1), S_OK);
}

TEST(Sinks, AnImageSetThatClosesMayBeBoundAgain) {
  const auto images = std::make_shared<FakeImageSet>();
  OneObjectSite site(images);
  ToldClient client;
  ImageSink sink;
  sink.Bind(&client, &site, u"images", 2);
  images->sink->SortReset();
  images->sink->DataChanged(5);
  images->sink->SourceClosing(VARIANT_FALSE);
  EXPECT_EQ(client.told, "sort 2; data 2 5; closing 2; ");
  EXPECT_EQ(sink.source(), nullptr);
  sink.Bind(&client, &site, u"images", 2);
  EXPECT_EQ(sink.source(), images);
}

TEST(Locator, NothingToSearch) {
  struct : ClientSite {
    Container* container() override { return nullptr; }
    std::optional<AmbientFont> ambientFont() override { return std::nullopt; }
    XValue ambientCodePage() override { return {}; }
  } nowhere;
  OneObjectSite site(std::make_shared<FakeDataSet>());
  EXPECT_NE(locateDataSet(&site, u"id", false), nullptr);
  EXPECT_EQ(locateImageSet(&site, u"id"), nullptr) << "another kind of component";
  EXPECT_EQ(locateDataSet(&site, u"", true), nullptr);
  EXPECT_EQ(locateDataSet(&nowhere, u"id", true), nullptr);
  EXPECT_EQ(locateDataSet(nullptr, u"id", true), nullptr);
}

// Rows of picture keys: the fourth is a summary row, the fifth no text.
class ImageCacheTest : public ::testing::Test {
 protected:
  ImageCacheTest() {
    data->rows[3].level = 1;
    data->rows[4].values[0] = XValue::ofInt(7);
    images->pictures = {
        {"kr", {1, 1, {0xFF112233}}}, {"de", {2, 1, {0xFF000000, 0x7FFFFFFF}}}, {"bad", {5, 5, {0}}}};
    ColumnRecord column;
    column.refColumnId = u"flag";
    column.child.type = CellKind::Image;
    columns.addTail(column);
    bindTo(link, images);
    cache.ReloadImages(link);
    EXPECT_EQ(cache.FindImage(u"kr"), nullptr) << "without a data set";
    bindTo(link, data);
    cache.ReloadImages(link);
  }

  std::shared_ptr<FakeDataSet> data =
      std::make_shared<FakeDataSet>(std::vector<XString>{u"flag", u"OTHER"},
                                    std::vector<std::vector<const char16_t*>>{
                                        {u"kr"}, {u"de"}, {u"kr"}, {u"kr2"}, {u""}, {u"KR"}, {u"bad"}});
  std::shared_ptr<FakeImageSet> images = std::make_shared<FakeImageSet>();
  ColumnList columns;
  DataLink link;
  ImageCache cache;
};

TEST_F(ImageCacheTest, AsksForEachKeyThatIsLookedForOnce) {
  EXPECT_EQ(images->asked, "");
  for (int times = 0; times < 2; ++times) {
    ASSERT_NE(cache.FindImage(u"kr"), nullptr);
    EXPECT_EQ(cache.FindImage(u"kr")->at(0, 0), 0xFF112233u);
    EXPECT_FALSE(cache.FindImage(u"kr")->translucent);
    EXPECT_TRUE(cache.FindImage(u"de")->translucent);
    EXPECT_EQ(cache.FindImage(u"KR"), nullptr);
    EXPECT_EQ(cache.FindImage(u"bad"), nullptr) << "fewer pixels than it says";
  }
  EXPECT_EQ(images->asked, "kr de KR bad ");
}

TEST_F(ImageCacheTest, AsksAgainForWhatWasNoneAndReplacesNothing) {
  const BitmapRef first = cache.FindImage(u"kr");
  EXPECT_EQ(cache.FindImage(u"KR"), nullptr);
  images->pictures["kr"] = images->pictures["KR"] = {1, 1, {0xFFFFFFFF}};
  cache.ReloadCellImage(columns, link, 1, 1);
  cache.ReloadCellImage(columns, link, 2, 6);  // another column
  cache.ReloadCellImage(columns, link, 1, 4);  // a summary row
  EXPECT_EQ(cache.FindImage(u"kr"), first);
  EXPECT_EQ(cache.FindImage(u"KR"), nullptr);
  cache.ReloadCellImage(columns, link, 1, 6);
  EXPECT_NE(cache.FindImage(u"KR"), nullptr);
}

}  // namespace
}  // namespace tessera
