#include "rows/row_list.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace tessera {
namespace {

std::vector<std::int32_t> inOrder(const RowList& list) {
  std::vector<std::int32_t> rows;
  list.visitWhile([&rows](Row row) {
    rows.push_back(row.number);
    return true;
  });
  return rows;
}

// One step on a list and on a plain vector.
void step(std::uint32_t kind, Row row, RowList& list, std::vector<std::int32_t>& plain) {
  const auto stands = std::find(plain.begin(), plain.end(), row.number) != plain.end();
  if (kind < 4) {
    list.putFirst(row);
    std::erase(plain, row.number);
    plain.insert(plain.begin(), row.number);
  } else if (kind < 8 && !stands) {
    list.append(row);
    plain.push_back(row.number);
  } else if (kind < 9) {
    list.remove(row);
    std::erase(plain, row.number);
  } else {
    const RowsChanged change = kind == 10   ? RowsChanged::inserted(row.number)
                               : kind == 11 ? RowsChanged::cutTo(row.number)
                                            : RowsChanged::deleted(row.number);
    list.renumber(change);
    for (std::int32_t& number : plain) number = change({number}).number;
    std::erase(plain, 0);
  }
}

TEST(RowList, IsAVectorThatKnowsItsRows) {
  std::mt19937 random(3);
  for (int round = 0; round < 60; ++round) {
    RowList list;
    std::vector<std::int32_t> plain;
    std::int32_t last = 50;
    for (int i = 0; i < 120; ++i) {
      // Often a neighbour, so that runs grow both ways.
      last = random() % 3 != 0 ? std::max(last + (round % 2 == 0 ? 1 : -1), 1)
                               : 1 + static_cast<std::int32_t>(random() % 100);
      step(random() % (i < 100 ? 11 : 12), {last}, list, plain);
      ASSERT_EQ(inOrder(list), plain);
      ASSERT_EQ(list.size(), static_cast<std::int64_t>(plain.size()));
      for (std::int32_t row = 0; row < 110; row += 3) {
        ASSERT_EQ(list.holds({row}), std::find(plain.begin(), plain.end(), row) != plain.end()) << row;
      }
    }
  }
}

}  // namespace
}  // namespace tessera
