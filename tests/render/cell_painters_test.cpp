#include <tuple>

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
  // The cell's own lines: what a paint does behind its background.
  Lines cellLines() {
    Lines lines = paintFrom("fill 0,0,");
    if (!lines.empty()) lines.erase(lines.begin());
    return lines;
  }
  void focusFirstRow() {
    focus.FocusRow = rows.first();
    focus.FocusColumn = config.columns.head();
  }

  ColumnRecord& column;
};

TEST_F(CellPainters, PlainCell) {
  show(u"abc");
  EXPECT_EQ(cellLines(), (Lines{"fill 0,0,100,20 ffffff", "text 3,3,97,17 at 40,3 000000 \"abc\""}));
}

TEST_F(CellPainters, FocusCellKeepsRoomForItsButton) {
  const struct {
    CellKind kind;
    EditKind edit;
    const char16_t* editable;
    bool focused;
    bool room;
  } cases[] = {
      {CellKind::None, EditKind::Plain, u"true", true, false},
      {CellKind::Edit, EditKind::Plain, u"true", true, false},
      {CellKind::Edit, EditKind::Popup, u"true", true, true},
      {CellKind::Edit, EditKind::Popup, u"false", true, true},
      {CellKind::Edit, EditKind::PopupFix, u"true", true, true},
      {CellKind::Edit, EditKind::Popup, u"true", false, false},
      {CellKind::Combo, EditKind::Plain, u"true", true, true},
      {CellKind::Combo, EditKind::Plain, u"FALSE", true, false},
      {CellKind::Combo, EditKind::Plain, u"true", false, false},
      {CellKind::Lookup, EditKind::Plain, u"true", true, true},
  };
  auto lookup = std::make_shared<FakeDataSet>(std::vector<XString>{u"K"},
                                              std::vector<std::vector<const char16_t*>>{{u"abc"}});
  for (const auto& test : cases) {
    show(u"abc");
    column.child.type = test.kind;
    column.child.subType = test.edit;
    column.child.editable = test.editable;
    column.child.comboItems.removeAll();
    column.child.comboItems.addTail({u"abc", u"abc"});
    column.child.lookupDataset = lookup;
    column.child.lookupCode = column.child.lookupText = u"K";
    focus.forget();
    if (test.focused) focusFirstRow();
    EXPECT_EQ(paintOnly("text"), (Lines{test.room ? "text 3,3,77,17 at 30,3 000000 \"abc\""
                                                  : "text 3,3,97,17 at 40,3 000000 \"abc\""}))
        << static_cast<int>(test.kind) << " " << static_cast<int>(test.edit) << " " << test.focused;
  }
}

TEST_F(CellPainters, PasswordIsMaskedBehindItsFormat) {
  show(u"1234");
  column.child.type = CellKind::Edit;
  column.child.inputType = input_type::password | input_type::numeric;
  column.view.displayFormat = u"XX-XX";
  EXPECT_EQ(paintOnly("text"), (Lines{"text 3,3,97,17 at 33,3 000000 \"*****\""}));
  column.child.inputType = input_type::numeric;
  EXPECT_EQ(paintOnly("text"), (Lines{"text 3,3,97,17 at 33,3 000000 \"12-34\""}));
}

TEST_F(CellPainters, MarkFollowsTheValue) {
  const struct {
    const char16_t* value;
    bool on;
  } cases[] = {{u"0", false}, {u"00", false}, {u"0x", false}, {u"F", false}, {u"f", false}, {u"false", true},
               {u"", true},   {u"1", true},   {u"T", true},   {u"FF", true}, {u" 0", true}};
  for (const auto& test : cases) {
    show(test.value);
    column.child.type = CellKind::Check;
    EXPECT_EQ(paintOnly("keyed"), (Lines{std::string("keyed 43,3,57,17 ") +
                                         (test.on ? "glyph224" : "glyph223") + " 0,0,14,14 00ff00"}))
        << XString(test.value).toUtf8();
    column.child.type = CellKind::Radio;
    EXPECT_EQ(paintOnly("keyed"), (Lines{std::string("keyed 43,3,57,17 ") +
                                         (test.on ? "glyph226" : "glyph227") + " 0,0,14,14 00ff00"}))
        << XString(test.value).toUtf8();
  }
}

TEST_F(CellPainters, MarkAndLabelShareTheCell) {
  const struct {
    std::int32_t align;
    const char16_t* label;
    Lines expected;
  } cases[] = {
      {align::full, u"", {"fill 3,3,17,17 ffffff"}},
      {align::centerCenter, u"yes", {"text 20,3,97,17 at 20,3 000000 \"yes\"", "fill 3,3,17,17 ffffff"}},
      {align::right | align::middle,
       u"yes",
       {"text 3,3,80,17 at 59,3 000000 \"yes\"", "fill 83,3,97,17 ffffff"}},
  };
  for (const auto& test : cases) {
    show(u"1", test.label);
    column.child.type = CellKind::Radio;
    column.child.radioText = u"L";
    column.view.align = test.align;
    Lines lines = cellLines();
    lines.erase(lines.begin());
    lines.pop_back();
    EXPECT_EQ(lines, test.expected) << test.align;
  }
}

