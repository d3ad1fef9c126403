#include "binding/image_cache.h"

#include <gtest/gtest.h>

#include "tests/binding/fake_host.h"

namespace tessera {
namespace {

using namespace test;

// One column FLAG whose values are given; "#" in front makes a summary row.
class FlagDataSet : public FakeDataSet {
 public:
  FlagDataSet(std::vector<std::u16string> values) : FakeDataSet(u"orders"), values_(std::move(values)) {}
  void GetColumnName(std::int32_t column, XString& name) override { name = column == 1 ? u"FLAG" : u"OTHER"; }
  void GetLevel(std::int32_t row, std::int32_t& level) override { level = at(row).starts_with(u'#') ? 1 : 0; }
  void GetText(std::int32_t row, std::int32_t, XString& text) override { text.assign(at(row)); }

 private:
  std::u16string& at(std::int32_t row) { return values_[static_cast<std::size_t>(row - 1)]; }

  std::vector<std::u16string> values_;
};

class ImageCacheTest : public ::testing::Test {
 protected:
  ImageCacheTest() {
    images->pictures["kr"] = {1, 1, {0xFF112233}};
    images->pictures["de"] = {2, 1, {0xFF000000, 0x7FFFFFFF}};
    images->pictures["bad"] = {5, 5, {0}};
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

  std::shared_ptr<FlagDataSet> data =
      std::make_shared<FlagDataSet>(std::vector<std::u16string>{u"kr", u"#KR", u"KR"});
  std::shared_ptr<FakeImageSet> images = std::make_shared<FakeImageSet>(u"flags");
  FakeEnumeration page;
  FakeSite site{&page};
  QuietClient client;
  ColumnList columns;
  ImageCache cache;
};

TEST_F(ImageCacheTest, AsksForEachKeyThatIsLookedForOnce) {
  DataLink link;
  link.bindImageSet(client, &site, u"flags");
  cache.ReloadImages(link);
  EXPECT_EQ(cache.FindImage(u"kr"), nullptr) << "without a data set";
  bind(link);
  cache.ReloadImages(link);
  EXPECT_EQ(images->asked, "");
  for (int times = 0; times < 2; ++times) {
    ASSERT_NE(cache.FindImage(u"kr"), nullptr);
    EXPECT_EQ(cache.FindImage(u"kr")->at(0, 0), 0xFF112233u);
    EXPECT_FALSE(cache.FindImage(u"kr")->translucent);
    EXPECT_TRUE(cache.FindImage(u"de")->translucent);
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
  images->pictures["kr"] = images->pictures["KR"] = {1, 1, {0xFFFFFFFF}};
  cache.ReloadCellImage(columns, link, 1, 1);
  cache.ReloadCellImage(columns, link, 2, 3);  // another column
  cache.ReloadCellImage(columns, link, 1, 2);  // a summary row
  EXPECT_EQ(cache.FindImage(u"kr"), first);
  EXPECT_EQ(cache.FindImage(u"KR"), nullptr);
  cache.ReloadCellImage(columns, link, 1, 3);  // there was none: asked again
  EXPECT_NE(cache.FindImage(u"KR"), nullptr);
}

}  // namespace
}  // namespace tessera
