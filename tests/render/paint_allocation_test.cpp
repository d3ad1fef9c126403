#include "render/paint_fixture.h"
#include "rows/suppress.h"
#include "shared/counted_memory.h"

namespace tessera {
namespace {

// Takes every call and does nothing.
class BlankCanvas : public Canvas {
 public:
  Size size() const override { return {400, 100}; }
  void fill(const Rect&, ColorRef) override {}
  void blend(const Rect&, ColorRef, std::uint8_t) override {}
  void blit(const Rect&, const Bitmap&, std::int32_t, std::int32_t) override {}
  void stretch(const Rect&, const Bitmap&) override {}
  void blitKeyed(const Rect&, const Bitmap&, const Rect&, ColorRef) override {}
  void polyline(std::span<const Point>, ColorRef, std::int32_t) override {}
  void edge(const Rect&, Edge) override {}
  void focusRect(const Rect&) override {}
  Size textExtent(const LogFont&, std::u16string_view text) override {
    return {static_cast<std::int32_t>(text.size()), 10};
  }
  void text(const Rect&, std::int32_t, std::int32_t, const LogFont&, ColorRef, std::u16string_view) override {
    ++texts;
  }
  std::unique_ptr<Canvas> createSurface(Size) override { return std::make_unique<BlankCanvas>(); }
  bool isLike(const Canvas&) const override { return true; }
  void blitSurface(const Rect&, const Canvas&, std::int32_t, std::int32_t) override {}

  int texts = 0;
};

class WarmPaint : public PaintFixture {};

TEST_F(WarmPaint, AllocatesNothing) {
  config.indicator.width = 20;
  config.indicator.indexNumber = true;
  settings.ViewSummary = SummaryBand::Bottom;
  client = {2000, 1000};
  for (const CellKind kind : {CellKind::None, CellKind::Edit, CellKind::Combo, CellKind::Lookup,
                              CellKind::Check, CellKind::Image, CellKind::Radio, CellKind::Bar}) {
    ColumnRecord& column = addColumn(u"V");
    column.child.type = kind;
    column.child.checkText = column.child.radioText = column.child.barText = u"W";
    column.child.barMin = 0;
    column.child.barAlign = align::left;
    column.child.inputType = input_type::password;
    column.child.comboItems.addTail({u"a long enough text", u"30"});
    column.view.displayFormat = u"<XXXXXXXXXXXXXXXXXXXXXXXX>";
    column.header.text = u"two;lines";
    column.summary.text = u"a summary";
    column.suppressRefs.addTail({u"V"});
  }
  bind({u"V", u"W"},
       {{u"10", u"label"}, {u"30", u"a longer label"}, {u"30", u"x"}, {u"999999", u"some text"}});
  ResolveSuppress(config.columns, link);
  focus.CellMode = false;
  select({4, 2});
  metrics.measureHeights(config.columns);
  const GridFrame frame = frameOf(config, settings, metrics, &client);
  const PaintModel model{config, settings, frame, page, focus, rows, link, images, eval};

  BlankCanvas blank;
  pipeline.paint(blank, model);
  pipeline.paint(blank, model);
  const int texts = blank.texts;
  const std::int64_t before = test::allocationCount();
  ASSERT_TRUE(pipeline.paint(blank, model).painted);
  EXPECT_EQ(test::allocationCount() - before, 0);
  EXPECT_EQ(blank.texts, texts / 2 * 3);
  EXPECT_GT(texts, 40);
}

}  // namespace
}  // namespace tessera