TEST_F(CellPainters, GroundOfTheMark) {
  const struct {
    CellKind kind;
    bool enable;
    const char16_t* editable;
    const char* expected;
  } cases[] = {
      {CellKind::Check, true, u"true", "fill 43,3,57,17 ffffff"},
      {CellKind::Check, false, u"true", "fill 43,3,57,17 d4d0c8"},
      {CellKind::Check, true, u"false", "fill 43,3,57,17 d4d0c8"},
      {CellKind::Radio, false, u"false", "fill 43,3,57,17 ffffff"},
  };
  show(u"1");
  for (const auto& test : cases) {
    column.child.type = test.kind;
    settings.Enable = test.enable;
    column.child.editable = test.editable;
    EXPECT_EQ(paintOnly("fill 43"), (Lines{test.expected}));
  }
}

TEST_F(CellPainters, ImageIsPlacedOrStretched) {
  auto pictures = std::make_shared<FakeImageSet>();
  pictures->add("p", 10, 8);
  bindTo(link, std::shared_ptr<ImageSetControl>(pictures));
  column.child.type = CellKind::Image;
  bind({u"V"}, {{u"p"}, {u"missing"}, {u"p"}});
  images.ReloadImages(link);
  EXPECT_EQ(cellLines(),
            (Lines{"blend 0,0,100,20 ffffff 204", "blit 45,6,55,14 10x8 0,0", "blend 0,20,100,40 ffffff 204",
                   "blend 0,40,100,60 ffffff 204", "blit 45,46,55,54 10x8 0,0"}));
  column.view.align = align::full;
  EXPECT_EQ(cellLines(),
            (Lines{"stretch 0,0,100,20 10x8", "blend 0,20,100,40 ffffff 204", "stretch 0,40,100,60 10x8"}));
  // A value that is no text ends the column.
  data->rows[1].values[0].setInt(7);
  EXPECT_EQ(cellLines(), (Lines{"stretch 0,0,100,20 10x8"}));
}

TEST_F(CellPainters, BarGrowsFromItsSide) {
  const struct {
    std::int32_t barAlign;
    const char16_t* value;
    Lines expected;
  } cases[] = {
      {align::left, u"50", {"copy 3,3,50,17 from 400x100 3,3"}},
      {align::right, u"50", {"copy 50,3,97,17 from 400x100 50,3"}},
      {align::top, u"50", {"copy 3,3,97,10 from 400x100 3,3"}},
      {align::bottom, u"50", {"copy 3,10,97,17 from 400x100 3,10"}},
      {align::left, u"33", {"copy 3,3,34,17 from 400x100 3,3"}},
      {align::left, u"33.9 per cent", {"copy 3,3,34,17 from 400x100 3,3"}},
      {align::left, u"150", {"copy 3,3,97,17 from 400x100 3,3"}},
      {align::left, u"0", {}},
      {align::left, u"-5", {}},
      {align::left, u"none", {}},
      {0, u"50", {}},
      {align::middle, u"50", {}},
      {align::left | align::right, u"50", {}},
  };
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

TEST_F(CellPainters, TextChangesItsColourUnderTheBar) {
  show(u"50", u"half");
  column.child.type = CellKind::Bar;
  column.child.barMin = 0;
  column.child.barAlign = align::left;
  EXPECT_EQ(cellLines(),
            (Lines{"fill 0,0,100,20 ffffff", "text 3,3,97,17 at 43,3 000000 \"50\"",
                   "surface fill 0,0,100,20 ff0000", "surface text 3,3,97,17 at 43,3 ffffff \"50\"",
                   "copy 3,3,50,17 from 400x100 3,3"}));
  column.child.barText = u"L";
  EXPECT_EQ(paintOnly("surface text"), (Lines{"surface text 3,3,97,17 at 36,3 ffffff \"half\""}));
}

TEST_F(CellPainters, BarIsSolidOverABackgroundImage) {
  show(u"50");
  column.child.type = CellKind::Bar;
  column.child.barMin = 0;
  column.child.barAlign = align::left;
  column.view.imageMode = image_mode::blended;
  EXPECT_EQ(paintOnly("surface"),
            (Lines{"surface fill 0,0,100,20 ff0000", "surface text 3,3,97,17 at 43,3 ffffff \"50\""}));
  EXPECT_EQ(canvas.linesOf("blend"), (Lines{"blend 0,0,100,20 ffffff 204"}));
}

TEST_F(CellPainters, BarKeepsOutOfTheFixedZone) {
  column.child.type = CellKind::Bar;
  column.child.barMin = 0;
  column.child.barAlign = align::left;
  addColumn(u"F").header.fix = true;
  config.columns.tail()->value().header.rect = {0, 0, 30, 20};
  show(u"100");
  EXPECT_EQ(paintOnly("copy"), (Lines{"copy 30,3,97,17 from 400x100 30,3"}));
}

}  // namespace
}  // namespace tessera
