// The text of an expression and the place in it that is read.

#pragma once

#include <string_view>

#include <tessera/xstring.h>

#include "expr/operator_table.h"

namespace tessera {

constexpr bool isExprDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// Digits, ASCII letters and the underline.
constexpr bool isIdentifierUnit(char16_t unit) {
  return isExprDigit(unit) || (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
         unit == u'_';
}

// Reads tokens one by one. The text ends at its first zero.
class SourceCursor {
 public:
  explicit SourceCursor(std::u16string_view text) : text_(text.substr(0, text.find(u'\0'))) {}

  // The unit `ahead` of the cursor, 0 behind the end.
  char16_t peek(std::size_t ahead = 0) const {
    return at_ + ahead < text_.size() ? text_[at_ + ahead] : u'\0';
  }
  // At a zero or a line end: what stands behind is no part of the expression.
  bool atEnd() const { return peek() == u'\0' || peek() == u'\n' || peek() == u'\r'; }
  void advance(std::size_t count = 1) { at_ = at_ + count < text_.size() ? at_ + count : text_.size(); }
  void moveToEnd() { at_ = text_.size(); }
  std::u16string_view rest() const { return text_.substr(at_); }
  // The text from the comma on that stands just before the cursor; empty when there is none.
  std::u16string_view restFromComma() const;

  // The token of the operator at the cursor, null when there is none.
  const OperatorToken* operatorHere() const;
  // A semicolon, blanks and one line end.
  void skipContinuation();
  // Digits and dots behind a first character that is a digit, a dot or a minus sign. Empty, and the cursor
  // stays, when it is no number.
  std::u16string_view scanNumber();
  // The identifier at the cursor, which stays.
  std::u16string_view identifier() const;
  // Everything up to `closing`, which the cursor is on afterwards; false when the line ends before.
  bool scanRaw(char16_t closing, std::u16string_view& text);
  // The same with escapes: a backslash protects the next character.
  bool scanString(char16_t closing, XString& text);

 private:
  std::u16string_view text_;
  std::size_t at_ = 0;
};

}  // namespace tessera
