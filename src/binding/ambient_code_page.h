// The code page of the host.

#pragma once

#include <cstdint>

#include <tessera/xvalue.h>

namespace tessera {

// The code page that narrow text is written in; `ambient` is the host's answer, which counts as a VT_UI4
// only.
constexpr std::int32_t codePageOf(std::uint32_t ambient) {
  switch (ambient) {
    case 50949:
    case 51949:
      return 949;
    case 50001:
      return 0;
    default:
      return static_cast<std::int32_t>(ambient);
  }
}

inline std::int32_t codePageOf(const XValue& ambient) {
  return ambient.type() == VT_UI4 ? codePageOf(static_cast<std::uint32_t>(ambient.asInt64())) : 0;
}

}  // namespace tessera
