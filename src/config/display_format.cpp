#include "config/display_format.h"

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>

namespace tessera {
namespace {

// Text under construction: on the stack, and on the heap only when it is long.
class Scratch {
 public:
  explicit Scratch(std::size_t expected) { text_.reserve(expected); }

  void push_back(char16_t unit) { text_.push_back(unit); }
  void append(std::u16string_view units) { text_.append(units.data(), units.data() + units.size()); }
  std::u16string_view view() const { return {text_.data(), text_.size()}; }

 private:
  fmt::basic_memory_buffer<char16_t, 512> text_;
};

std::size_t sizeOf(std::int32_t count) { return static_cast<std::size_t>(std::max(count, 0)); }

// The longest result: a separator after each digit, the decimals and their separator.
std::size_t roomFor(const NumberFormat& format, std::u16string_view text) {
  return text.size() * 2 + sizeOf(format.mandatory) + sizeOf(format.optional) + 1;
}

void appendGrouped(const NumberFormat& format, std::u16string_view digits, Scratch& out) {
  if (format.groupSize <= 0 || format.groupSeparator == 0) {
    out.append(digits);
    return;
  }
  // No separator stands behind a sign.
  const std::size_t first = digits.find(u'-') == std::u16string_view::npos ? 1 : 2;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i >= first && (digits.size() - i) % sizeOf(format.groupSize) == 0)
      out.push_back(format.groupSeparator);
    out.push_back(digits[i]);
  }
}

void appendDecimals(const NumberFormat& format, std::u16string_view fraction, Scratch& out) {
  const std::size_t most = sizeOf(format.mandatory) + sizeOf(format.optional);
  const auto digit = [fraction](std::size_t i) { return i < fraction.size() ? fraction[i] : u'0'; };
  std::size_t count = most;
  while (count > sizeOf(format.mandatory) && digit(count - 1) == u'0') --count;
  if (count == 0) return;
  if (format.decimalSeparator != 0) out.push_back(format.decimalSeparator);
  for (std::size_t i = 0; i < count; ++i) out.push_back(digit(i));
}

void appendNumber(const NumberFormat& format, std::u16string_view text, Scratch& out) {
  const std::size_t point = std::min(text.find(u'.'), text.size());
  appendGrouped(format, text.substr(0, point), out);
  appendDecimals(format, text.substr(std::min(point + 1, text.size())), out);
}

enum class State : std::uint8_t {
  Before,          // in front of the number
  First,           // one "#" seen
  GroupSeparator,  // and the separator of groups behind it
  CountingGroup,   // the digits of a group
  Digits,          // two "#" without a separator between them
  DecimalSeparator,
  CountingDecimals,
  After,  // behind the number
};
enum class Symbol : std::uint8_t { Hash, Zero, Literal };
enum class Action : std::uint8_t {
  Error,
  None,
  Copy,
  SetGroupSeparator,
  CountGroupDigit,
  EndGroupDigit,  // counts, and the number is complete
  SetDecimalSeparator,
  CountOptional,
  CountMandatory,
  EndNumber,
  EndNumberAndCopy,
};
struct Step {
  Action action = Action::Error;
  State next = State::Before;
};

// By state, then by symbol.
constexpr Step steps[8][3] = {
    /* Before */ {{Action::None, State::First}, {}, {Action::Copy, State::Before}},
    /* First */ {{Action::None, State::Digits}, {}, {Action::SetGroupSeparator, State::GroupSeparator}},
    /* GroupSeparator */ {{Action::CountGroupDigit, State::CountingGroup}, {}, {}},
    /* CountingGroup */
    {{Action::CountGroupDigit, State::CountingGroup},
     {Action::EndGroupDigit, State::After},
     {Action::SetDecimalSeparator, State::DecimalSeparator}},
    /* Digits */
    {{Action::EndNumber, State::After},
     {Action::EndNumber, State::After},
     {Action::SetDecimalSeparator, State::DecimalSeparator}},
    /* DecimalSeparator */
    {{Action::CountOptional, State::CountingDecimals}, {Action::CountMandatory, State::CountingDecimals}, {}},
    /* CountingDecimals */
    {{Action::CountOptional, State::CountingDecimals},
     {Action::CountMandatory, State::CountingDecimals},
     {Action::EndNumberAndCopy, State::After}},
    /* After */ {{}, {}, {Action::Copy, State::After}},
};

