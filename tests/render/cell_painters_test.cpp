#include "render/paint_fixture.h"
#include "support/fake_image_set.h"

namespace tessera {
namespace {

// One column without a border at (0, 0), 100 by 20, and no header.
class CellPainters : public PaintFixture {
 protected:
  CellPainters() : column(addColumn(u"V")) {
    settings.ViewHeader = false;
    settings.FocusRect = false;
    settings.SelectedColorRate = 0;
    column.view.borderStyle = border::none;
    config.background.backColor = rgb(0, 0, 9);  // not the cells' colour, so that they fill themselves
  }

  void show(const char16_t* value, const char16_t* other = u"") { bind({u"V", u"L"}, {{value, other}}); }

  ColumnRecord& column;
};

TEST_F(CellPainters, MarkFollowsTheValue) {
  const std::pair<const char16_t*, bool> cases[] = {{u"00", false},   {u"0x", false}, {u"f", false},
                                                    {u"false", true}, {u"", true},    {u"1", true},
                                                    {u"T", true},     {u" 0", true}};
  for (const auto& [value, on] : cases) {
    show(value);
    column.child.type = CellKind::Check;
    EXPECT_EQ(paintOnly("keyed")[0].substr(17, 8), on ? "glyph224" : "glyph223") << XString(value).toUtf8();
    column.child.type = CellKind::Radio;
    EXPECT_EQ(paintOnly("keyed")[0].substr(17, 8), on ? "glyph226" : "glyph227") << XString(value).toUtf8();
  }
}

TEST_F(CellPainters, AValueThatIsNoTextEndsTheImages) {
  auto pictures = std::make_shared<FakeImageSet>();
  pictures->add("p", 10, 8);
  bindTo(link, std::shared_ptr<ImageSetControl>(pictures));
  column.child.type = CellKind::Image;
  bind({u"V"}, {{u"p"}, {u"missing"}, {u"p"}});
  images.ReloadImages(link);
  EXPECT_EQ(paintOnly("blit").size(), 2u);
  data->rows[1].values[0].setInt(7);
  EXPECT_EQ(paintOnly("blit"), (Lines{"blit 45,6,55,14 10x8 0,0"}));
}

TEST_F(CellPainters, BarGrowsFromItsSide) {
  const struct {
    std::int32_t barAlign;
    const char16_t* value;
    Lines expected;
  } cases[] = {{align::right, u"50", {"copy 50,3,97,17 from 400x100 50,3"}},
               {align::top, u"50", {"copy 3,3,97,10 from 400x100 3,3"}},
               {align::left, u"33.9 per cent", {"copy 3,3,34,17 from 400x100 3,3"}},
               {align::left, u"150", {"copy 3,3,97,17 from 400x100 3,3"}},
               {align::left, u"0", {}},
               {align::left, u"-5", {}},
               {align::middle, u"50", {}},
               {align::left | align::right, u"50", {}}};
  column.child.type = CellKind::Bar;
  column.child.barMin = 0;
  for (const auto& test : cases) {
    show(test.value);
    column.child.barAlign = test.barAlign;
    EXPECT_EQ(paintOnly("copy"), test.expected) << test.barAlign << " " << XString(test.value).toUtf8();
  }
  show(u"50");
  column.child.barAlign = align::left;
  for (const auto& [low, high] : {std::pair{100, 0}, {100, 100}, {50, 100}}) {
    column.child.barMin = low;
    column.child.barMax = high;
    EXPECT_EQ(paintOnly("copy"), Lines{}) << low;
  }
}

TEST_F(CellPainters, TextChangesItsColourUnderTheBarThatIsSolid) {
  show(u"50", u"half");
  column.child.type = CellKind::Bar;
  column.child.barMin = 0;
  column.child.barAlign = align::left;
  column.child.barText = u"L";
  column.view.imageMode = image_mode::blended;
  EXPECT_EQ(paintOnly("surface"),
            (Lines{"surface fill 0,0,100,20 ff0000", "surface text 3,3,97,17 at 36,3 ffffff \"half\""}));
  EXPECT_EQ(canvas.linesOf("blend"), (Lines{"blend 0,0,100,20 ffffff 204"}));
}

}  // namespace
}  // namespace tessera
