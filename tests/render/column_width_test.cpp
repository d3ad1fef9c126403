#include "render/column_width.h"

#include "render/paint_fixture.h"
#include "support/fake_image_set.h"

namespace tessera {
namespace {

class ColumnWidth : public PaintFixture {
 protected:
  ColumnWidth() : column(addColumn(u"V")) {
    column.view.leftMargin = 10;
    column.view.rightMargin = 5;
    column.summary.text = u"a long summary";
  }
  std::int32_t width(bool includeSummary = false) {
    TextScratch scratch;
    return measureColumnWidth(canvas, {link, eval, scratch}, images, column, includeSummary);
  }
  ColumnRecord& column;
};

TEST_F(ColumnWidth, WidestTextWithMargins) {
  EXPECT_EQ(width(), 0);
  bind({u"V"}, {{u"ab"}, {u"abcd"}, {u""}});
  EXPECT_EQ(width(), 4 * 7 + 15);
  EXPECT_EQ(width(true), 14 * 7 + 6);
  column.view.displayFormat = u"<XXXXXX>";
  EXPECT_EQ(width(), 6 * 7 + 15);
}

TEST_F(ColumnWidth, GroupRowsBringTheirMargins) {
  bind({u"V"}, {{u"ab"}, {u"abcdefgh"}});
  data->rows[1].level = 2;
  EXPECT_EQ(width(), 2 * 7 + 15);  // no group cell: no text either
  GroupCell group;
  group.level = 2;
  group.leftMargin = 100;
  column.groups.addTail(group);
  EXPECT_EQ(width(), 8 * 7 + 103);
}

TEST_F(ColumnWidth, MarksAndPictures) {
  bind({u"V", u"L"}, {{u"a long text", u"abc"}, {u"0", u"abcd"}});
  column.child.type = CellKind::Check;
  EXPECT_EQ(width(), 14 + 3 + 15);
  column.child.checkText = u"L";
  EXPECT_EQ(width(), 14 + 3 + 28 + 15);
  column.child.type = CellKind::Radio;
  EXPECT_EQ(width(), 14 + 3 + 15);

  auto pictures = std::make_shared<FakeImageSet>();
  pictures->add("p", 40, 8);
  bindTo(link, std::shared_ptr<ImageSetControl>(pictures));
  column.child.type = CellKind::Image;
  bind({u"V"}, {{u"missing"}});
  EXPECT_EQ(width(), 15);
  data->rows[0].values[0].setInt(1);
  EXPECT_EQ(width(), 0);
  bind({u"V"}, {{u"p"}, {u"missing"}});
  images.ReloadImages(link);
  EXPECT_EQ(width(), 40 + 15);
}

}  // namespace
}  // namespace tessera
