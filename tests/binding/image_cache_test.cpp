#include "binding/image_cache.h"

#include <gtest/gtest.h>

#include "tests/binding/fake_host.h"

namespace tessera {
namespace {

using namespace test;

// One column FLAG whose values are given; "#" in front makes a summary row, "" a number.
class FlagDataSet : public FakeDataSet {
 public:
  FlagDataSet(std::vector<std::u16string> values) : FakeDataSet(u"orders"), values_(std::move(values)) {}
  void GetRowCount(std::int32_t& count) override { count = static_cast<std::int32_t>(values_.size()); }
  void GetColumnName(std::int32_t column, XString& name) override { name = column == 1 ? u"FLAG" : u"OTHER"; }
  void GetLevel(std::int32_t row, std::int32_t& level) override { level = at(row).starts_with(u'#') ? 1 : 0; }
  void GetValueByName(std::int32_t row, const XString&, XValue& value) override {
    if (at(row).empty()) {
      value.setInt(7);
    } else {
      value.setText(std::u16string_view(at(row)));
    }
  }
  void GetText(std::int32_t row, std::int32_t, XString& text) override { text.assign(at(row)); }
  std::u16string& at(std::int32_t row) { return values_[static_cast<std::size_t>(row - 1)]; }

 private:
  std::vector<std::u16string> values_;
};

class ImageCacheTest : public ::testing::Test {
 protected:
  ImageCacheTest() {
    images->keys["kr"] = {1, 1, {0xFF112233}};
    images->keys["de"] = {2, 1, {0xFF000000, 0x7FFFFFFF}};
    images->keys["bad"] = {5, 5, {0}};
    page.objects = {data, images};
    ColumnRecord column;
    column.refColumnId = u"flag";
    column.child.type = CellKind::Image;
    columns.addTail(column);
  }
  void bind(DataLink& link) {
    link.bindDataSet(client, &site, u"orders");
    link.bindImageSet(client, &site, u"flags");
  }

  std::shared_ptr<FlagDataSet> data = std::make_shared<FlagDataSet>(
      std::vector<std::u16string>{u"kr", u"de", u"kr", u"#kr2", u"", u"KR", u"bad"});
  std::shared_ptr<FakeImageSet> images = std::make_shared<FakeImageSet>(u"flags");
  FakeEnumeration page;
  FakeSite site{&page};
  QuietClient client;
  ColumnList columns;
  ImageCache cache;
};

TEST_F(ImageCacheTest, AsksForEachKeyThatIsLookedForOnce) {
  DataLink link;
  bind(link);
  cache.ReloadImages(link);
  EXPECT_EQ(images->asked, "");
  for (int times = 0; times < 2; ++times) {
    ASSERT_NE(cache.FindImage(u"kr"), nullptr);
    EXPECT_EQ(cache.FindImage(u"kr")->at(0, 0), 0xFF112233u);
    EXPECT_EQ(cache.FindImage(u"de")->width, 2);
    EXPECT_TRUE(cache.FindImage(u"de")->translucent);
    EXPECT_FALSE(cache.FindImage(u"kr")->translucent);
    EXPECT_EQ(cache.FindImage(u"KR"), nullptr);
    EXPECT_EQ(cache.FindImage(u"bad"), nullptr);  // fewer pixels than it says
  }
  EXPECT_EQ(images->asked, "kr de KR bad ");
}

TEST_F(ImageCacheTest, CellPicturesAreAddedButNeverReplaced) {
  DataLink link;
  bind(link);
  cache.ReloadImages(link);
  EXPECT_EQ(cache.FindImage(u"KR"), nullptr);
  const BitmapRef first = cache.FindImage(u"kr");
  images->keys["kr"] = images->keys["KR"] = {1, 1, {0xFFFFFFFF}};
  cache.ReloadCellImage(columns, link, 1, 1);
  cache.ReloadCellImage(columns, link, 2, 6);  // another column
  cache.ReloadCellImage(columns, link, 1, 4);  // a summary row
  EXPECT_EQ(cache.FindImage(u"kr"), first);
  EXPECT_EQ(cache.FindImage(u"KR"), nullptr);
  cache.ReloadCellImage(columns, link, 1, 6);  // there was none: asked again
  EXPECT_NE(cache.FindImage(u"KR"), nullptr);
}

TEST_F(ImageCacheTest, NeedsBothComponents) {
  DataLink link;
  link.bindImageSet(client, &site, u"flags");
  cache.ReloadImages(link);
  EXPECT_EQ(cache.FindImage(u"kr"), nullptr);
  EXPECT_EQ(images->asked, "");
}

}  // namespace
}  // namespace tessera
