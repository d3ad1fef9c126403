#include "shared/counted_memory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::int64_t> allocations = 0;
std::atomic<std::int64_t> living = 0;
std::atomic<bool> dry = false;

void* take(std::size_t size) {
  ++allocations;
  ++living;
  return std::malloc(size > 0 ? size : 1);
}

void give(void* memory) {
  if (memory) --living;
  std::free(memory);
}

void* takeOrThrow(std::size_t size) {
  if (void* memory = take(size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

namespace tessera::test {

std::int64_t allocationCount() { return allocations; }
std::int64_t livingAllocations() { return living; }
NoMemory::NoMemory() { dry = true; }
NoMemory::~NoMemory() { dry = false; }

}  // namespace tessera::test

void* operator new(std::size_t size) { return takeOrThrow(size); }
void* operator new[](std::size_t size) { return takeOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return dry ? nullptr : take(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return dry ? nullptr : take(size); }
void operator delete(void* memory) noexcept { give(memory); }
void operator delete[](void* memory) noexcept { give(memory); }
void operator delete(void* memory, std::size_t) noexcept { give(memory); }
void operator delete[](void* memory, std::size_t) noexcept { give(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { give(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { give(memory); }
