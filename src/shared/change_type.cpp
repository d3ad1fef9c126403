#include "shared/change_type.h"

#include <cmath>
#include <limits>

#include "shared/calendar.h"
#include "shared/compare.h"
#include "shared/number_text.h"

namespace tessera {
namespace {

// Date numbers outside the calendar are no dates.
constexpr double earliestDate = -657435;
constexpr double latestDate = 2958466;

constexpr std::int32_t floatDigits = 7;
constexpr std::int32_t doubleDigits = 15;

struct IntegerRange {
  VarType type;
  std::int64_t least;
  std::uint64_t most;
};

template <class T>
constexpr IntegerRange rangeOf(VarType type) {
  return {type, std::numeric_limits<T>::min(), static_cast<std::uint64_t>(std::numeric_limits<T>::max())};
}

constexpr IntegerRange integerRanges[] = {
    rangeOf<std::int8_t>(VT_I1),    rangeOf<std::uint8_t>(VT_UI1),  rangeOf<std::int16_t>(VT_I2),
    rangeOf<std::uint16_t>(VT_UI2), rangeOf<std::int32_t>(VT_I4),   rangeOf<std::uint32_t>(VT_UI4),
    rangeOf<std::int64_t>(VT_I8),   rangeOf<std::uint64_t>(VT_UI8),
};

const IntegerRange* integerRange(VarType type) {
  for (const IntegerRange& range : integerRanges) {
    if (range.type == type) return &range;
  }
  return nullptr;
}

bool holds(const IntegerRange& range, const Number& number) {
  if (number.kind == Number::Kind::Unsigned) return static_cast<std::uint64_t>(number.integer) <= range.most;
  if (number.integer < 0) return number.integer >= range.least;
  return static_cast<std::uint64_t>(number.integer) <= range.most;
}

// Rounds half to even. What does not fit 64 bits is an overflow for every integer type.
HResult wholeNumber(const Number& number, Number& whole) {
  whole = number;
  if (number.kind != Number::Kind::Real) return S_OK;
  constexpr double twoTo63 = 9223372036854775808.0;
  const double rounded = std::nearbyint(number.real);
  if (!(rounded >= -twoTo63 && rounded < 2 * twoTo63)) return DISP_E_OVERFLOW;
  whole = rounded < twoTo63 ? Number::ofSigned(static_cast<std::int64_t>(rounded))
                            : Number::ofUnsigned(static_cast<std::uint64_t>(rounded));
  return S_OK;
}

// A text as a number: the number that it spells, else "True", "False" or a date.
HResult numberOfText(std::u16string_view text, VarType to, Number& number) {
  const HResult status = parseNumber(text, number);
  if (status != DISP_E_TYPEMISMATCH) return status;
  if (to == VT_BOOL && equalNoCase(text, u"true")) {
    number = Number::ofSigned(VARIANT_TRUE);
  } else if (to == VT_BOOL && equalNoCase(text, u"false")) {
    number = Number::ofSigned(VARIANT_FALSE);
  } else if (const auto date = to == VT_DATE ? parseIsoDate(text) : std::nullopt) {
    number = Number::ofReal(*date);
  } else {
    return DISP_E_TYPEMISMATCH;
  }
  return S_OK;
}

HResult numberOf(const XValue& value, VarType to, Number& number) {
  switch (value.type()) {
    case VT_EMPTY:
      number = Number::ofSigned(0);
      return S_OK;
    case VT_R4:
    case VT_R8:
    case VT_DATE:
      number = Number::ofReal(value.asDouble());
      return S_OK;
    case VT_UI8:
      number = Number::ofUnsigned(static_cast<std::uint64_t>(value.asInt64()));
      return S_OK;
    case VT_BSTR:
      return numberOfText(value.asText(), to, number);
    case VT_BOOL:
      number = Number::ofSigned(value.asRawBool());
      return S_OK;
    default:
      break;
  }
  if (!integerRange(value.type())) return DISP_E_TYPEMISMATCH;
  number = Number::ofSigned(value.asInt64());
  return S_OK;
}

HResult storeInteger(const Number& number, const IntegerRange& range, bool cut, XValue& result) {
  Number whole;
  const HResult status = wholeNumber(number, whole);
  if (!succeeded(status)) return status;
  if (!cut && !holds(range, whole)) return DISP_E_OVERFLOW;
  result.setInteger(range.type, whole.integer);
  return S_OK;
}

HResult storeFloat(double value, XValue& result) {
  if (std::isfinite(value) && std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
    return DISP_E_OVERFLOW;
  }
  result.setFloat(static_cast<float>(value));
  return S_OK;
}

HResult storeDate(double value, XValue& result) {
  if (!(value > earliestDate && value < latestDate)) return DISP_E_OVERFLOW;
  result.setDate(value);
  return S_OK;
}

HResult toNumber(const XValue& value, VarType to, XValue& result) {
  const IntegerRange* range = integerRange(to);
  if (!range && to != VT_BOOL && to != VT_R4 && to != VT_R8 && to != VT_DATE) return DISP_E_TYPEMISMATCH;
  Number number;
  const HResult status = numberOf(value, to, number);
  if (!succeeded(status)) return status;
  // The bits of "true" fill every width, the unsigned ones too.
  if (range) return storeInteger(number, *range, value.type() == VT_BOOL, result);
  if (to == VT_R4) return storeFloat(number.asReal(), result);
  if (to == VT_DATE) return storeDate(number.asReal(), result);
  if (to == VT_R8) {
    result.setDouble(number.asReal());
  } else {
    result.setBool(!number.isZero());
  }
  return S_OK;
}

HResult dateToText(double date, XValue& result) {
  const XString text = isoDateText(date);
  if (text.empty()) return DISP_E_OVERFLOW;
  result.setText(text);
  return S_OK;
}

HResult toText(const XValue& value, XValue& result) {
  switch (value.type()) {
    case VT_EMPTY:
      result.setText(u"");
      return S_OK;
    case VT_BOOL:
      result.setText(value.asBool() ? u"True" : u"False");
      return S_OK;
    case VT_R4:
      result.setNarrow(NumberText::ofReal(value.asDouble(), floatDigits).view());
      return S_OK;
    case VT_R8:
      result.setNarrow(NumberText::ofReal(value.asDouble(), doubleDigits).view());
      return S_OK;
    case VT_DATE:
      return dateToText(value.asDouble(), result);
    default:
      break;
  }
  Number number;
  const HResult status = numberOf(value, VT_BSTR, number);
  if (succeeded(status)) result.setNarrow(NumberText::ofWhole(number).view());
  return status;
}

}  // namespace

HResult changeType(const XValue& value, VarType to, XValue& result) {
  if (value.type() == to) {
    result = value;
    return S_OK;
  }
  return to == VT_BSTR ? toText(value, result) : toNumber(value, to, result);
}

XString textOf(const XValue& value) {
  XValue text;
  if (!succeeded(changeType(value, VT_BSTR, text))) return {};
  return text.asText();
}

}  // namespace tessera