class Formatter {
 public:
  Formatter(std::u16string_view text, Scratch& out) : text_(text), out_(out) {}

  // False when the format is faulty.
  bool run(std::u16string_view format) {
    for (std::size_t i = 0; i < format.size(); ++i) {
      const char16_t unit = format[i];
      // An escape with nothing behind it counts as not written.
      if (unit == u'!' && i + 1 == format.size()) break;
      bool accepted;
      if (unit == u'!') {
        accepted = take(Symbol::Literal, format[++i]);
      } else if (unit == u'X') {
        accepted = takeMasked();
      } else if (unit == u'#' || unit == u'0') {
        accepted = takeDigit(unit, format.substr(i + 1));
      } else {
        accepted = take(Symbol::Literal, unit);
      }
      if (!accepted) return false;
    }
    return state_ == State::Before || state_ == State::After;
  }

 private:
  enum class Kind : std::uint8_t { Open, Mask, Number };

  bool takeMasked() {
    if (kind_ == Kind::Number) return false;
    kind_ = Kind::Mask;
    if (position_ < text_.size()) out_.push_back(text_[position_++]);
    return true;
  }

  bool takeDigit(char16_t unit, std::u16string_view rest) {
    if (kind_ == Kind::Mask) return false;
    kind_ = Kind::Number;
    if (!take(unit == u'#' ? Symbol::Hash : Symbol::Zero, unit)) return false;
    const bool last = rest.empty() || (rest.size() == 1 && rest.front() == u'!');
    if (last && state_ == State::CountingDecimals) {
      appendNumber(number_, text_, out_);
      state_ = State::After;
    }
    return true;
  }

  bool take(Symbol symbol, char16_t unit) {
    const Step& step = steps[static_cast<std::size_t>(state_)][static_cast<std::size_t>(symbol)];
    state_ = step.next;
    return perform(step.action, unit);
  }

  bool perform(Action action, char16_t unit) {
    switch (action) {
      case Action::Error:
        return false;
      case Action::None:
        break;
      case Action::Copy:
        out_.push_back(unit);
        break;
      case Action::SetGroupSeparator:
        number_.groupSeparator = unit;
        break;
      case Action::CountGroupDigit:
        ++number_.groupSize;
        break;
      case Action::SetDecimalSeparator:
        number_.decimalSeparator = unit;
        break;
      case Action::CountOptional:
        ++number_.optional;
        break;
      case Action::CountMandatory:
        ++number_.mandatory;
        break;
      case Action::EndGroupDigit:
        ++number_.groupSize;
        appendNumber(number_, text_, out_);
        break;
      case Action::EndNumber:
        appendNumber(number_, text_, out_);
        break;
      case Action::EndNumberAndCopy:
        appendNumber(number_, text_, out_);
        out_.push_back(unit);
        break;
    }
    return true;
  }

  std::u16string_view text_;
  Scratch& out_;
  std::size_t position_ = 0;  // of the next character that a mask takes
  Kind kind_ = Kind::Open;
  State state_ = State::Before;
  NumberFormat number_;
};

}  // namespace

void applyDisplayFormat(std::u16string_view format, std::u16string_view text, XString& out) {
  Scratch scratch(text.size() * 2 + format.size());
  const bool valid = !text.empty() && Formatter(text, scratch).run(format);
  out.assign(valid ? scratch.view() : std::u16string_view());
}

XString applyDisplayFormat(std::u16string_view format, std::u16string_view text) {
  XString out;
  applyDisplayFormat(format, text, out);
  return out;
}

void formatNumber(const NumberFormat& format, std::u16string_view text, XString& out) {
  Scratch scratch(roomFor(format, text));
  appendNumber(format, text, scratch);
  out.assign(scratch.view());
}

XString formatNumber(const NumberFormat& format, std::u16string_view text) {
  XString out;
  formatNumber(format, text, out);
  return out;
}

}  // namespace tessera
