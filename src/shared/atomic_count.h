// Counts that several threads raise and lower, kept in plain integers: a record of them can be copied, and
// made at compile time.

#pragma once

#include <cstdint>

namespace tessera::atomic_count {

// By the compilers' own operations: not every standard library has std::atomic_ref.
inline std::int32_t load(const std::int32_t& count) noexcept {
  return __atomic_load_n(&count, __ATOMIC_ACQUIRE);
}
// For an owner that no other thread shares the count with.
inline void store(std::int32_t& count, std::int32_t value) noexcept {
  __atomic_store_n(&count, value, __ATOMIC_RELAXED);
}
inline void raise(std::int32_t& count) noexcept { __atomic_fetch_add(&count, 1, __ATOMIC_RELAXED); }
// The count before.
inline std::int32_t lower(std::int32_t& count) noexcept {
  return __atomic_fetch_sub(&count, 1, __ATOMIC_ACQ_REL);
}

}  // namespace tessera::atomic_count
