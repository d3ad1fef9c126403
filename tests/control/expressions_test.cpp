// Expressions in a grid over a data set.

#include "control/grid_expression_host.h"
#include "control_fixture.h"
#include "expr/literal_text.h"

namespace tessera::test {
namespace {

class ExpressionsTest : public ControlTest {};

// The indicator is configured before there are any columns, and outlives every Refresh and every text that
// does not compile.
TEST_F(ExpressionsTest, TheIndicatorGetsItsExpressionsBack) {
  control.put_IndicatorInfo(u"<I bgcolor=\"@IIF(A&gt;2,'red','blue')\"/>");
  addData(4);
  open();
  EXPECT_EQ(events.take(), "");
  EvalState state;
  state.ExprRow = 3;
  const IndicatorRecord& indicator = control.parts().config.indicator;
  EXPECT_EQ(indicator.effectiveBackColor(state), rgb(0xFF, 0, 0));
  control.Refresh();
  EXPECT_EQ(indicator.effectiveBackColor(state), rgb(0xFF, 0, 0));
  control.put_IndicatorInfo(u"<I bgcolor=\"@NOSUCH\"/>");
  EXPECT_EQ(events.take(), "OnError 4 Expression Error; ");
  EXPECT_EQ(indicator.effectiveBackColor(state), rgb(0xFF, 0, 0));
  control.Refresh();
  EXPECT_EQ(events.take(), "");
  EXPECT_EQ(indicator.effectiveBackColor(state), rgb(0xFF, 0, 0));
}

// Another data set without the column: reported once, however often the grid refreshes.
TEST_F(ExpressionsTest, AKeptExpressionThatFailsIsReportedOnce) {
  addData(4);
  open();
  control.put_BackgroundInfo(u"<B bgcolor=\"@IIF(A&gt;2,'red','blue')\"/>");
  EXPECT_EQ(events.take(), "");
  ColumnStore store;
  ColumnFormat other;
  other.name = u"C";
  store.addColumn(other);
  DataSetOptions options;
  options.id = "other";
  site.objects["other"] = std::make_shared<MemoryDataSet>(std::move(store), options);
  control.put_DataID(u"other");
  EXPECT_EQ(events.take(), "OnError 4 Expression Error; ");
  control.Refresh();
  EXPECT_EQ(events.take(), "");
  EXPECT_EQ(control.parts().config.background.dynamicFlags, 0u);
  control.put_DataID(u"data");
  EXPECT_EQ(events.take(), "");
  EXPECT_NE(control.parts().config.background.dynamicFlags, 0u);
}

// The listener of the report refreshes the grid in the middle of a Refresh.
TEST_F(ExpressionsTest, AListenerMayRefreshInsideTheReport) {
  addData(4);
  open();
  control.put_IndicatorInfo(u"<I color=\"@A\" bgcolor=\"@A\"/>");
  addData(4)->SetCurrentRow(2);
  ColumnStore store;
  ColumnFormat other;
  other.name = u"C";
  store.addColumn(other);
  DataSetOptions options;
  options.id = "other";
  site.objects["other"] = std::make_shared<MemoryDataSet>(std::move(store), options);
  events.inside = [this] { control.Refresh(); };
  control.put_DataID(u"other");
  EXPECT_EQ(events.take(), "OnError 4 Expression Error; ");
  EXPECT_EQ(control.parts().config.columns.count(), 2);
}

class GridHostTest : public ControlTest {
 protected:
  GridHostTest() { engine.setHost(host); }

  std::string evaluate(const char16_t* text, std::int32_t row) {
    const XExprProgram* program = engine.compile(text);
    if (!program) return "does not compile";
    state.ExprRow = row;
    const XValue* value = program->evaluate(state);
    return value ? literalText(*value) : "fails";
  }
  const DataLink& link() const { return control.parts().link; }

  GridExpressionHost host{link()};
  ExpressionEngine engine;
  EvalState state;
};

TEST_F(GridHostTest, VariablesAndSums) {
  const auto data = addData(4);
  data->SetValue(2, 2, XValue::ofText(u"changed"));
  data->InsertRow(5);
  open();
  engine.addColumnName(u"A");
  engine.addColumnName(u"B");
  const struct {
    const char16_t* text;
    std::int32_t row;
    const char* result;
  } rows[] = {
      {u"A", 3, "3"},
      {u"A/2", 3, "1.5"},
      {u"B", 2, "\"changed\""},
      {u"A", 99, "<empty>"},
      {u"CURLEVEL", 1, "0"},
      {u"CURREC", 3, "3"},
      {u"FIRSTREC", 3, "1"},
      {u"LASTREC", 3, "5"},
      {u"RECCOUNT", 3, "5"},
      {u"REALCOUNT", 3, "5"},
      {u"NEXTREC", 3, "4"},
      {u"NEXTREC", 5, "0"},
      {u"PREVREC", 3, "2"},
      {u"PREVREC", 1, "0"},
      {u"STATUS", 1, "\"N\""},
      {u"STATUS", 2, "\"U\""},
      {u"STATUS", 5, "\"I\""},
      {u"SYSSTATUS", 2, "\"U\""},
      {u"COLVAL(1,4)", 1, "4"},
      {u"COLVAL(2,)", 2, "\"changed\""},
      {u"GFSUM(A)", 1, "10"},
      {u"GFMAX(A)", 1, "4"},
      {u"GFMIN(\"A\")", 1, "1"},
      {u"GFSUBSUM(A)", 1, "10"},
      {u"GFSUBSUM(A,2)", 1, "10"},
      {u"GFSUBREALCOUNT()", 1, "5"},
      {u"GFSUM(B)", 1, "0"},
      {u"GFMAX(B)", 1, "0"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(evaluate(row.text, row.row), row.result) << XString(row.text).toUtf8() << " in " << row.row;
  }
}

TEST_F(GridHostTest, AnEmptyDataSetHasNoFirstRow) {
  addData(0);
  open();
  EXPECT_EQ(evaluate(u"FIRSTREC", 0), "0");
  EXPECT_EQ(evaluate(u"LASTREC", 0), "0");
}

TEST_F(GridHostTest, WithoutADataSetEveryReaderFails) {
  XValue value = XValue::ofText(u"old");
  EXPECT_EQ(host.ColumnIndex(u"A"), -1);
  EXPECT_EQ(host.ColumnValue(1, 1, value), E_NOTIMPL);
  EXPECT_EQ(host.KeywordValue(1, 0, value), E_NOTIMPL);
  EXPECT_EQ(host.AggregateValue(1, Aggregate::Sum, u"A", -1, value), E_NOTIMPL);
  EXPECT_EQ(value.asText().toUtf8(), "old");
  addData(2);
  open();
  EXPECT_EQ(host.KeywordValue(1, 10, value), E_NOTIMPL);
  EXPECT_EQ(host.KeywordValue(1, -1, value), E_NOTIMPL);
  EXPECT_EQ(host.AggregateValue(1, static_cast<Aggregate>(11), u"A", -1, value), E_NOTIMPL);
  EXPECT_EQ(host.AggregateValue(1, static_cast<Aggregate>(0), u"A", -1, value), E_NOTIMPL);
}

}  // namespace
}  // namespace tessera::test
