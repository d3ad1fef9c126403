// Watches the heap of this test program, and makes it run dry.

#pragma once

#include <cstdint>

namespace tessera::test {

// Allocations of the whole program so far.
std::int64_t allocationCount();
// Those that were not given back yet.
std::int64_t livingAllocations();

// While one is alive, allocations that may fail do fail.
class NoMemory {
 public:
  NoMemory();
  ~NoMemory();
};

}  // namespace tessera::test
