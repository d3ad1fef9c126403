// Reading cells into arguments that were used before takes no memory.

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

#include "components/data_set_fixture.h"

namespace {
std::atomic<long> allocations{0};
}

void* operator new(std::size_t size) {
  ++allocations;
  if (void* block = std::malloc(size ? size : 1)) return block;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  ++allocations;
  return std::malloc(size ? size : 1);
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }

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
  const long before = allocations;
  for (int round = 0; round < 3; ++round) readAll();
  EXPECT_EQ(allocations - before, 0);
  EXPECT_GT(before, 0) << "nothing was counted";
}

}  // namespace
}  // namespace tessera
