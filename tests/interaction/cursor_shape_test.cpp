#include "interaction/cursor_shape.h"

#include "expr/xexpr_program.h"
#include "mouse_fixture.h"

namespace tessera {
namespace {

// Gives "hand" for one row and a word that is no cursor for the others.
class HandForRow : public XExprProgram {
 public:
  explicit HandForRow(std::int32_t row) : row_(row) {}
  const XValue* evaluate(EvalState& state) const override {
    value_.setText(state.ExprRow == row_ ? u"hand" : u"claw");
    return &value_;
  }

 private:
  std::int32_t row_;
  mutable XValue value_;
};

class CursorShape : public test::MouseTest {
 protected:
  Cursor at(std::int32_t x, std::int32_t y, bool canDrag = false) {
    const GridFrame frame = parts.frame();
    const Hit hit = hitTest(frame, parts.config.columns, parts.page, parts.link, x, y);
    return cursorShape({frame, parts.config.columns, parts.settings, parts.eval}, hit, {x, y}, canDrag);
  }
};

TEST_F(CursorShape, NumbersOfTheRecords) {
  constexpr std::array<std::int32_t, 11> expected = {32512, 32512, 32513, 32515, 32648, 32651,
                                                     32514, 32650, 32644, 32649, 32512};
  for (std::int32_t number = 0; number <= 10; ++number) {
    column("b").view.cursor = number;
    EXPECT_EQ(static_cast<std::int32_t>(at(100, 50)), expected[static_cast<std::size_t>(number)]) << number;
  }
}

TEST_F(CursorShape, ByRegion) {
  column("b").view.cursor = 9;
  column("b").header.cursor = 3;
  struct Case {
    Point at;
    Cursor plain, drag;
  };
  constexpr std::int32_t right = 250, bottom = 101;
  for (const Case& row : {Case{{100, 10}, Cursor::Cross, Cursor::Cross},
                          {{100, 50}, Cursor::Hand, Cursor::SizeAll},
                          {{150, 50}, Cursor::Arrow, Cursor::SizeAll},
                          {{10, 50}, Cursor::Arrow, Cursor::SizeAll},
                          {{220, 50}, Cursor::Arrow, Cursor::Arrow},
                          {{100, bottom}, Cursor::Arrow, Cursor::Arrow},
                          {{right, 50}, Cursor::Arrow, Cursor::Arrow}}) {
    EXPECT_EQ(at(row.at.x, row.at.y), row.plain) << row.at.x << ',' << row.at.y;
    EXPECT_EQ(at(row.at.x, row.at.y, true), row.drag) << row.at.x << ',' << row.at.y;
  }
  data->rows[0].level = 1;
  EXPECT_EQ(at(100, 30), Cursor::Hand);
  EXPECT_EQ(at(100, 30, true), Cursor::SizeAll);
  parts.settings.ViewSummary = SummaryBand::Bottom;
  EXPECT_EQ(at(100, 90, true), Cursor::Hand);
}

// Edges at 16, 76, 136 and 196.
TEST_F(CursorShape, SizeCursorWithinFivePixelsOfAnEdge) {
  struct Case {
    std::int32_t x, y;
    bool size;
  };
  constexpr std::array<Case, 10> cases = {{{70, 10, false},
                                           {71, 10, true},
                                           {76, 10, true},
                                           {81, 10, true},
                                           {82, 10, false},
                                           {17, 10, true},
                                           {191, 10, true},
                                           {196, 10, true},
                                           {76, 0, false},
                                           {76, 21, false}}};
  for (const Case& row : cases) {
    EXPECT_EQ(at(row.x, row.y) == Cursor::SizeWE, row.size) << row.x << ',' << row.y;
  }
  parts.settings.Resize = 2;
  for (const Case& row : cases) EXPECT_EQ(at(row.x, row.y), Cursor::Arrow);
}

TEST_F(CursorShape, EdgesHiddenBehindTheFixedColumnsDoNotCount) {
  window.size.width = 150;
  setColumns("a 0 60 0 20 fix\nb 60 90 0 20\nc 90 150 0 20\nd 150 210 0 20");
  const GridFrame frame = parts.frame();
  ColumnScroll scroll{parts.config.columns, parts.page, parts.focus, frame};
  ASSERT_EQ(scroll.StepRight(), 30);  // b now lies from 46 to 76 under a
  EXPECT_EQ(at(46, 10), Cursor::Arrow);
  EXPECT_EQ(at(73, 10), Cursor::SizeWE);
}

TEST_F(CursorShape, AnExpressionReadsTheRow) {
  const HandForRow program(2);
  column("b").view.setDynamic(DynamicSlot::Cursor, &program);
  column("b").view.cursor = 3;
  EXPECT_EQ(at(100, 50), Cursor::Hand);
  EXPECT_EQ(at(100, 70), Cursor::Arrow);
  EXPECT_EQ(parts.eval.ExprRow, 3);
}

}  // namespace
}  // namespace tessera
