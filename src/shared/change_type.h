// Changes of a value's type.

#pragma once

#include <tessera/xvalue.h>

namespace tessera {

// `result` takes `value` as type `to`; `result` may be `value` itself. Numbers round half to even when they
// lose a fraction; a text must be wholly a number (or date, or "True"/"False") to become one. Numbers become
// text with up to 15 significant digits and no exponent for ordinary sizes, dates in ISO 8601 form, logical
// values "True" and "False"; VT_EMPTY is 0 or the empty text. On failure the result is left alone:
// DISP_E_TYPEMISMATCH when the types do not convert, DISP_E_OVERFLOW when the value does not fit.
HResult changeType(const XValue& value, VarType to, XValue& result);

// The text of a value as changeType() makes it, the empty text where no text can be made.
XString textOf(const XValue& value);

}  // namespace tessera
