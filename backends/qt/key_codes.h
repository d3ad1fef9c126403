// The codes of keys as the key messages carry them.

#pragma once

#include <QtGlobal>
#include <cstdint>

class QKeyEvent;

namespace tessera {

namespace keys {
inline constexpr std::int32_t backspace = 8, tab = 9, enter = 13, shift = 16, control = 17, escape = 27,
                              pageUp = 33, end = 35, home = 36, left = 37, right = 39, down = 40, c = 67,
                              v = 86;
}  // namespace keys

// 0 for a key that the messages do not know. Punctuation has the codes of the American keyboard.
std::int32_t keyCode(const QKeyEvent& event);

}  // namespace tessera
