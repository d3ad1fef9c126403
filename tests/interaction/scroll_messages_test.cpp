#include "interaction/scroll_messages.h"

#include <limits>

#include "mouse_fixture.h"

namespace tessera {
namespace {

constexpr std::int32_t none = 0;

class ScrollMessages : public test::MouseTest {
 protected:
  ScrollMessages() {
    window.size.width = 100;  // 84 for the columns
    setColumns("a 0 40 0 20\nb 40 80 0 20\nc 80 120 0 20\nd 120 160 0 20\ne 160 200 0 20");
    setRows(30);
    services.repaints = 0;
  }
  // Runs a message; the page's place and how often it was painted.
  std::string rows(ScrollCode code) {
    scroll.vscroll(code);
    return place(parts.page.TopOrdinal);
  }
  std::string columns(ScrollCode code) {
    scroll.hscroll(code);
    return place(parts.page.ColumnStop);
  }
  std::string wheel(std::int32_t delta) {
    scroll.wheel(delta);
    return place(parts.page.TopOrdinal);
  }
  std::string place(std::int32_t position) {
    return std::to_string(position) + (std::exchange(services.repaints, 0) != none ? " painted" : "");
  }

  test::LookupServices info;
  EditorController editors{parts, services, info};
  ScrollController scroll{parts, services, editors};
};

TEST_F(ScrollMessages, RowsByLineAndPage) {
  EXPECT_EQ(rows(ScrollCode::LineBack), "1");
  EXPECT_EQ(rows(ScrollCode::LineOn), "2 painted");
  EXPECT_EQ(rows(ScrollCode::PageOn), "6 painted");
  EXPECT_EQ(rows(ScrollCode::PageBack), "2 painted");
  EXPECT_EQ(rows(ScrollCode::PageBack), "1 painted");
  EXPECT_EQ(rows(ScrollCode{8}), "1");
  EXPECT_EQ(focus(), "1 a");
}

TEST_F(ScrollMessages, TheThumbJumps) {
  const auto thumb = [this](std::int32_t position, ScrollCode code = ScrollCode::ThumbTrack) {
    window.tracking[Bar::Vertical] = position;
    return rows(code);
  };
  EXPECT_EQ(thumb(1), "1");
  EXPECT_EQ(thumb(20), "20 painted");
  EXPECT_EQ(thumb(20), "20");
  EXPECT_EQ(thumb(7, ScrollCode::ThumbPosition), "7 painted");
  EXPECT_EQ(thumb(std::numeric_limits<std::int32_t>::min()), "1 painted");
  EXPECT_EQ(thumb(std::numeric_limits<std::int32_t>::max()), "27 painted");
  EXPECT_EQ(parts.page.VisibleRows.back()->row, 30);
}

TEST_F(ScrollMessages, ColumnsByStepPageAndThumb) {
  ASSERT_EQ(window.bars[Bar::Horizontal].maximum, 4);
  EXPECT_EQ(columns(ScrollCode::LineBack), "1");
  EXPECT_EQ(columns(ScrollCode::LineOn), "2 painted");
  EXPECT_EQ(column("b").view.rect.left, 16);
  EXPECT_EQ(columns(ScrollCode::LineBack), "1 painted");
  EXPECT_EQ(columns(ScrollCode::PageOn), "3 painted");  // two columns show wholly
  EXPECT_EQ(columns(ScrollCode::PageOn), "4 painted");
  EXPECT_EQ(columns(ScrollCode::PageOn), "4");
  EXPECT_EQ(columns(ScrollCode::PageBack), "2 painted");
  window.tracking[Bar::Horizontal] = 4;
  EXPECT_EQ(columns(ScrollCode::ThumbTrack), "4 painted");
  EXPECT_EQ(columns(ScrollCode::ThumbPosition), "4");
  window.tracking[Bar::Horizontal] = 1;
  EXPECT_EQ(columns(ScrollCode::ThumbPosition), "1 painted");
  EXPECT_EQ(column("a").view.rect.left, 16);
  EXPECT_EQ(columns(ScrollCode{6}), "1");
  EXPECT_EQ(parts.focus.FocusLeft, 16);
}

TEST_F(ScrollMessages, ANotchMovesAPageAtMost) {
  struct Case {
    std::int32_t lines;
    std::int32_t delta;
    const char* place;
  };
  for (const Case& row : {Case{3, -120, "13 painted"},
                          {3, 120, "7 painted"},
                          {1, -30, "11 painted"},
                          {4, -120, "14 painted"},
                          {5, -120, "14 painted"},
                          {100, 120, "6 painted"},
                          {-1, -120, "14 painted"},
                          {0, -120, "10"}}) {
    window.tracking[Bar::Vertical] = 10;
    scroll.vscroll(ScrollCode::ThumbTrack);
    services.repaints = 0;
    window.lines = row.lines;
    EXPECT_EQ(wheel(row.delta), row.place) << row.lines;
  }
  window.tracking[Bar::Vertical] = 1;
  scroll.vscroll(ScrollCode::ThumbTrack);
  services.repaints = 0;
  window.lines = 3;
  EXPECT_EQ(wheel(120), "1");
}

TEST_F(ScrollMessages, WithoutRowsOrWindowNothingMoves) {
  setRows(0);
  services.repaints = 0;
  EXPECT_EQ(wheel(-120), "1");
  EXPECT_EQ(rows(ScrollCode::PageOn), "1");
  closeWindow();
  scroll.hscroll(ScrollCode::LineOn);
  scroll.vscroll(ScrollCode::ThumbTrack);
  scroll.wheel(-1);
  EXPECT_EQ(services.repaints, 0);
}

}  // namespace
}  // namespace tessera
