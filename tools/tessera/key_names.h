// Keys by name.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tessera {

// The code of a key: a name, a letter, a digit or F1 to F12, without ASCII case; or the code itself, which
// has at least two digits.
std::optional<std::int32_t> keyOfName(std::u16string_view name);

}  // namespace tessera
