// The key codes of Qt's keys.

#pragma once

#include <cstdint>

#include "platform/key_codes.h"

class QKeyEvent;

namespace tessera {

// 0 for a key that the messages do not know. Punctuation has the codes of the American keyboard.
std::int32_t keyCode(const QKeyEvent& event);

}  // namespace tessera
