#include "expr/source_cursor.h"

namespace tessera {
namespace {

struct Escape {
  char16_t written;
  char16_t meant;
};

constexpr Escape escapes[] = {{u'b', u'\b'},  {u'n', u'\n'}, {u'r', u'\r'}, {u't', u'\t'}, {u'"', u'"'},
                              {u'\'', u'\''}, {u'[', u'['},  {u']', u']'},  {u'\\', u'\\'}};

const Escape* findEscape(char16_t unit) {
  for (const Escape& escape : escapes) {
    if (escape.written == unit) return &escape;
  }
  return nullptr;
}

// A backslash that starts no escape stays.
XString withoutEscapes(std::u16string_view text) {
  if (text.find(u'\\') == text.npos) return text;
  std::u16string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const Escape* escape = text[i] == u'\\' && i + 1 < text.size() ? findEscape(text[i + 1]) : nullptr;
    plain += escape ? escape->meant : text[i];
    if (escape) ++i;
  }
  return XString(plain);
}

}  // namespace

std::u16string_view SourceCursor::restFromComma() const {
  return at_ > 0 && text_[at_ - 1] == u',' ? text_.substr(at_ - 1) : std::u16string_view();
}

const OperatorToken* SourceCursor::operatorHere() const {
  for (const OperatorToken& token : operatorTokens) {
    if (rest().starts_with(token.text)) return &token;
  }
  return nullptr;
}

void SourceCursor::skipContinuation() {
  do advance();
  while (peek() == u' ');
  if (peek() == u'\r') advance();
  if (peek() == u'\n') advance();
}

std::u16string_view SourceCursor::scanNumber() {
  std::size_t length = 1;
  while (isExprDigit(peek(length)) || peek(length) == u'.') ++length;
  if (length == 1 && !isExprDigit(peek())) return {};
  const std::u16string_view number = rest().substr(0, length);
  advance(length);
  return number;
}

std::u16string_view SourceCursor::identifier() const {
  std::size_t length = 0;
  while (isIdentifierUnit(peek(length))) ++length;
  return rest().substr(0, length);
}

bool SourceCursor::scanRaw(char16_t closing, std::u16string_view& text) {
  const std::size_t first = at_;
  while (!atEnd() && peek() != closing) advance();
  text = text_.substr(first, at_ - first);
  return peek() == closing;
}

bool SourceCursor::scanString(char16_t closing, XString& text) {
  const std::size_t first = at_;
  while (!atEnd() && peek() != closing) {
    const bool escape = peek() == u'\\';
    advance();
    if (escape && !atEnd()) advance();
  }
  text = withoutEscapes(text_.substr(first, at_ - first));
  return peek() == closing;
}

}  // namespace tessera
