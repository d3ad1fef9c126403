// The types of the expression language.

#pragma once

#include <tessera/xvalue.h>

namespace tessera {

// What code generation knows of a value before any run. All but `Any` are also types that a value has during
// a run.
enum class ExprType : std::uint16_t {
  None = VT_EMPTY,  // a date text that is no date
  Number = VT_R8,
  Date = VT_DATE,
  Text = VT_BSTR,
  Logical = VT_BOOL,
  Any = 13,  // only a run can tell
};

}  // namespace tessera
