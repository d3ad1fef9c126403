// Values as they are written in an expression.

#pragma once

#include <string>

#include <tessera/xvalue.h>

namespace tessera {

// UTF-8: a number with up to 15 digits, "text" with escapes, {2024-03-09 14:30:05}, .T. or .F.; the name of
// the type in angle brackets for a value that cannot be written.
std::string literalText(const XValue& value);

}  // namespace tessera
