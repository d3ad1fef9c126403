// Long random histories of rows against what is told of them by plainer means.

#include <algorithm>
#include <numeric>
#include <random>

#include "components/data_set_fixture.h"

namespace tessera {
namespace {

using testing::answer;
using testing::obey;
using testing::rowCount;
using testing::storeOf;
using testing::textAt;
using testing::valueAt;
using testing::wide;

class Random {
 public:
  int operator()(int bound) { return static_cast<int>(engine_() % static_cast<unsigned>(bound)); }

 private:
  std::mt19937 engine_{11};
};

// A set in which rows come, go, change and are found must hold what a plain list of texts holds.
TEST(Rows, AgreeWithAPlainListOverRandomHistories) {
  for (const int distinct : {3, 40, 4000}) {
    Random pick;
    MemoryDataSet rows(storeOf("t,n\nstart,0\n"));
    std::vector<std::string> texts = {"start"};
    for (int step = 0; step < 6000; ++step) {
      const int kind = pick(10), index = pick(static_cast<int>(texts.size()) + 1);
      if (kind < 2) {
        ASSERT_EQ(rows.InsertRow(index + 1), index + 1);
        texts.insert(texts.begin() + index, "");
      } else if (index < static_cast<int>(texts.size()) && kind < 4) {
        rows.DeleteRow(index + 1);
        texts.erase(texts.begin() + index);
      } else if (index < static_cast<int>(texts.size())) {
        std::string& text = texts[static_cast<std::size_t>(index)];
        text = std::to_string(pick(distinct)) + std::string(pick(9) == 0 ? 300u : 0u, 'x');
        rows.SetText(index + 1, 1, wide(text));
      }
      if (pick(50) == 0) {
        obey(rows, pick(2) ? "sort +t" : "sort -t");
        for (std::size_t i = 0; i < texts.size(); ++i)
          texts[i] = textAt(rows, static_cast<std::int32_t>(i) + 1, 1);
      }
      const std::string wanted = std::to_string(pick(distinct));
      const auto found = std::find(texts.begin(), texts.end(), wanted);
      std::int32_t row = -77;
      rows.FindRow(u"t", wide(wanted), row);
      ASSERT_EQ(row, found == texts.end() ? 0 : found - texts.begin() + 1) << distinct << " step " << step;
      if (step % 97 != 0) continue;
      ASSERT_EQ(rowCount(rows), static_cast<std::int32_t>(texts.size()));
      for (std::size_t i = 0; i < texts.size(); ++i)
        ASSERT_EQ(textAt(rows, static_cast<std::int32_t>(i) + 1, 1), texts[i]) << step;
    }
    // Left-over text is packed away: a few hundred short texts do not hold megabytes.
    EXPECT_LT(rows.store().memoryBytes(), std::size_t{1} << 20);
  }
}

// The sort by pieces of cells against a stable sort that compares whole cells.
TEST(Sort, AgreesWithAStableSortOfWholeCells) {
  Random pick;
  const char* const longs[] = {"",
                               "-9223372036854775808",
                               "-9223372036854775807",
                               "9223372036854775807",
                               "0",
                               "-1",
                               "4294967296",
                               "4294967295"};
  std::string csv = "id,t,l,d\n";
  for (int row = 0; row < 3000; ++row) {
    std::string text;
    for (int length = pick(23); length > 0; --length)
      text += pick(12) == 0 ? "\xC3\xBF" : pick(9) == 0 ? "b" : "a";
    const std::string decimal = pick(9) == 0 ? "" : std::to_string(pick(7) - 3) + ".5";
    csv += std::to_string(row) + "," + text + "," + longs[pick(8)] + "," + decimal + "\n";
  }
  for (const std::string sort : {"+t", "-t", "+l,-t", "-l,+d", "+d,-l,+t"}) {
    MemoryDataSet rows(storeOf(csv));
    const ColumnStore& store = rows.store();
    const auto keys = parseSortKeys(wide(sort).view(), store);
    std::vector<std::int32_t> expected(static_cast<std::size_t>(store.recordCount()));
    std::iota(expected.begin(), expected.end(), 0);
    std::stable_sort(expected.begin(), expected.end(), [&](std::int32_t a, std::int32_t b) {
      for (const SortKey& key : *keys) {
        const std::int32_t order = store.column(key.column).compare(a, b);
        if (order != 0) return (order < 0) != key.descending;
      }
      return false;
    });
    obey(rows, "sort " + sort);
    for (std::int32_t row = 1; row <= rowCount(rows); ++row)
      ASSERT_EQ(rows.entryAt(row), expected[static_cast<std::size_t>(row) - 1]) << sort << " row " << row;
  }
}

// Whatever was done to the rows, the sums shown are those of the rows above.
TEST(Subtotals, AgreeWithSumsMadeByHandOverRandomHistories) {
  Random pick;
  MemoryDataSet rows(storeOf("REGION,CITY,N\nN,a,1\nN,a,2\nN,b,3\nS,b,4\nS,c,5\nS,c,6\n"),
                     {.keepDeleted = true, .subsum = "2:REGION,1:CITY"});
  for (int step = 0; step < 4000; ++step) {
    const std::string row = " " + std::to_string(pick(rowCount(rows) + 1) + 1);
    const int kind = pick(20);
    if (kind < 3)
      obey(rows, "insert" + row);
    else if (kind < 6)
      obey(rows, "delete" + row);
    else if (kind < 8)
      obey(rows, pick(12) > 0 ? "commit" : "accept");
    else if (kind < 12)
      obey(rows, "set" + row + (pick(2) ? " 1 " : " 2 ") + static_cast<char>('a' + pick(3)));
    else
      obey(rows, "set" + row + " 3 " + std::to_string(pick(100)));
    std::int64_t sums[] = {0, 0, 0};  // by level
    for (std::int32_t r = 1; r <= rowCount(rows); ++r) {
      const auto level = answer(rows, &DataSetControl::GetLevel, r);
      if (level == 0) {
        const bool counts = answer(rows, &DataSetControl::GetStatus, r) != rowDeleted;
        for (std::int64_t& each : sums) each += counts ? valueAt(rows, r, 3).asInt64() : 0;
        continue;
      }
      ASSERT_EQ(valueAt(rows, r, 3).asInt64(), sums[level]) << step << " row " << r;
      XValue sum;
      rows.SumRange(3, answer(rows, &DataSetControl::GroupStart, r, level),
                    answer(rows, &DataSetControl::GroupEnd, r, level), sum);
      ASSERT_EQ(sum.asInt64(), sums[level]) << step << " row " << r;
      std::fill_n(sums, level + 1, 0);
    }
  }
}

}  // namespace
}  // namespace tessera
