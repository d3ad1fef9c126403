#include <tessera/xvalue.h>

namespace tessera {

XValue& XValue::operator=(const XValue& other) {
  if (this == &other) return *this;
  if (other.type_ == VT_BSTR) {
    setText(other.text_);
  } else {
    setBits(other.type_, other.bits_);
  }
  return *this;
}

XValue& XValue::operator=(XValue&& other) noexcept {
  if (this == &other) return *this;
  type_ = std::exchange(other.type_, VT_EMPTY);
  bits_ = other.bits_;
  // The spare room of this value is worth more than that of the other.
  if (type_ == VT_BSTR) text_ = std::move(other.text_);
  return *this;
}

XValue XValue::ofInt(std::int32_t value) {
  XValue result;
  result.setInt(value);
  return result;
}

XValue XValue::ofInt64(std::int64_t value) {
  XValue result;
  result.setInt64(value);
  return result;
}

XValue XValue::ofDouble(double value) {
  XValue result;
  result.setDouble(value);
  return result;
}

XValue XValue::ofBool(bool value) {
  XValue result;
  result.setBool(value);
  return result;
}

XValue XValue::ofDate(double days) {
  XValue result;
  result.setDate(days);
  return result;
}

XValue XValue::ofError(HResult code) {
  XValue result;
  result.setError(code);
  return result;
}

XValue XValue::ofText(std::u16string_view text) {
  XValue result;
  result.setText(text);
  return result;
}

XValue XValue::null() {
  XValue result;
  result.setNull();
  return result;
}

void XValue::setText(std::u16string_view text) {
  text_.assign(text);
  finishText(text_.empty() && !text.empty());
}

void XValue::setText(const XString& text) {
  const bool expected = !text.empty();
  text_ = text;
  finishText(text_.empty() && expected);
}

void XValue::setNarrow(std::string_view utf8) {
  text_.assignNarrow(utf8);
  finishText(text_.empty() && !utf8.empty());
}

void XValue::setInteger(VarType type, std::int64_t value) {
  switch (type) {
    case VT_I1:
      return setBits(type, static_cast<std::int8_t>(value));
    case VT_UI1:
      return setBits(type, static_cast<std::uint8_t>(value));
    case VT_I2:
    case VT_BOOL:
      return setBits(type, static_cast<std::int16_t>(value));
    case VT_UI2:
      return setBits(type, static_cast<std::uint16_t>(value));
    case VT_I4:
    case VT_ERROR:
      return setBits(type, static_cast<std::int32_t>(value));
    case VT_UI4:
      return setBits(type, static_cast<std::uint32_t>(value));
    default:
      return setBits(type, value);
  }
}

const XString& XValue::emptyText() {
  static const XString empty;
  return empty;
}

// A string that runs out of memory is left empty.
void XValue::finishText(bool ranOutOfMemory) {
  type_ = VT_BSTR;
  if (ranOutOfMemory) setError(E_OUTOFMEMORY);
}

bool operator==(const XValue& a, const XValue& b) {
  if (a.type() != b.type()) return false;
  switch (a.type()) {
    case VT_EMPTY:
    case VT_NULL:
      return true;
    case VT_R4:
    case VT_R8:
    case VT_DATE:
      return a.asDouble() == b.asDouble();
    case VT_BSTR:
      return a.asText() == b.asText();
    default:
      return a.asInt64() == b.asInt64();
  }
}

}  // namespace tessera
