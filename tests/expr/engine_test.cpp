// The life of programs, and what runs of them cost.

#include <functional>
#include <gtest/gtest.h>
#include <thread>

#include "expr/sample_rows.h"
#include "shared/counted_memory.h"

namespace tessera::test {
namespace {

TEST(ExpressionEngine, WarmRunsAllocateNothing) {
  SampleEngine sample;
  const char16_t* const texts[] = {u"AMOUNT*2+CURREC-1",
                                   u"IIF(AMOUNT>100,\"red\",\"black\")",
                                   u"IIF(AMOUNT>100,NAME,REGION)",
                                   u"(AMOUNT>100) AND (NAME=\"Kim\")",
                                   u"MAX(NAME,REGION)",
                                   u"DECODE(REGION,\"North\",NAME,\"-\")",
                                   u"MAX(AMOUNT,GFSUBCOUNT(),3)",
                                   u"STATUS",
                                   u"UPPER(NAME)+\": \"+LEFT(REGION,2)",
                                   u"NAME $ \"AnnKim\""};
  std::vector<const XExprProgram*> programs;
  for (const char16_t* text : texts) programs.push_back(sample.engine.compile(text));
  XValue kept;
  const auto runAll = [&] {
    for (std::int32_t row = 1; row <= SampleRows::rowCount; ++row) {
      sample.state.ExprRow = row;
      for (const XExprProgram* program : programs) {
        // A caller who keeps the value lets go of it before the next run.
        kept.setEmpty();
        const XValue* value = program->evaluate(sample.state);
        ASSERT_NE(value, nullptr);
        kept = *value;
      }
    }
  };
  // Slots go from program to program: the second round finds every buffer at its full size.
  runAll();
  runAll();
  runAll();
  const std::int64_t before = allocationCount();
  runAll();
  EXPECT_EQ(allocationCount(), before);
}

TEST(ExpressionEngine, ASumOfManyTextsKeepsOneText) {
  SampleEngine sample;
  std::u16string text = u"'a'";
  for (int i = 1; i < 40; ++i) text += u"+'a'";
  const XExprProgram* program = sample.engine.compile(text);
  const std::int64_t before = livingAllocations();
  ASSERT_EQ(program->evaluate(sample.state)->asText().length(), 40);
  EXPECT_LT(livingAllocations() - before, 10);
}

TEST(ExpressionEngine, ARunLeavesTheRowAlone) {
  SampleEngine sample;
  sample.evaluate("COLVAL(3,1)+NEXTREC");
  EXPECT_EQ(sample.state.ExprRow, 2);
}

TEST(ExpressionEngine, AFailedRunHasNoValueAndTheNextOneIsClean) {
  SampleEngine sample;
  const XExprProgram* failing = sample.engine.compile(u"LOG(0)");
  const XExprProgram* fine = sample.engine.compile(u"1");
  EXPECT_EQ(failing->evaluate(sample.state), nullptr);
  ASSERT_TRUE(sample.state.error.has_value());
  EXPECT_EQ(sample.state.error->code, ExprErrorCode::LogDomain);
  EXPECT_NE(fine->evaluate(sample.state), nullptr);
  EXPECT_FALSE(sample.state.error.has_value());
}

TEST(ExpressionEngine, ThreadsShareAProgram) {
  SampleEngine sample;
  const XExprProgram* program = sample.engine.compile(u"NAME+\"/\"+TOSTRING(AMOUNT)+CMONTH({2024-03-09})");
  ASSERT_NE(program, nullptr);
  std::array<std::string, 4> results;
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < results.size(); ++i) {
    threads.emplace_back([&, i] {
      EvalState state;
      state.ExprRow = static_cast<std::int32_t>(i % 3) + 1;
      for (int round = 0; round < 2000; ++round) {
        const XValue* value = program->evaluate(state);
        if (value && round == 1999) results[i] = value->asText().toUtf8();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(results[0], "Ann/100March");
  EXPECT_EQ(results[1], "Kim/250March");
  EXPECT_EQ(results[2], "Lee/40March");
  EXPECT_EQ(results[3], "Ann/100March");
}

// A data set that makes the grid evaluate, and even rebuild itself, before it answers.
class CallingBackRows : public SampleRows {
 public:
  HResult ColumnValue(std::int32_t row, std::int32_t column, XValue& result) const override {
    if (inside) std::exchange(inside, nullptr)();
    return SampleRows::ColumnValue(row, column, result);
  }
  mutable std::function<void()> inside;
};

TEST(ExpressionEngine, RunsMayNestAndProgramsMayGoInTheMiddle) {
  CallingBackRows rows;
  ExpressionEngine engine;
  engine.setHost(rows);
  for (const XString& name : rows.columns) engine.addColumnName(name);
  const XExprProgram* outer = engine.compile(u"NAME+\"-\"+REGION+\"-\"+NAME");
  EvalState state;
  state.ExprRow = 1;
  std::string inner;
  rows.inside = [&] {
    engine.freePrograms(state);
    const XExprProgram* program = engine.compile(u"\"in \"+NAME+LEFT(REGION,1)");
    if (const XValue* value = program->evaluate(state)) inner = value->asText().toUtf8();
  };
  const XValue* value = outer->evaluate(state);
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->asText().toUtf8(), "Ann-North-Ann");
  EXPECT_EQ(inner, "in AnnN");
  EXPECT_FALSE(state.isRunning());
  engine.freePrograms(state);
}

TEST(ExpressionEngine, NamesThatAnotherOneStartsWithAreOne) {
  SampleEngine sample;
  sample.engine.addColumnName(u"AMOUNT2");
  sample.engine.addColumnName(u"amount");
  EXPECT_NE(sample.engine.compile(u"AMOUNT2"), nullptr);
  sample.engine.clearColumnNames();
  EXPECT_EQ(sample.engine.compile(u"AMOUNT"), nullptr);
  ASSERT_EQ(sample.engine.errors().size(), 1u);
  EXPECT_EQ(sample.engine.errors()[0].code, ExprErrorCode::UnknownVariable);
}

}  // namespace
}  // namespace tessera::test
