// The variant value that crosses every interface of the system.

#pragma once

#include <bit>
#include <cstdint>
#include <utility>

#include <tessera/status.h>
#include <tessera/xstring.h>

namespace tessera {

// Type codes as they stand in persisted streams and in the automation contract.
enum VarType : std::uint16_t {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,    // ten-thousandths in 64 bits; only in streams of others, read as VT_R8
  VT_DATE = 7,  // days since 30 December 1899; the fraction is the time of day
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_ERROR = 10,
  VT_BOOL = 11,     // 16 bits: VARIANT_TRUE is -1, VARIANT_FALSE 0
  VT_VARIANT = 12,  // any type, in tables of arguments: no value has it
  VT_UNKNOWN = 13,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,   // as VT_CY, read as VT_I4
  VT_UINT = 23,  // as VT_CY, read as VT_UI4
};

using VariantBool = std::int16_t;
inline constexpr VariantBool VARIANT_TRUE = -1;
inline constexpr VariantBool VARIANT_FALSE = 0;

// A value with its type. A text block that is this value's alone stays as spare room when the type changes,
// so that one XValue used again and again for cell values does not allocate. Copies share the block. A text
// or copy that runs out of memory does not throw: the value becomes VT_ERROR with E_OUTOFMEMORY. A value that
// was moved from is VT_EMPTY.
class XValue {
 public:
  XValue() = default;
  XValue(const XValue& other) { *this = other; }
  XValue(XValue&& other) noexcept
      : type_(std::exchange(other.type_, VT_EMPTY)), bits_(other.bits_), text_(std::move(other.text_)) {}
  XValue& operator=(const XValue& other);
  XValue& operator=(XValue&& other) noexcept;

  static XValue ofInt(std::int32_t value);
  static XValue ofInt64(std::int64_t value);
  static XValue ofDouble(double value);
  static XValue ofBool(bool value);
  static XValue ofDate(double days);
  static XValue ofError(HResult code);
  static XValue ofText(std::u16string_view text);
  static XValue null();

  VarType type() const { return type_; }

  void setEmpty() { setBits(VT_EMPTY, 0); }
  void setNull() { setBits(VT_NULL, 0); }
  void setInt(std::int32_t value) { setBits(VT_I4, value); }
  void setInt64(std::int64_t value) { setBits(VT_I8, value); }
  void setFloat(float value) { setReal(VT_R4, static_cast<double>(value)); }
  void setDouble(double value) { setReal(VT_R8, value); }
  void setBool(bool value) { setBits(VT_BOOL, value ? VARIANT_TRUE : VARIANT_FALSE); }
  void setRawBool(VariantBool value) { setBits(VT_BOOL, value); }  // also a value that is neither -1 nor 0
  void setDate(double days) { setReal(VT_DATE, days); }
  void setError(HResult code) { setBits(VT_ERROR, code); }
  void setText(std::u16string_view text);  // VT_BSTR; reuses the text block when it is this value's alone
  void setText(const XString& text);       // VT_BSTR; shares the block
  void setText(const char16_t* text) { setText(text ? std::u16string_view(text) : std::u16string_view()); }
  void setNarrow(std::string_view utf8);  // VT_BSTR; reuses the text block as setText(view) does
  // The integer types VT_I1, VT_I2, VT_UI1, VT_UI2, VT_UI4, VT_UI8: the value cut to the type's width.
  void setInteger(VarType type, std::int64_t value);

  // What must hold: type() is the type that the reader's name says. No conversion happens.
  std::int32_t asInt() const { return static_cast<std::int32_t>(bits_); }
  std::int64_t asInt64() const { return bits_; }  // every integer type, VT_BOOL and VT_ERROR included
  double asDouble() const { return std::bit_cast<double>(bits_); }  // VT_R8, VT_R4 and VT_DATE
  bool asBool() const { return bits_ != 0; }
  VariantBool asRawBool() const { return static_cast<VariantBool>(bits_); }
  HResult asError() const { return static_cast<HResult>(bits_); }
  // The empty text unless VT_BSTR.
  const XString& asText() const { return type_ == VT_BSTR ? text_ : emptyText(); }

  // The spare text buffer, for a producer that fills it in place and then calls becomeText().
  XString& textBuffer() { return text_; }
  void becomeText() { type_ = VT_BSTR; }

 private:
  static const XString& emptyText();
  // Spare room is only kept while nobody else holds it: a value that is no text must not hold other objects'
  // text in memory.
  void setBits(VarType type, std::int64_t bits) {
    if (type_ == VT_BSTR && text_.refs() > 1) text_.clear();
    type_ = type;
    bits_ = bits;
  }
  void setReal(VarType type, double value) { setBits(type, std::bit_cast<std::int64_t>(value)); }
  void finishText(bool ranOutOfMemory);

  VarType type_ = VT_EMPTY;
  std::int64_t bits_ = 0;  // the integer, or the bit pattern of the real number
  XString text_;           // the text of VT_BSTR, spare room for every other type
};

// Equal type and equal value; two VT_EMPTY and two VT_NULL are equal.
bool operator==(const XValue& a, const XValue& b);

}  // namespace tessera
