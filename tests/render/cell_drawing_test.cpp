#include "cells/cell_drawing.h"

#include "cells/glyphs.h"
#include "render/paint_fixture.h"

namespace tessera {
namespace {

class CellDrawing : public ::testing::Test {
 protected:
  CellDrawing() {
    style.borderStyle = border::none;
    canvas.name(glyphBitmap(Glyph::SortUp), "up");
    canvas.name(*picture, "pic");
    canvas.name(*large, "large");
  }

  Lines cell(const Rect& rect, std::u16string_view text, std::int32_t clipLeft = 0) {
    canvas.clear();
    drawCell({canvas, eval}, DrawStyle(style), rect, text, clipLeft);
    return canvas.lines();
  }
  Lines header(const Rect& rect, std::u16string_view text, std::int32_t clipLeft = 0) {
    canvas.clear();
    drawHeaderText({canvas, eval}, DrawStyle(style), rect, text, clipLeft);
    return canvas.linesOf("text");
  }

  RecordingCanvas canvas{{200, 100}};
  EvalState eval;
  CellStyle style;
  BitmapRef picture = std::make_shared<Bitmap>(10, 8);
  BitmapRef large = std::make_shared<Bitmap>(200, 50);
};

constexpr Rect usual{10, 20, 110, 40};

TEST_F(CellDrawing, ClipLeftCutsTheBackgroundAndOnlyClipsTheText) {
  const Lines whole{"fill 10,20,110,40 ffffff", "text 13,23,107,37 at 50,23 000000 \"abc\""};
  EXPECT_EQ(cell(usual, u"abc", 10), whole);
  EXPECT_EQ(cell(usual, u"abc", 30),
            (Lines{"fill 30,20,110,40 ffffff", "text 32,23,107,37 at 50,23 000000 \"abc\""}));
  EXPECT_EQ(cell(usual, u"abc", 106), (Lines{"fill 106,20,110,40 ffffff"}));
  EXPECT_EQ(cell(usual, u"abc", 110), Lines{});
  EXPECT_EQ(cell({10, 20, 10, 40}, u"abc"), Lines{});
  EXPECT_EQ(cell({10, 20, 110, 20}, u"abc"), Lines{});
  EXPECT_EQ(cell(usual, u""), (Lines{"fill 10,20,110,40 ffffff"}));
}

// Of several bits the first in the order of the edges counts; a line that is cut has no left side.
TEST_F(CellDrawing, Borders) {
  const struct {
    std::int32_t borderStyle, clipLeft;
    const char* expected;
  } cases[] = {{1, 0, "line 9,19 109,19 109,39 9,39 9,19 808080 1"},
               {1, 10, "line 9,19 109,19 109,39 9,39 9,19 808080 1"},
               {1, 11, "line 11,19 109,19 109,39 11,39 808080 1"},
               {3, 0, "line 9,19 109,19 109,39 9,39 9,19 808080 1"},
               {4, 30, "edge 30,20,110,40 sunken inner"},
               {6, 0, "edge 10,20,110,40 raised inner"},
               {24, 0, "edge 10,20,110,40 raised outer"}};
  for (const auto& test : cases) {
    style.borderStyle = test.borderStyle;
    EXPECT_EQ(cell(usual, u"", test.clipLeft).back(), test.expected) << test.borderStyle;
  }
  style.borderStyle = border::line;
  EXPECT_EQ(cell({0, 0, 50, 20}, u"").back(), "line 0,0 49,0 49,19 0,19 0,0 808080 1");
}

TEST_F(CellDrawing, Images) {
  const struct {
    std::uint32_t mode;
    std::int32_t align;
    BitmapRef image;
    Lines expected;
  } cases[] = {
      {1, 18, picture, {"blend 10,20,110,40 ffffff 204", "blit 55,26,65,34 pic 0,0"}},
      {1, 36, picture, {"blend 10,20,110,40 ffffff 204", "blit 100,32,110,40 pic 0,0"}},
      {9, 18, picture, {"fill 10,20,110,40 ffffff", "keyed 55,26,65,34 pic 0,0,10,8 112233"}},
      {2, 18, picture, {"stretch 10,20,110,40 pic"}},
      {10, 18, picture, {"keyed 10,20,110,40 pic 0,0,10,8 112233"}},
      {1, 18, large, {"blend 10,20,110,40 ffffff 204", "blit 10,20,110,40 large 50,15"}},
      {1, 36, large, {"blend 10,20,110,40 ffffff 204", "blit 10,20,110,40 large 100,30"}},
      {9, 18, large, {"fill 10,20,110,40 ffffff", "keyed 10,20,110,40 large 50,15,150,35 112233"}},
      {2, 18, nullptr, {}},
  };
  style.transparentColor = rgb(0x11, 0x22, 0x33);
  for (const auto& test : cases) {
    style.imageMode = test.mode;
    style.align = test.align;
    style.imageHandle = test.image;
    EXPECT_EQ(cell(usual, u""), test.expected) << "mode " << test.mode << " align " << test.align;
  }
  style.imageMode = 10;
  style.imageHandle = picture;
  style.transparentColor = noColor;
  EXPECT_EQ(cell(usual, u""), (Lines{"keyed 10,20,110,40 pic 0,0,10,8 none"}));
  style.imageMode = 4;
  for (const auto& [rate, alpha] : {std::pair{0, "255"}, {100, "0"}, {50, "127"}, {99, "2"}}) {
    style.alphaRate = rate;
    EXPECT_EQ(cell(usual, u""), (Lines{std::string("blend 10,20,110,40 ffffff ") + alpha}));
  }
}

TEST_F(CellDrawing, ExpressionsGoBeforeStoredFields) {
  const FakeProgram color([](EvalState& state, XValue& value) {
    value.setInt(state.ExprRow);
    return state.ExprRow > 0;
  });
  const FakeProgram points([](EvalState&, XValue& value) {
    value.setInt(18);
    return true;
  });
  style.borderStyle = border::line;
  style.setDynamic(DynamicSlot::TextColor, &color);
  style.setDynamic(DynamicSlot::BackColor, &color);
  style.setDynamic(DynamicSlot::BorderColor, &color);
  style.setDynamic(DynamicSlot::FontSize, &points);
  eval.ExprRow = 0x0000FE;
  EXPECT_EQ(cell(usual, u"abc"),
            (Lines{"fill 10,20,110,40 fe0000", "line 9,19 109,19 109,39 9,39 9,19 fe0000 1",
                   "text 13,23,107,37 at 50,23 fe0000 -24 \"abc\""}));
  // A run that fails leaves the stored colours; a blended fill takes them always.
  eval.ExprRow = 0;
  EXPECT_EQ(cell(usual, u"")[0], "fill 10,20,110,40 ffffff");
  eval.ExprRow = 0x0000FE;
  style.imageMode = image_mode::blended;
  EXPECT_EQ(cell(usual, u"")[0], "blend 10,20,110,40 ffffff 204");
  style.imageMode = image_mode::placed;
  EXPECT_EQ(cell(usual, u"")[0], "blend 10,20,110,40 fe0000 204");
}

// Counts the units that are measured.
class MeasuringCanvas : public RecordingCanvas {
 public:
  using RecordingCanvas::RecordingCanvas;
  Size textExtent(const LogFont& font, std::u16string_view text) override {
    measured += text.size();
    return RecordingCanvas::textExtent(font, text);
  }
  std::size_t measured = 0;
};

TEST_F(CellDrawing, MeasuresOnlyWhatStandsByItsWidth) {
  const struct {
    std::int32_t align;
    std::int32_t sortMark;
    std::size_t cell, header;  // units measured of "abc;de"
  } cases[] = {{align::left | align::middle, 0, 0, 0},
               {align::full, 0, 0, 0},
               {align::left | align::middle, 1, 6, 6},
               {align::centerCenter, 0, 6, 11},
               {align::right | align::middle, 0, 6, 11}};
  for (const auto& test : cases) {
    MeasuringCanvas measuring({200, 100});
    style.align = test.align;
    style.sortMark = test.sortMark;
    style.sortBitmapUp = Glyph::SortUp;
    drawCell({measuring, eval}, DrawStyle(style), usual, u"abc;de", 0);
    EXPECT_EQ(measuring.measured, test.cell) << test.align;
    measuring.measured = 0;
    drawHeaderText({measuring, eval}, DrawStyle(style), usual, u"abc;de", 0);
    EXPECT_EQ(measuring.measured, test.header) << test.align;
  }
}

TEST_F(CellDrawing, SemicolonBreaksHeaderLinesOnly) {
  EXPECT_EQ(cell(usual, u"A;B")[1], "text 13,23,107,37 at 50,23 000000 \"A;B\"");
  const struct {
    std::int32_t bottom;
    const char16_t* text;
    Lines expected;
  } cases[] = {
      // A low band shows the bottom of the first line and the top of the second.
      {20, u"A;B", {"text 3,3,97,10 at 47,-4 000000 \"A\"", "text 3,10,97,20 at 47,10 000000 \"B\""}},
      // An empty second line counts, an empty first one does not; its place comes from the whole caption.
      {60, u"A;", {"text 3,3,97,30 at 47,16 000000 \"A\""}},
      {60, u";B", {"text 3,3,97,37 at 43,23 000000 \"B\""}}};
  for (const auto& test : cases) EXPECT_EQ(header({0, 0, 100, test.bottom}, test.text), test.expected);
  EXPECT_EQ(header({0, 0, 100, 60}, u"A;BCD", 20),
            (Lines{"text 22,3,97,30 at 47,16 000000 \"A\"", "text 22,30,97,44 at 40,30 000000 \"BCD\""}));
}

TEST_F(CellDrawing, SortGlyphStandsBehindTheText) {
  style.sortMark = 1;
  style.sortBitmapUp = Glyph::SortUp;
  const struct {
    Rect rect;
    const char16_t* text;
    std::int32_t clipLeft;
    Lines expected;
  } cases[] = {{{0, 0, 100, 20},
                u"abcdefghijklmn",
                0,
                {"keyed 90,7,98,14 up 0,0,8,7 00ff00", "text 3,3,88,17 at 1,3 000000 \"abcdefghijklmn\""}},
               {{0, 0, 10, 20}, u"abc", 0, {"keyed 2,7,8,14 up 0,0,8,7 00ff00"}},
               {{0, 0, 100, 6}, u"abc", 0, {}},
               {{0, 0, 100, 20}, u"", 0, {}},
               {{0, 0, 100, 20},
                u"abc",
                75,
                {"keyed 75,7,79,14 up 4,0,8,7 00ff00", "text 77,3,97,17 at 40,3 000000 \"abc\""}}};
  for (const auto& test : cases) {
    Lines lines = cell(test.rect, test.text, test.clipLeft);
    lines.erase(lines.begin());
    EXPECT_EQ(lines, test.expected) << XString(test.text).toUtf8();
  }
  style.sortMark = 2;
  style.sortBitmapDown = Glyph::SortDown;
  canvas.name(glyphBitmap(Glyph::SortDown), "down");
  EXPECT_EQ(cell({0, 0, 100, 20}, u"abc")[1], "keyed 71,7,79,14 down 0,0,8,7 00ff00");
}

TEST_F(CellDrawing, HostileRectanglesAreSurvived) {
  constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
  style.borderStyle = border::line;
  style.sortMark = 1;
  style.sortBitmapUp = Glyph::SortUp;
  style.imageHandle = picture;
  for (const std::uint32_t mode : {0u, 1u, 2u, 4u, 9u, 10u}) {
    style.imageMode = mode;
    for (const std::int32_t place : {18, 9, 36, 0}) {
      style.align = place;
      for (const std::int32_t margin : {3, least, most}) {
        style.leftMargin = style.rightMargin = style.topMargin = style.bottomMargin = margin;
        cell({least, least, most, most}, u"abc", 0);
        header({least, least, most, most}, u"abc;d", most);
        cell({most - 1, most - 1, most, most}, u"abc", least);
        cell({most, most, least, least}, u"abc", 0);
      }
    }
  }
}

}  // namespace
}  // namespace tessera
