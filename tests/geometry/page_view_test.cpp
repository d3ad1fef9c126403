#include "geometry/page_view.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace tessera {
namespace {

constexpr std::int32_t capacity = 5;

// "first-last" of a page without gaps, with the ordinal of its top; "gap" when rows are missing.
std::string pageText(const PageView& page) {
  if (page.VisibleRows.empty()) return "empty";
  for (std::size_t i = 1; i < page.VisibleRows.size(); ++i) {
    if (page.VisibleRows[i]->row != page.VisibleRows[i - 1]->row + 1) return "gap";
  }
  std::ostringstream text;
  text << page.VisibleRows.front()->row << '-' << page.VisibleRows.back()->row << " top " << page.TopOrdinal;
  return text.str();
}

struct PageFixture {
  explicit PageFixture(std::int32_t rowCount, std::int32_t top = 1) {
    rows.buildPlain(rowCount);
    page.RefillFrom(rows, capacity, rows.find(top));
  }
  RowTree rows;
  PageView page;
};

TEST(PageView, FillsAroundARow) {
  struct Case {
    std::int32_t rowCount, row;
    const char* filled;
    const char* refilled;
  };
  const Case cases[] = {
      {100, 50, "46-51 top 46", "50-55 top 50"},  // the row ends as the last full one; or starts the page
      {100, 1, "1-6 top 1", "1-6 top 1"},
      {100, 100, "96-100 top 96", "96-100 top 96"},  // at the end a page reaches back
      {100, 97, "93-98 top 93", "96-100 top 96"},
      {3, 2, "1-3 top 1", "1-3 top 1"},
      {1, 1, "1-1 top 1", "1-1 top 1"},
  };
  for (const Case& c : cases) {
    PageFixture f(c.rowCount);
    f.page.fillAround(f.rows, capacity, f.rows.find(c.row));
    EXPECT_EQ(pageText(f.page), c.filled) << c.row << " of " << c.rowCount;
    f.page.RefillFrom(f.rows, capacity, f.rows.find(c.row));
    EXPECT_EQ(pageText(f.page), c.refilled) << c.row << " of " << c.rowCount;
  }
}

TEST(PageView, EnsuresThatARowShowsWholly) {
  struct Case {
    std::int32_t top, row;
    const char* expected;
  };
  const Case cases[] = {
      {40, 42, "40-45 top 40"},  // on the page
      {40, 45, "41-46 top 41"},  // the last entry may be cut, so it counts as hidden
      {40, 30, "30-35 top 30"},  // above: it becomes the top
      {40, 60, "56-61 top 56"},  // below: the last full row
      {40, 100, "96-100 top 96"}, {40, 1, "1-6 top 1"},
  };
  for (const Case& c : cases) {
    PageFixture f(100, c.top);
    f.page.EnsureRowVisible(f.rows, capacity, f.rows.find(c.row));
    EXPECT_EQ(pageText(f.page), c.expected) << c.row << " from " << c.top;
  }
  PageFixture f(100, 40);
  f.page.EnsureRowVisible(f.rows, capacity, nullptr);
  EXPECT_EQ(pageText(f.page), "40-45 top 40");
}

TEST(PageView, BringsTheDatasetsCurrentRowIn) {
  struct Case {
    std::int32_t top, row;
    const char* expected;
  };
  const Case cases[] = {
      {40, 45, "40-45 top 40"},   // on the page, also as its last entry
      {40, 70, "67-72 top 67"},   // elsewhere: about the middle
      {40, 2, "1-6 top 1"},       // too few rows above: filled up from below
      {40, 99, "95-100 top 95"},  // too few below: filled up from above
  };
  for (const Case& c : cases) {
    PageFixture f(100, c.top);
    f.page.bringCurrent(f.rows, capacity, f.rows.find(c.row));
    EXPECT_EQ(pageText(f.page), c.expected) << c.row << " from " << c.top;
  }
}

TEST(PageView, RowThatTheShortPageReachesRefillsFromTheOldTop) {
  PageFixture f(3);
  f.rows.setPlainCount(10);
  f.page.bringCurrent(f.rows, capacity, f.rows.find(5));
  EXPECT_EQ(pageText(f.page), "1-6 top 1");
}

TEST(PageView, ScrollsByRows) {
  struct Case {
    std::int32_t top, rows;  // rows above 0 go down
    bool moved;
    const char* expected;
  };
  const Case cases[] = {
      {1, 1, true, "2-7 top 2"},       {1, 10, true, "11-16 top 11"},   {1, -1, false, "1-6 top 1"},
      {40, -3, true, "37-42 top 37"},  {40, -100, true, "1-6 top 1"},   {94, 1, true, "95-100 top 95"},
      {95, 1, true, "96-100 top 96"},  // the last row shows wholly, the list is one shorter
      {95, 50, true, "96-100 top 96"}, {94, 50, true, "96-100 top 96"}, {96, 1, false, "96-100 top 96"},
      {96, -1, true, "95-100 top 95"},  // a page that is not more than full keeps its last row
      {96, -2, true, "94-99 top 94"},  {40, 0, false, "40-45 top 40"},
  };
  for (const Case& c : cases) {
    PageFixture f(100, c.top);
    const bool moved =
        c.rows < 0 ? f.page.RowsUp(f.rows, capacity, -c.rows) : f.page.RowsDown(f.rows, capacity, c.rows);
    EXPECT_EQ(moved, c.moved) << c.rows << " from " << c.top;
    EXPECT_EQ(pageText(f.page), c.expected) << c.rows << " from " << c.top;
  }
}

// Rows may have come behind a page of one.
TEST(PageView, APageOfOneRowKeepsOne) {
  PageFixture f(1);
  f.rows.setPlainCount(20);
  f.page.RowsDown(f.rows, capacity, 18);
  EXPECT_EQ(pageText(f.page), "19-19 top 19");
  EXPECT_TRUE(f.page.RowsDown(f.rows, capacity, 10));
  EXPECT_EQ(pageText(f.page), "20-20 top 20");
  EXPECT_FALSE(f.page.RowsDown(f.rows, capacity, 1));
  EXPECT_TRUE(f.page.RowsUp(f.rows, capacity, 1));
}

// One jump must end where the single steps end.
TEST(PageView, JumpsEndWhereStepsEnd) {
  for (std::int32_t distance : {1, 2, 7, 60, 99, 100, 1000}) {
    for (std::int32_t top : {1, 30, 93, 95, 96}) {
      PageFixture jump(100, top);
      PageFixture steps(100, top);
      jump.page.RowsDown(jump.rows, capacity, distance);
      for (std::int32_t i = 0; i < distance; ++i) steps.page.RowsDown(steps.rows, capacity, 1);
      EXPECT_EQ(pageText(jump.page), pageText(steps.page)) << distance << " down from " << top;
      jump.page.RowsUp(jump.rows, capacity, distance);
      for (std::int32_t i = 0; i < distance; ++i) steps.page.RowsUp(steps.rows, capacity, 1);
      EXPECT_EQ(pageText(jump.page), pageText(steps.page)) << distance << " up from " << top;
    }
  }
}

TEST(PageView, TenMillionRowsCostOnlyThePagesThatWereSeen) {
  PageFixture f(10'000'000);
  f.page.RowsDown(f.rows, capacity, 7'654'321);
  EXPECT_EQ(pageText(f.page), "7654322-7654327 top 7654322");
  f.page.EnsureRowVisible(f.rows, capacity, f.rows.find(10'000'000));
  EXPECT_LE(f.rows.nodePages(), 6u);

  PageFixture largest(2'147'483'647);
  largest.page.EnsureRowVisible(largest.rows, capacity, largest.rows.lastDisplayable());
  EXPECT_EQ(pageText(largest.page), "2147483643-2147483647 top 2147483643");
  EXPECT_TRUE(largest.page.RowsUp(largest.rows, capacity, 2'147'483'647));
  EXPECT_EQ(pageText(largest.page), "1-6 top 1");
}

TEST(RowTree, KeepsAddressesAndForgetsRowsBehindTheEnd) {
  RowTree rows;
  rows.buildPlain(200);
  RowNode* last = rows.find(200);
  RowNode* first = rows.first();
  rows.setPlainCount(199);
  EXPECT_EQ(rows.find(200), nullptr);
  EXPECT_EQ(rows.NextRow(rows.find(199)), nullptr);
  rows.setPlainCount(300);
  EXPECT_EQ(rows.find(200), last);
  EXPECT_EQ(rows.first(), first);
  EXPECT_EQ(rows.PreviousRow(first), nullptr);
  EXPECT_EQ(rows.find(0), nullptr);
  EXPECT_EQ(rows.find(-5), nullptr);
  rows.buildPlain(-1);
  EXPECT_TRUE(rows.empty());
  EXPECT_EQ(rows.first(), nullptr);
}

}  // namespace
}  // namespace tessera
