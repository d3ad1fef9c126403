#include "rows/cell_text.h"

#include <array>

#include "render/paint_fixture.h"
#include "rows/group_text.h"

namespace tessera {
namespace {

class CellText : public PaintFixture {
 protected:
  CellText() : column(addColumn(u"V")) {
    bind({u"V", u"W"}, {{u"1234", u"w1"}, {u"B", u"w2"}});
    lookup = std::make_shared<FakeDataSet>(
        std::vector<XString>{u"CODE", u"NAME"},
        std::vector<std::vector<const char16_t*>>{{u"1234", u"found"}, {u"1234", u"second"}});
  }
  TextSource source() { return {link, eval, scratch}; }
  std::string text(std::int32_t row = 1, std::int32_t index = 1) {
    XString result(u"left over");
    cellText(source(), column, row, index, result);
    return result.toUtf8();
  }
  // "unset" for a property that gives nothing.
  std::string property(const char16_t* id, std::int32_t row, std::int32_t kind) {
    XString result;
    return queryText(source(), config.columns, rows, id, row, kind, result) ? result.toUtf8() : "unset";
  }

  ColumnRecord& column;
  TextScratch scratch;
  std::shared_ptr<FakeDataSet> lookup;
};

TEST_F(CellText, ByKindOfCell) {
  column.view.displayFormat = u"#,##0";
  for (const CellKind kind :
       {CellKind::None, CellKind::Edit, CellKind::Image, CellKind::Bar, CellKind::Check, CellKind::Radio}) {
    column.child.type = kind;
    EXPECT_EQ(text(), kind == CellKind::Check || kind == CellKind::Radio ? "1234" : "1,234");
  }
  column.view.displayFormat = u"<XXXXXX>";
  column.child.type = CellKind::Combo;
  EXPECT_EQ(text(), "");
  column.child.comboItems.addTail({u"lower", u"b"});
  column.child.comboItems.addTail({u"first", u"1234"});
  column.child.comboItems.addTail({u"second", u"1234"});
  EXPECT_EQ(text(), "<first>");
  EXPECT_EQ(text(2), "");

  column.child.type = CellKind::Lookup;
  EXPECT_EQ(text(), "");
  column.child.lookupDataset = lookup;
  column.child.lookupCode = u"CODE";
  column.child.lookupText = u"NAME";
  EXPECT_EQ(text(), "<found>");
  EXPECT_EQ(text(2), "");
}

TEST_F(CellText, ViewTextGoesBeforeTheValue) {
  const FakeProgram rowText([](EvalState& state, XValue& value) {
    if (state.ExprRow == 13) return false;
    value.setInt(state.ExprRow);
    return true;
  });
  column.view.text = u"literal";
  column.view.displayFormat = u"<XXXXXXX>";
  column.child.type = CellKind::Check;
  EXPECT_EQ(text(), "1234");
  column.view.dynamicFlags |= literalTextBit;
  EXPECT_EQ(text(), "<literal>");
  column.view.setDynamic(DynamicSlot::Text, &rowText);
  eval.ExprRow = 7;
  EXPECT_EQ(text(), "<7>");
  eval.ExprRow = 13;
  EXPECT_EQ(text(), "") << "a run that fails";
}

TEST_F(CellText, GroupTextByItsKeyword) {
  const FakeProgram program([](EvalState& state, XValue& value) {
    value.setInt(100 + state.ExprRow);
    return true;
  });
  bind({u"V", u"W"}, {{u"1", u"x"}, {u"2", u"y"}, {u"30", u"z"}, {u"31", u"z"}});
  data->rows[2].level = 2;
  data->rows[3].level = 1;
  const struct {
    std::int32_t row, level;
    const char16_t* keyword;
    std::int32_t index;
    const char* expected;
    std::int32_t expectedLevel;
  } cases[] = {
      {3, 2, u"bind", 1, "<30>", 2}, {3, 2, u"BIND", 2, "<z>", 2},  {3, 2, u"total", 1, "<total>", 2},
      {3, 2, u"@x", 1, "<@x>", 2},   {3, 2, u"inherit", 1, "2", 0}, {4, 2, u"Inherit", 2, "y", 0},
      {3, 5, u"bind", 1, "", 5},     {1, 2, u"inherit", 1, "", 2},
  };
  for (const auto& test : cases) {
    GroupCell group;
    group.level = 2;
    group.text = test.keyword;
    group.displayFormat = u"<XXXXXX>";
    column.groups.removeAll();
    column.groups.addTail(group);
    std::int32_t level = test.level;
    XString result(u"left over");
    GroupText(source(), column, test.row, test.index, level, result);
    EXPECT_EQ(result.toUtf8(), test.expected) << XString(test.keyword).toUtf8() << " row " << test.row;
    EXPECT_EQ(level, test.expectedLevel) << XString(test.keyword).toUtf8();
  }
  // A negative level above ends the walk without a text; an expression is never a keyword.
  GroupCell& group = column.groups.head()->value();
  group.level = 2;
  group.text = u"inherit";
  data->rows[1].level = -3;
  std::int32_t level = 2;
  XString result;
  GroupText(source(), column, 3, 1, level, result);
  EXPECT_EQ(result.toUtf8(), "");
  EXPECT_EQ(level, 0);
  group.setDynamic(DynamicSlot::Text, &program);
  eval.ExprRow = 3;
  level = 2;
  GroupText(source(), column, 3, 1, level, result);
  EXPECT_EQ(result.toUtf8(), "<103>");
}

TEST_F(CellText, InheritedExpressionsSeeTheirOwnRow) {
  const FakeProgram rowText([](EvalState& state, XValue& value) {
    value.setInt(state.ExprRow);
    return true;
  });
  column.view.setDynamic(DynamicSlot::Text, &rowText);
  GroupCell group;
  group.level = 1;
  group.text = u"inherit";
  column.groups.addTail(group);
  data->rows[1].level = 1;
  eval.ExprRow = 2;
  std::int32_t level = 1;
  XString result;
  GroupText(source(), column, 2, 1, level, result);
  EXPECT_EQ(result.toUtf8(), "1");
  EXPECT_EQ(eval.ExprRow, 2);
}

TEST_F(CellText, GetTextProperty) {
  column.header.text = u"caption";
  column.header.displayFormat = u"<XXXXXXX>";
  column.summary.text = u"sum";
  column.summary.displayFormat = u"(XXX)";
  column.view.displayFormat = u"[XXXX]";
  addColumn(u"v").header.text = u"other";
  EXPECT_EQ(property(u"V", 1, 2), "<caption>");
  EXPECT_EQ(property(u"V", 1, 3), "[1234]");
  EXPECT_EQ(property(u"V", 2, 3), "[B]");
  EXPECT_EQ(eval.ExprRow, 2);
  EXPECT_EQ(property(u"V", 1, 5), "(sum)");
  EXPECT_EQ(property(u"V", 1, 4), "");
  // Only the first column that matches without case counts, and it must match exactly.
  EXPECT_EQ(property(u"v", 1, 2), "unset");
  EXPECT_EQ(property(u"X", 1, 2), "unset");
  for (const std::int32_t kind : {-1, 0, 1, 6}) EXPECT_EQ(property(u"V", 1, kind), "unset") << kind;

  // Check marks have no special case here; translations have.
  column.child.type = CellKind::Check;
  EXPECT_EQ(property(u"V", 1, 3), "[1234]");
  column.child.type = CellKind::Combo;
  column.child.comboItems.addTail({u"item", u"1234"});
  EXPECT_EQ(property(u"V", 1, 3), "[item]");
  EXPECT_EQ(property(u"V", 2, 3), "");
}

}  // namespace
}  // namespace tessera
