// How far a load is, and whether it should go on.

#pragma once

#include <cstdint>
#include <functional>

namespace tessera {

// Called again and again while rows are read, every few milliseconds. `total` is 0 while nobody can know it;
// it may become known later, and `done` then starts again. False ends the load with a fault.
using LoadProgress = std::function<bool(std::int64_t done, std::int64_t total)>;

inline constexpr const char* cancelledReason = "the reading was cancelled";

}  // namespace tessera
