#include "rows/suppress.h"

#include "render/paint_fixture.h"

namespace tessera {
namespace {

class Suppress : public PaintFixture {
 protected:
  Suppress() : column(addColumn(u"V")) { addColumn(u"W"); }
  void suppressOn(std::initializer_list<const char16_t*> names) {
    column.suppressRefs.removeAll();
    for (const char16_t* name : names) column.suppressRefs.addTail({name});
    ResolveSuppress(config.columns, link);
  }
  std::int32_t span(std::int32_t row, std::int32_t maxRows = 100) {
    TextScratch scratch;
    XString text;
    const CellSpan result = CellTextAndSpan({link, eval, scratch}, column, row, 1, {20, maxRows}, text);
    EXPECT_EQ(eval.ExprRow, row);
    return result.span;
  }
  std::string resolved() {
    std::string text;
    for (const SuppressRef& entry : column.suppressRefs) {
      text += entry.columnId.toUtf8() + ":" + std::to_string(entry.index) + " ";
    }
    return text;
  }
  ColumnRecord& column;
};

TEST_F(Suppress, Resolving) {
  bind({u"V", u"W", u"X"}, {});
  const struct {
    std::initializer_list<const char16_t*> names;
    const char* expected;
  } cases[] = {{{}, ""},
               {{u"V"}, "V:1 "},
               {{u"W"}, "W:2 V:1 "},
               {{u"none"}, "V:1 "},
               {{u"X"}, "V:1 "},         // the data set knows it, no column does
               {{u"w", u"V"}, "V:1 "}};  // a column is found without case, its dataset column is not
  for (const auto& test : cases) {
    suppressOn(test.names);
    EXPECT_EQ(resolved(), test.expected);
  }
  suppressOn({u"W"});
  EXPECT_EQ(column.suppressRefs.head()->value().column, &config.columns.tail()->value());
}

TEST_F(Suppress, RunsOfEqualKeys) {
  bind({u"V", u"W"}, {{u"A", u"1"}, {u"A", u"1"}, {u"A", u"2"}, {u"B", u"2"}, {u"a", u"2"}, {u"a", u"2"}});
  suppressOn({u"V"});
  const std::int32_t own[] = {3, 2, 1, 1, 2, 1};
  for (std::int32_t row = 1; row <= 6; ++row) EXPECT_EQ(span(row), own[row - 1]) << row;
  EXPECT_EQ(span(1, 2), 2);
  EXPECT_EQ(span(1, 1), 1);
  suppressOn({u"W"});
  EXPECT_EQ(span(1), 2);
  EXPECT_EQ(span(3), 1);
  EXPECT_EQ(span(7), 1);
  bind({u"V", u"W"}, {{u"c", u"ab"}, {u"bc", u"a"}});
  suppressOn({u"W", u"V"});
  EXPECT_EQ(span(1), 2) << "keys are joined without a separator";
  suppressOn({u"V"});
  EXPECT_EQ(span(1), 1);
  column.view.rect.bottom = 19;
  EXPECT_EQ(span(1), 1);
}

TEST_F(Suppress, RowsOfAnyLevelTakePartWithTheirOwnText) {
  bind({u"V", u"W"}, {{u"A", u"c"}, {u"A", u"c"}, {u"A", u"c"}, {u"B", u"c"}});
  suppressOn({u"V"});
  data->rows[1].level = -1;
  EXPECT_EQ(span(1), 3);
  data->rows[1].level = 1;
  EXPECT_EQ(span(1), 1) << "no group cell: its text is empty";
  GroupCell group;
  group.level = 1;
  column.groups.addTail(group);
  EXPECT_EQ(span(1), 3);
}

}  // namespace
}  // namespace tessera
