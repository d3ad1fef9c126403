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

TEST_F(CellDrawing, TextIsPlacedByAlign) {
  const struct {
    std::int32_t align;
    Rect rect;
    const char* expected;
  } cases[] = {
      {18, usual, "text 13,23,107,37 at 50,23 000000 \"abc\""},
      {17, usual, "text 13,23,107,37 at 13,23 000000 \"abc\""},
      {20, usual, "text 13,23,107,37 at 86,23 000000 \"abc\""},
      {9, {10, 20, 110, 60}, "text 13,23,107,57 at 13,23 000000 \"abc\""},
      {33, {10, 20, 110, 60}, "text 13,23,107,57 at 13,43 000000 \"abc\""},
      {18, {10, 20, 110, 60}, "text 13,23,107,57 at 50,33 000000 \"abc\""},
      {align::full, {10, 20, 110, 60}, "text 13,23,107,57 at 13,23 000000 \"abc\""},
      {align::fullWord, {10, 20, 110, 60}, "text 13,23,107,57 at 50,23 000000 \"abc\""},
      // Wider than the cell: the middle shows.
      {18, {10, 20, 30, 40}, "text 13,23,27,37 at 10,23 000000 \"abc\""},
  };
  for (const auto& test : cases) {
    style.align = test.align;
    const Lines lines = cell(test.rect, u"abc");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1], test.expected);
  }
}

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

TEST_F(CellDrawing, MarginsMakeTheTextArea) {
  style.leftMargin = 10;
  style.topMargin = 1;
  style.rightMargin = 20;
  style.bottomMargin = 5;
  style.align = align::right | align::bottom;
  EXPECT_EQ(cell(usual, u"abc")[1], "text 20,21,90,35 at 69,21 000000 \"abc\"");
  style.leftMargin = 90;
  EXPECT_EQ(cell(usual, u"abc").size(), 1u);
}

TEST_F(CellDrawing, Borders) {
  const struct {
    std::int32_t borderStyle;
    Rect rect;
    std::int32_t clipLeft;
    Lines expected;
  } cases[] = {
      {0, usual, 0, {}},
      {1, usual, 0, {"line 9,19 109,19 109,39 9,39 9,19 808080 1"}},
      {1, {0, 0, 50, 20}, 0, {"line 0,0 49,0 49,19 0,19 0,0 808080 1"}},
      {1, usual, 30, {"line 30,19 109,19 109,39 30,39 808080 1"}},
      {1, usual, 10, {"line 9,19 109,19 109,39 9,39 9,19 808080 1"}},
      {1, usual, 11, {"line 11,19 109,19 109,39 11,39 808080 1"}},
      {3, usual, 0, {"line 9,19 109,19 109,39 9,39 9,19 808080 1"}},
      {2, usual, 0, {"edge 10,20,110,40 raised inner"}},
      {4, usual, 30, {"edge 30,20,110,40 sunken inner"}},
      {8, usual, 0, {"edge 10,20,110,40 raised outer"}},
      {16, usual, 0, {"edge 10,20,110,40 sunken outer"}},
      {6, usual, 0, {"edge 10,20,110,40 raised inner"}},
      {24, usual, 0, {"edge 10,20,110,40 raised outer"}},
  };
  for (const auto& test : cases) {
    style.borderStyle = test.borderStyle;
    Lines lines = cell(test.rect, u"", test.clipLeft);
    lines.erase(lines.begin());
    EXPECT_EQ(lines, test.expected) << test.borderStyle;
  }
}

