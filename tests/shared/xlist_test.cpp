#include "shared/xlist.h"

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <vector>

#include "shared/counted_memory.h"

namespace tessera {
namespace {

// No default constructor, and every living one is counted. The value 13 does not let itself be copied.
class Counted {
 public:
  explicit Counted(int value) : value_(value) { ++living; }
  Counted(const Counted& other) : value_(other.value_) {
    if (value_ == 13) throw std::runtime_error("unlucky");
    ++living;
  }
  ~Counted() { --living; }
  Counted& operator=(const Counted&) = default;
  int value() const { return value_; }

  static inline int living = 0;

 private:
  int value_;
};

struct alignas(64) Wide {
  int value;
};

std::vector<int> valuesOf(const XList<Counted>& list) {
  std::vector<int> values;
  for (const Counted& element : list) values.push_back(element.value());
  std::vector<int> backward;
  for (const auto* at = list.tail(); at; at = XList<Counted>::prevOf(const_cast<XList<Counted>::Node*>(at))) {
    backward.insert(backward.begin(), at->value().value());
  }
  EXPECT_EQ(values, backward);
  EXPECT_EQ(static_cast<std::size_t>(list.count()), values.size());
  return values;
}

using Values = std::vector<int>;

TEST(XList, KeepsOrder) {
  XList<Counted> list;
  EXPECT_EQ(valuesOf(list), Values{});
  auto* three = list.addTail(Counted(3));
  list.addHead(Counted(1));
  list.insertBefore(three, Counted(2));
  list.insertBefore(nullptr, Counted(4));
  EXPECT_EQ(valuesOf(list), (Values{1, 2, 3, 4}));
  list.moveToHead(three);
  EXPECT_EQ(valuesOf(list), (Values{3, 1, 2, 4}));
  list.moveToHead(list.tail());
  EXPECT_EQ(valuesOf(list), (Values{4, 3, 1, 2}));
  list.moveToHead(list.head());
  EXPECT_EQ(valuesOf(list), (Values{4, 3, 1, 2}));
  list.remove(three);
  list.remove(list.head());
  list.remove(list.tail());
  EXPECT_EQ(valuesOf(list), Values{1});
  list.remove(list.head());
  EXPECT_EQ(valuesOf(list), Values{});
  EXPECT_EQ(Counted::living, 0);
}

TEST(XList, NodesArePooledInBlocksOfTen) {
  XList<Counted> list;
  EXPECT_EQ(list.blockCount(), 0);
  for (int i = 0; i < 10; ++i) list.addTail(Counted(i + 100));
  EXPECT_EQ(list.blockCount(), 1);
  for (int i = 0; i < 1000; ++i) {
    list.remove(list.head());
    list.addTail(Counted(i + 100));
  }
  EXPECT_EQ(list.blockCount(), 1);
  list.addTail(Counted(1));
  EXPECT_EQ(list.blockCount(), 2);

  list.removeAll();
  EXPECT_EQ(list.blockCount(), 0);
  EXPECT_EQ(Counted::living, 0);
  list.addTail(Counted(5));
  EXPECT_EQ(valuesOf(list), Values{5});
}

TEST(XList, PositionsAreStableAndAligned) {
  XList<std::unique_ptr<int>> list;  // a type that only moves
  auto* position = list.addTail(std::make_unique<int>(7));
  for (int i = 0; i < 100; ++i) list.addHead(std::make_unique<int>(i));
  while (list.head() != position) list.remove(list.head());
  XList<std::unique_ptr<int>> moved(std::move(list));
  EXPECT_EQ(moved.head(), position);
  EXPECT_EQ(*moved.head()->value(), 7);
  XList<Wide> wide;
  for (int i = 0; i < 12; ++i) {
    const auto address = reinterpret_cast<std::uintptr_t>(&wide.addTail({i})->value());
    EXPECT_EQ(address % alignof(Wide), 0u);
  }
}

TEST(XList, ALoopMayWriteAndRemoveTheCurrentElement) {
  XList<Counted> list;
  for (int i = 1; i <= 6; ++i) list.addTail(Counted(i));
  for (auto at = list.begin(); at != list.end(); ++at) {
    if (at->value() % 2 == 0) {
      list.remove(at.position());
    } else {
      *at = Counted(at->value() * 10);
    }
  }
  EXPECT_EQ(valuesOf(list), (Values{10, 30, 50}));
}

TEST(XList, CopiesAreDeepAndMovesTakeTheNodes) {
  XList<Counted> list;
  list.addTail(Counted(1));
  list.addTail(Counted(2));
  XList<Counted> copy(list);
  copy.head()->value() = Counted(9);
  EXPECT_EQ(valuesOf(list), (Values{1, 2}));
  const XList<Counted>& itself = list;
  list = itself;
  EXPECT_EQ(valuesOf(list), (Values{1, 2}));
  list = copy;
  EXPECT_EQ(valuesOf(list), (Values{9, 2}));
  list = std::move(copy);
  EXPECT_EQ(valuesOf(list), (Values{9, 2}));
  EXPECT_TRUE(copy.empty());  // NOLINT(bugprone-use-after-move): what is left is part of the contract
  list.removeAll();
  EXPECT_EQ(Counted::living, 0);
}

TEST(XList, AFailedCopyLosesNothing) {
  const std::int64_t before = test::livingAllocations();
  XList<Counted> list;
  for (int i = 0; i < 9; ++i) list.addTail(Counted(i));
  const Counted unlucky(13);
  for (int i = 0; i < 3; ++i) EXPECT_THROW(list.addTail(unlucky), std::runtime_error);
  list.addTail(Counted(9));
  EXPECT_EQ(list.blockCount(), 1);
  EXPECT_EQ(list.count(), 10);
  list.head()->value() = unlucky;
  EXPECT_THROW(XList<Counted>{list}, std::runtime_error);
  list.removeAll();
  EXPECT_EQ(Counted::living, 1);
  EXPECT_EQ(test::livingAllocations(), before);
}

}  // namespace
}  // namespace tessera
