#include "config/kept_expressions.h"

#include <gtest/gtest.h>

#include "config/background_info.h"
#include "config/indicator_info.h"
#include "fake_info_services.h"

namespace tessera {
namespace {

// What a Refresh does with a record.
template <class Record>
std::int32_t refresh(FakeInfoServices& services, Record& record) {
  record.dynamicFlags = 0;
  record.expressions = {};
  return record.kept.compileInto(record,
                                 [&](const XString& text) { return services.compileExpression(text); });
}

TEST(KeptExpressions, ALiteralEndsThem) {
  FakeInfoServices services;
  services.addProgram("x", XValue::ofText(u"red"));
  BackgroundRecord record;
  std::int32_t border = 0;
  ASSERT_TRUE(parseBackgroundInfo(services, u"<B bgcolor='@x' bordercolor='@x'/>", record, border).ok);
  ASSERT_TRUE(parseBackgroundInfo(services, u"<B bgcolor='red'/>", record, border).ok);
  EXPECT_EQ(refresh(services, record), 0);
  EXPECT_EQ(record.dynamicFlags, 0x04u);
}

TEST(KeptExpressions, AreCompiledAgainAndAFailureCountsOnce) {
  FakeInfoServices services;
  IndicatorRecord record;
  services.addProgram("x", XValue::ofText(u"red"));
  ASSERT_TRUE(parseIndicatorInfo(services, u"<I color='@x'/>", record));
  EXPECT_EQ(refresh(services, record), 0);
  EXPECT_EQ(record.dynamicFlags, 0x01u);
  EXPECT_EQ(record.expressions[0], services.programs.at("x").get());
  services.programs.clear();
  EXPECT_EQ(refresh(services, record), 1);
  EXPECT_EQ(refresh(services, record), 0);
  EXPECT_EQ(record.dynamicFlags, 0u);
}

}  // namespace
}  // namespace tessera
