#include "rows/row_list.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "rows/row_view.h"

namespace tessera {
namespace {

// One step on a list and on a plain vector; `c` names the step, `node` its row.
void step(RowList& list, std::vector<RowNode*>& plain, char c, RowNode* node) {
  switch (c) {
    case 'b':
      list.push_back(node);
      plain.push_back(node);
      break;
    case 'f':
      list.putFirst(node);
      std::erase(plain, node);
      plain.insert(plain.begin(), node);
      break;
    case 'r':
      list.remove(node);
      std::erase(plain, node);
      break;
    case 'e':
      list.erase(list.begin());
      plain.erase(plain.begin());
      break;
    case 'i':
      list.removeIf([node](const RowNode* each) { return each < node; });
      std::erase_if(plain, [node](const RowNode* each) { return each < node; });
      break;
    default:
      list.clear();
      plain.clear();
  }
}

// Long enough to be sorted; the steps are mixed, and rows are pushed that stand there already.
TEST(RowList, IsAVectorThatKnowsItsRows) {
  auto nodes = std::make_unique<std::array<RowNode, 200>>();
  for (const std::string steps :
       {"b", "f", "bf", "bfr", "bbe", "bffre", "bbbbi", "bbfrei", "bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbc"}) {
    RowList list;
    std::vector<RowNode*> plain;
    std::uint32_t random = 1;
    for (int round = 0; round < 600; ++round) {
      random = random * 1664525 + 1013904223;
      const char c = steps[(random >> 20) % steps.size()];
      if (c == 'e' && plain.empty()) continue;
      step(list, plain, c, &(*nodes)[(random >> 8) % 200]);
      ASSERT_EQ(static_cast<const std::vector<RowNode*>&>(list), plain) << steps << round;
      if (round % 3 != 0) continue;
      for (const RowNode& node : *nodes) {
        ASSERT_EQ(list.holds(&node), std::find(plain.begin(), plain.end(), &node) != plain.end())
            << steps << ' ' << round;
      }
    }
  }
}

TEST(RowList, OfMillionsAnswersWithoutWalking) {
  constexpr std::size_t count = 2'000'000;
  const auto nodes = std::make_unique<RowNode[]>(count + 1);
  RowList list;
  for (std::size_t i = 0; i < count; ++i) list.push_back(&nodes[count - i]);
  const auto start = std::chrono::steady_clock::now();
  for (std::size_t i = 0; i < 100'000; ++i) ASSERT_EQ(list.holds(&nodes[i]), i != 0);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
}  // namespace tessera
