#include "interaction/fit_arrange.h"
#include "mouse_fixture.h"
#include "support/recording_canvas.h"

namespace tessera {
namespace {

using test::headersOf;

// Characters are 7 wide, and every text has margins of 3 and 3.
class MouseFit : public test::MouseTest {
 protected:
  MouseFit() { window.surface = std::make_unique<RecordingCanvas>(window.size); }
  void setText(std::int32_t row, std::int32_t column, std::size_t length) {
    data->rows[static_cast<std::size_t>(row - 1)].values[static_cast<std::size_t>(column - 1)].setText(
        std::u16string(length, u'x'));
  }
  void fit() { fitArrange(parts, services); }
  std::string headers() const { return headersOf(parts.config.columns); }
};

TEST_F(MouseFit, WidestCellOfAllRows) {
  setText(9, 1, 4);  // not on the page
  setText(2, 2, 9);
  fit();
  EXPECT_EQ(headers(), "a:16-50 b:50-119 c:119-139");  // 4 * 7 + 6, 9 * 7 + 6, "10" 2 * 7 + 6
  EXPECT_EQ(services.repaints, 1);
  for (const ColumnRecord& record : parts.config.columns) {
    EXPECT_EQ(record.view.rect.left, record.header.rect.left);
    EXPECT_EQ(record.view.rect.right, record.header.rect.right);
  }
  fit();
  EXPECT_EQ(headers(), "a:16-50 b:50-119 c:119-139");
}

TEST_F(MouseFit, TheSummaryCountsWhenItShows) {
  column("a").summary.text = u"xxxxxxxx";
  fit();
  EXPECT_EQ(headers(), "a:16-36 b:36-56 c:56-76");
  parts.settings.ViewSummary = SummaryBand::Bottom;
  fit();
  EXPECT_EQ(headers(), "a:16-78 b:78-98 c:98-118");
}

TEST_F(MouseFit, NotWiderThanThePage) {
  setText(1, 2, 100);
  fit();
  EXPECT_EQ(column("b").header.rect.width(), 250 - 16 - 5);
  EXPECT_TRUE(window.shown[Bar::Horizontal]);
}

TEST_F(MouseFit, AColumnNeverVanishes) {
  setRows(0);
  fit();
  EXPECT_EQ(headers(), "a:16-21 b:21-26 c:26-31");
  setRows(10);
  fit();
  EXPECT_EQ(headers(), "a:16-36 b:36-56 c:56-76");
}

TEST_F(MouseFit, HiddenColumnsAndATooSmallPageStayAsTheyAre) {
  column("b").viewVisible = false;
  fit();
  EXPECT_EQ(headers(), "a:16-36 b:36-96 c:96-116");
  window.size.width = 20;
  setText(1, 1, 100);
  fit();
  EXPECT_EQ(headers(), "a:16-36 b:36-96 c:96-116");
}

// d spans a and b on the line above them.
TEST_F(MouseFit, UpperLinesOnlyGrow) {
  setColumns("d 0 120 0 20\na 0 60 20 40\nb 60 120 20 40\nc 120 180 0 40");
  column("d").header.rect.bottom = 20;
  for (const char* id : {"a", "b"})
    column(id).header.rect = {column(id).header.rect.left, 20, column(id).header.rect.right, 40};
  column("c").header.rect.bottom = 40;
  data->columns[2] = u"d";
  parts.metrics.measureHeights(parts.config.columns);
  fit();
  EXPECT_EQ(headers(), "d:16-56 a:16-36 b:36-56 c:56-62");
  setText(1, 3, 10);
  fit();
  EXPECT_EQ(headers(), "d:16-92 a:16-36 b:36-92 c:92-98");
}

TEST_F(MouseFit, ScrollsHomeAndBackToTheFocus) {
  window.size.width = 120;
  parts.updateBars(bar_bit::both);
  parts.focus.FocusColumn = position("c");
  {
    const GridFrame frame = parts.frame();
    ColumnScroll scroll{parts.config.columns, parts.page, parts.focus, frame};
    ASSERT_GT(scroll.StepRight(), 0);
  }
  setText(1, 1, 12);
  parts.page.RowsDown(parts.rows, parts.frame().rowCapacity(), 3);
  ASSERT_LT(parts.page.VisibleIndex(parts.focus.FocusRow), 0);
  fit();
  EXPECT_EQ(parts.page.VisibleIndex(parts.focus.FocusRow), 0);
  EXPECT_EQ(column("c").view.rect.right - column("a").view.rect.left, 90 + 20 + 20);
  EXPECT_GT(parts.page.ColumnStop, 1);
  EXPECT_EQ(parts.focus.FocusLeft, column("c").view.rect.left);
  EXPECT_LE(column("c").view.rect.right, 120);
}

TEST_F(MouseFit, NeedsWindowAndData) {
  closeWindow();
  fit();
  parts.window = &window;
  parts.link.releaseDataSet();
  fit();
  EXPECT_EQ(headers(), "a:16-76 b:76-136 c:136-196");
  EXPECT_EQ(services.repaints, 0);
}

}  // namespace
}  // namespace tessera
