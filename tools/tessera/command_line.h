// One line of the console, taken apart.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <tessera/xvalue.h>

namespace tessera {

// A word, or a text in quotes.
struct Token {
  XString text;  // without quotes and escapes
  bool isQuoted = false;

  std::string utf8() const { return text.toUtf8(); }
  XValue value() const;
  std::optional<std::int32_t> number() const;
};

// The first word of `line`, which then holds what stands behind it.
std::string_view takeWord(std::string_view& line);

// Nothing when a quote is not closed, is followed by more of the word, or an escape is none.
std::optional<std::vector<Token>> splitTokens(std::string_view line);

}  // namespace tessera
