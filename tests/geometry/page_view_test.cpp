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
    if (page.VisibleRows[i].number != page.VisibleRows[i - 1].number + 1) return "gap";
  }
  std::ostringstream text;
  text << page.VisibleRows.front().number << '-' << page.VisibleRows.back().number << " top "
       << page.TopOrdinal;
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

TEST(PageView, AsManyRowsAsThereAreNumbers) {
  PageFixture f(2'147'483'647);
  f.page.EnsureRowVisible(f.rows, capacity, f.rows.lastDisplayable());
  EXPECT_EQ(pageText(f.page), "2147483643-2147483647 top 2147483643");
  EXPECT_TRUE(f.page.RowsUp(f.rows, capacity, 2'147'483'647));
  EXPECT_EQ(pageText(f.page), "1-6 top 1");
}

}  // namespace
}  // namespace tessera
