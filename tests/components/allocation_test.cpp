// Reading cells into arguments that were used before takes no memory.

#include "components/data_set_fixture.h"
#include "shared/counted_memory.h"

namespace tessera {
namespace {

TEST(Allocations, NoneForWarmArguments) {
  const std::string longText(1000, 'x');
  MemoryDataSet rows(
      testing::storeOf("k,n,l,d,t\na,1,5000000000,1.5,\xE2\x82\xAC text\na,2,1,2.25," + longText + "\n"),
      {.subsum = "1:k"});
  XString text;
  XValue value;
  const XString name(u"t");
  const auto readAll = [&] {
    for (std::int32_t row = 1; row <= 3; ++row) {
      for (std::int32_t column = 1; column <= 5; ++column) {
        rows.GetText(row, column, text);
        rows.GetValue(row, column, value);
      }
      rows.GetTextByName(row, name, text);
      rows.GetValueByName(row, name, value);
    }
    rows.SumRange(2, 0, 0, value);
  };
  readAll();
  const std::int64_t before = test::allocationCount();
  for (int round = 0; round < 3; ++round) readAll();
  EXPECT_EQ(test::allocationCount(), before);
  EXPECT_GT(before, 0) << "nothing was counted";
}

}  // namespace
}  // namespace tessera
