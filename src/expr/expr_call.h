// One instruction at work: its arguments, its result slot and the ways to read and write them.

#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include <tessera/xvalue.h>

#include "expr/eval_state.h"
#include "expr/value_type.h"
#include "expr/xexpr_context.h"

namespace tessera {

struct XExprFunction;
class ExprCall;

// Computes one instruction. The result is where its value stands: the call's own slot, or an argument that
// passes through. Null: the run ends in the error that ExprCall::fail() noted.
using ExprHandler = const XValue* (*)(ExprCall& call);

// A value read as a text. Numbers become text as TOSTRING() makes them; other values are the empty text.
class ExprText {
 public:
  explicit ExprText(const XValue& value) {
    if (value.type() == VT_BSTR) {
      view_ = value.asText();
    } else {
      convert(value);
    }
  }
  operator std::u16string_view() const { return view_; }
  std::u16string_view view() const { return view_; }
  std::int32_t length() const { return static_cast<std::int32_t>(view_.size()); }

 private:
  void convert(const XValue& value);

  std::optional<XString> made_;
  std::u16string_view view_;
};

// A value read as a number. Texts count as far as they are one; logical and missing values are 0.
double otherNumber(const XValue& value);
inline double numberOf(const XValue& value) {
  return value.type() == VT_R8 || value.type() == VT_DATE ? value.asDouble() : otherNumber(value);
}

// Only a logical value is anything but false.
inline VariantBool logicalOf(const XValue& value) {
  return value.type() == VT_BOOL ? value.asRawBool() : VARIANT_FALSE;
}

// Cuts toward zero; what a 32-bit number cannot hold becomes the nearest one that it can, no number 0.
std::int32_t cutLargeToInt(double number);
std::int64_t cutToInt64(double number);
inline std::int32_t cutToInt(double number) {
  constexpr double small = 1 << 30;
  return number > -small && number < small ? static_cast<std::int32_t>(number) : cutLargeToInt(number);
}

// The text of a number as TOSTRING() gives it; the empty text for values that are no number.
void writeNumber(const XValue& value, XString& text);

// A text that an expression makes up, as opposed to one that it reads, has at most this many units.
inline constexpr std::int64_t maxMadeText = 1 << 20;

// Reading never fails and never faults, whatever the argument holds.
class ExprCall {
 public:
  ExprCall(const XExprContext& context, EvalState& state, const XValue** registers)
      : context_(context), state_(state), registers_(registers), row_(state.ExprRow) {}

  // Moves on to an instruction. `function` is null for an operator.
  void begin(const std::uint32_t* arguments, std::uint32_t count, XValue& own,
             const XExprFunction* function) {
    arguments_ = arguments;
    count_ = count;
    own_ = &own;
    function_ = function;
  }

  std::uint32_t count() const { return count_; }
  const XValue& value(std::uint32_t index) const { return *registers_[arguments_[index]]; }
  double number(std::uint32_t index) const { return numberOf(value(index)); }
  std::int32_t integer(std::uint32_t index) const { return cutToInt(number(index)); }
  bool logical(std::uint32_t index) const { return logicalOf(value(index)) != VARIANT_FALSE; }
  ExprText text(std::uint32_t index) const { return ExprText(value(index)); }

  const XExprContext& context() const { return context_; }
  std::int32_t row() const { return row_; }  // under evaluation

  const XValue* giveNumber(double number) {
    own_->setDouble(number);
    return own_;
  }
  const XValue* giveLogical(bool flag) {
    own_->setBool(flag);
    return own_;
  }
  const XValue* giveDate(double date) {
    own_->setDate(date);
    return own_;
  }
  const XValue* giveText(std::u16string_view text) {
    own_->setText(text);
    return own_;
  }
  const XValue* giveNarrow(std::string_view utf8) {
    own_->setNarrow(utf8);
    return own_;
  }
  const XValue* giveArgument(std::uint32_t index) { return &value(index); }
  XValue& own() { return *own_; }

  // Two ways to write a text in place: as it grows,
  XString& beginText() {
    own_->textBuffer().assign({});
    return own_->textBuffer();
  }
  const XValue* endText() {
    own_->becomeText();
    return own_;
  }
  // or, of `length` units, by write(place).
  template <class Write>
  const XValue* giveWrittenText(std::int64_t length, Write write) {
    if (length <= 0) return giveText({});
    if (length > std::numeric_limits<std::int32_t>::max()) return failArguments();
    const auto size = static_cast<std::int32_t>(length);
    char16_t* place = own_->textBuffer().reserve(size);
    if (!place) return failArguments();
    write(place);
    own_->textBuffer().releaseBuffer(size);
    return endText();
  }
  // The first `kept` units of the text in the own slot, and another text behind them.
  const XValue* giveGrownText(std::size_t kept, std::u16string_view added);
  // The same as giveWrittenText() for a made-up text: a longer one than maxMadeText is an invalid argument.
  template <class Write>
  const XValue* giveMadeText(std::int64_t length, Write write) {
    return length > maxMadeText ? failArguments() : giveWrittenText(length, write);
  }

  // Asks the host: read(result). A host that fails leaves the empty value of the instruction's type.
  template <class Read>
  const XValue* giveFromHost(Read read) {
    own_->setEmpty();  // slots are shared by programs: a host that writes nothing must not show what was
                       // there
    if (!succeeded(read(*own_))) clearOwn();
    return own_;
  }

  template <class... Args>
  const XValue* fail(ExprErrorCode code, const Args&... arguments) {
    state_.error = XExprError::of(code, arguments...);
    return nullptr;
  }
  // The arguments are invalid; the message bears the name of the function that was called.
  const XValue* failArguments();

 private:
  void clearOwn();

  const XExprContext& context_;
  EvalState& state_;
  const XValue** registers_;
  std::int32_t row_;
  const std::uint32_t* arguments_ = nullptr;
  std::uint32_t count_ = 0;
  XValue* own_ = nullptr;
  const XExprFunction* function_ = nullptr;
};

}  // namespace tessera