TEST_F(CellDrawing, Images) {
  const struct {
    std::uint32_t mode;
    std::int32_t align;
    BitmapRef image;
    Lines expected;
  } cases[] = {
      {1, 18, picture, {"blend 10,20,110,40 ffffff 204", "blit 55,26,65,34 pic 0,0"}},
      {1, 9, picture, {"blend 10,20,110,40 ffffff 204", "blit 10,20,20,28 pic 0,0"}},
      {1, 36, picture, {"blend 10,20,110,40 ffffff 204", "blit 100,32,110,40 pic 0,0"}},
      {9, 18, picture, {"fill 10,20,110,40 ffffff", "keyed 55,26,65,34 pic 0,0,10,8 112233"}},
      {2, 18, picture, {"stretch 10,20,110,40 pic"}},
      {10, 18, picture, {"keyed 10,20,110,40 pic 0,0,10,8 112233"}},
      {4, 18, picture, {"blend 10,20,110,40 ffffff 204"}},
      {1, 18, large, {"blend 10,20,110,40 ffffff 204", "blit 10,20,110,40 large 50,15"}},
      {1, 9, large, {"blend 10,20,110,40 ffffff 204", "blit 10,20,110,40 large 0,0"}},
      {1, 36, large, {"blend 10,20,110,40 ffffff 204", "blit 10,20,110,40 large 100,30"}},
      {9, 18, large, {"fill 10,20,110,40 ffffff", "keyed 10,20,110,40 large 50,15,150,35 112233"}},
      {1, 18, nullptr, {"blend 10,20,110,40 ffffff 204"}},
      {9, 18, nullptr, {"fill 10,20,110,40 ffffff"}},
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
    std::int32_t align;
    Rect rect;
    const char16_t* text;
    Lines expected;
  } cases[] = {
      {18, {0, 0, 100, 60}, u"AB", {"text 3,3,97,37 at 43,23 000000 \"AB\""}},
      {18,
       {0, 0, 100, 60},
       u"A;BCD",
       {"text 3,3,97,30 at 47,16 000000 \"A\"", "text 3,30,97,44 at 40,30 000000 \"BCD\""}},
      {9,
       {0, 0, 100, 60},
       u"A;BCD",
       {"text 3,3,97,17 at 3,3 000000 \"A\"", "text 3,17,97,31 at 3,17 000000 \"BCD\""}},
      {36,
       {0, 0, 100, 60},
       u"A;BCD",
       {"text 3,3,97,43 at 90,29 000000 \"A\"", "text 3,43,97,57 at 76,43 000000 \"BCD\""}},
      // A low band shows the bottom of the first line and the top of the second.
      {18,
       {0, 0, 100, 20},
       u"A;B",
       {"text 3,3,97,10 at 47,-4 000000 \"A\"", "text 3,10,97,20 at 47,10 000000 \"B\""}},
      // An empty second line counts, an empty first one does not; its place comes from the whole caption.
      {18, {0, 0, 100, 60}, u"A;", {"text 3,3,97,30 at 47,16 000000 \"A\""}},
      {18, {0, 0, 100, 60}, u";B", {"text 3,3,97,37 at 43,23 000000 \"B\""}},
  };
  for (const auto& test : cases) {
    style.align = test.align;
    EXPECT_EQ(header(test.rect, test.text), test.expected) << XString(test.text).toUtf8();
  }
  style.align = 18;
  EXPECT_EQ(header({0, 0, 100, 60}, u"A;BCD", 20),
            (Lines{"text 22,3,97,30 at 47,16 000000 \"A\"", "text 22,30,97,44 at 40,30 000000 \"BCD\""}));
}

TEST_F(CellDrawing, SortGlyphStandsBehindTheText) {
  style.sortMark = 1;
  style.sortBitmapUp = Glyph::SortUp;
  style.sortBitmapDown = Glyph::SortDown;
  const struct {
    Rect rect;
    const char16_t* text;
    std::int32_t clipLeft;
    Lines expected;
  } cases[] = {
      {{0, 0, 100, 20},
       u"abc",
       0,
       {"keyed 71,7,79,14 up 0,0,8,7 00ff00", "text 3,3,97,17 at 40,3 000000 \"abc\""}},
      {{0, 0, 100, 20},
       u"abcdefghijklmn",
       0,
       {"keyed 90,7,98,14 up 0,0,8,7 00ff00", "text 3,3,88,17 at 1,3 000000 \"abcdefghijklmn\""}},
      {{0, 0, 10, 20}, u"abc", 0, {"keyed 2,7,8,14 up 0,0,8,7 00ff00"}},
      {{0, 0, 100, 6}, u"abc", 0, {}},
      {{0, 0, 100, 20},
       u"abc",
       75,
       {"keyed 75,7,79,14 up 4,0,8,7 00ff00", "text 77,3,97,17 at 40,3 000000 \"abc\""}},
      {{0, 0, 100, 20}, u"", 0, {}},
  };
  for (const auto& test : cases) {
    Lines lines = cell(test.rect, test.text, test.clipLeft);
    lines.erase(lines.begin());
    EXPECT_EQ(lines, test.expected) << XString(test.text).toUtf8();
  }
  style.sortMark = 2;
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
