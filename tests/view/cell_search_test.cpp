#include "tools/view/cell_search.h"

#include <gtest/gtest.h>

#include "view/view_fixture.h"

namespace tessera {
namespace {

using testing::OpenGrid;
using State = CellSearch::State;

constexpr std::chrono::hours whole{1};

struct SearchCase {
  const char* from;  // the focus column
  std::int32_t row;
  SearchQuery query;
  const char* found;  // "column row", with "around" when the way led around an end; empty: nothing
};

std::string resultOf(CellSearch& search) {
  if (search.run(whole) != State::Found) return "";
  return search.column().toUtf8() + " " + std::to_string(search.row()) + (search.wrapped() ? " around" : "");
}

TEST(CellSearch, FindsWhatCellsShow) {
  const SearchCase cases[] = {
      {"bike", 1, {"CITY"}, "bike 2"},
      {"bike", 1, {"CITY", true}, ""},
      {"bike", 2, {"city"}, "bike 10"},
      {"bike", 10, {"city"}, "bike 2 around"},
      // The focus cell comes last, from both sides.
      {"bike", 6, {"Tandem", false, true}, "bike 6 around"},
      {"bike", 10, {"city", false, true}, "bike 2"},
      // Within a row from cell to cell.
      {"job", 4, {"cargo"}, "bike 4"},
      {"note", 4, {"cargo", false, true}, "bike 4"},
      // A combo and a lookup show words in place of their codes, a price has its format.
      {"job", 1, {"ready"}, "state 2"},
      {"job", 1, {"samira"}, "mechanic 4"},
      {"job", 1, {"지우"}, "customer 4"},
      {"job", 1, {"ZOË"}, "customer 8"},
      {"job", 1, {"nowhere"}, ""},
  };
  OpenGrid open("editors.xml");
  for (const SearchCase& row : cases) {
    open.focus(row.row, row.from);
    CellSearch search(open.grid(), row.query);
    EXPECT_EQ(resultOf(search), row.found) << row.from << row.row << " " << row.query.text.toStdString();
  }
}

// A mark or a password would be found by what nobody sees.
TEST(CellSearch, PassesOverWhatIsNotText) {
  OpenGrid open("editors.xml");
  XString columns;
  open.grid().get_ColumnInfo(columns);
  std::string text = columns.toUtf8();
  const std::string plain = "<CHILD type=\"edit\" limitlength=\"20\"/>";
  ASSERT_NE(text.find(plain), std::string::npos);
  text.replace(text.find(plain), plain.size(), "<CHILD type=\"edit\" inputtype=\"password\"/>");
  open.rows()->SetTextByName(7, u"PAID", u"7777");
  open.focus(1, "job");
  CellSearch mark(open.grid(), {"7777"});
  EXPECT_EQ(resultOf(mark), "");
  CellSearch shown(open.grid(), {"tandem"});
  EXPECT_EQ(resultOf(shown), "bike 6");
  open.grid().put_ColumnInfo(XString::fromNarrow(text));
  CellSearch secret(open.grid(), {"tandem"});
  EXPECT_EQ(resultOf(secret), "");
}

// Without a slice of time a run still looks at some cells; rows go away meanwhile.
TEST(CellSearch, GoesOnInSlicesWhileRowsGo) {
  OpenGrid open("orders.csv");
  const std::int32_t rows = open.rowCount();
  ASSERT_GT(rows, 10);
  open.focus(1, "ORDER_NO");
  CellSearch search(open.grid(), {"in no cell at all"});
  int slices = 0;
  State state = State::Running;
  for (; state == State::Running; ++slices) {
    state = search.run(std::chrono::seconds(0));
    if (slices == 1) {
      while (open.rowCount() > 2) open.rows()->DeleteRow(open.rowCount());
    }
    ASSERT_LT(slices, 10'000);
  }
  EXPECT_EQ(state, State::NotFound);
  EXPECT_GT(slices, 2);
  EXPECT_EQ(search.rowCount(), 2);
  while (open.rowCount() > 0) open.rows()->DeleteRow(1);
  EXPECT_EQ(CellSearch(open.grid(), {"x"}).run(whole), State::NotFound);
}

}  // namespace
}  // namespace tessera
