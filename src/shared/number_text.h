// Numbers as text and back, the same in every locale.

#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include <tessera/status.h>

namespace tessera {

// A number as it stands before it takes a type: 64-bit integers stay exact.
struct Number {
  enum class Kind { Signed, Unsigned, Real };
  Kind kind = Kind::Signed;
  std::int64_t integer = 0;  // Unsigned: the bit pattern of a number of at least 2^63
  double real = 0;           // set for Real only

  static Number ofSigned(std::int64_t value);
  static Number ofUnsigned(std::uint64_t value);
  static Number ofReal(double value);

  double asReal() const;
  bool isZero() const { return kind == Kind::Real ? real == 0 : integer == 0; }
};

// A whole number, a decimal number or one with an exponent; white space around it does not count. Any other
// text is DISP_E_TYPEMISMATCH, a number that a double cannot hold DISP_E_OVERFLOW.
HResult parseNumber(std::u16string_view text, Number& number);

// A no-number is printed without the sign that it may carry.
inline double withoutNanSign(double number) {
  return std::isnan(number) ? std::numeric_limits<double>::quiet_NaN() : number;
}

// The text of a number, kept on the stack.
class NumberText {
 public:
  // At most `digits` significant digits (1 to 17), no trailing zeros; no exponent from 1e-5 to 1e15. Outside
  // of that the form is "1.5E+20". Infinities and no-numbers are "inf", "-inf" and "nan".
  static NumberText ofReal(double value, std::int32_t digits);
  // The decimal digits of a whole number, which `number` must be.
  static NumberText ofWhole(const Number& number);

  std::string_view view() const { return {text_, size_}; }

 private:
  void put(char c) { text_[size_++] = c; }
  void put(std::string_view text) { size_ += text.copy(text_ + size_, sizeof text_ - size_); }
  void putPlain(const char* digits, std::int32_t count, std::int32_t exponent);
  void putScientific(const char* digits, std::int32_t count, std::int32_t exponent);

  char text_[32];  // the longest is a sign, "0.0000" and 17 digits
  std::size_t size_ = 0;
};

}  // namespace tessera
