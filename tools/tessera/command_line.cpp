#include "tools/tessera/command_line.h"

#include <algorithm>

#include "tools/tessera/value_text.h"

namespace tessera {

namespace {

constexpr std::string_view blanks = " \t";

void skipBlanks(std::string_view& line) {
  line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
}

}  // namespace

XValue Token::value() const {
  if (!isQuoted) {
    if (auto value = valueOfWord(utf8())) return *std::move(value);
  }
  return XValue::ofText(text);
}

std::optional<std::int32_t> Token::number() const {
  const XValue read = value();
  if (read.type() != VT_I4) return std::nullopt;
  return read.asInt();
}

std::string_view takeWord(std::string_view& line) {
  skipBlanks(line);
  const std::string_view word = line.substr(0, line.find_first_of(blanks));
  line.remove_prefix(word.size());
  skipBlanks(line);
  return word;
}

std::optional<std::vector<Token>> splitTokens(std::string_view line) {
  std::vector<Token> tokens;
  skipBlanks(line);
  while (!line.empty()) {
    if (line.front() != '"') {
      tokens.push_back({XString::fromNarrow(takeWord(line)), false});
      continue;
    }
    std::size_t length = 0;
    auto text = readQuoted(line, length);
    if (!text) return std::nullopt;
    line.remove_prefix(length);
    if (!line.empty() && blanks.find(line.front()) == std::string_view::npos) return std::nullopt;
    skipBlanks(line);
    tokens.push_back({XString::fromNarrow(*text), true});
  }
  return tokens;
}

}  // namespace tessera
