#include "config/value_words.h"

#include <algorithm>

#include "shared/compare.h"

namespace tessera {
namespace {

struct Charset {
  std::int32_t codePage;
  std::string_view name;
};

constexpr Charset charsets[] = {
    {932, "Shift-JIS"},     {949, "KS_C_5601-1987"}, {50220, "ISO-2022-JP"},
    {50221, "ISO-2022-JP"}, {51932, "EUC-JP"},       {51949, "EUC-KR"},
};

// The word of the first row that has its bit in `value`.
std::u16string_view firstBitWord(std::span<const ValueWord> words, std::int32_t value) {
  const auto row = std::find_if(words.begin(), words.end(),
                                [value](const ValueWord& word) { return (word.value & value) != 0; });
  return row == words.end() ? std::u16string_view() : row->word;
}

}  // namespace

std::int32_t valueOfWord(std::span<const ValueWord> words, std::u16string_view text, std::int32_t unknown) {
  const auto row = std::find_if(words.begin(), words.end(),
                                [text](const ValueWord& word) { return equalNoCase(word.word, text); });
  return row == words.end() ? unknown : row->value;
}

std::u16string_view wordOfValue(std::span<const ValueWord> words, std::int32_t value) {
  const auto row = std::find_if(words.begin(), words.end(),
                                [value](const ValueWord& word) { return word.value == value; });
  return row == words.end() ? std::u16string_view() : row->word;
}

std::int32_t parseAlign(std::u16string_view text) { return valueOfWord(alignWords, text, 0); }

XString alignToText(std::int32_t value) {
  static constexpr ValueWord horizontal[] = {
      {u"left", align::left}, {u"center", align::center}, {u"right", align::right}};
  static constexpr ValueWord vertical[] = {
      {u"top", align::top}, {u"center", align::middle}, {u"bottom", align::bottom}};
  if (value == align::fullWord) return u"full";
  XString text = firstBitWord(horizontal, value);
  text.append(firstBitWord(vertical, value));
  return text;
}

std::int32_t parseBorderStyle(std::u16string_view text) { return valueOfWord(borderStyleWords, text); }

std::u16string_view borderStyleToText(std::int32_t value) {
  return value == border::none ? std::u16string_view() : wordOfValue(borderStyleWords, value);
}

std::int32_t parseFontStyle(std::u16string_view text) { return valueOfWord(fontStyleWords, text); }

std::u16string_view fontStyleToText(std::int32_t value) {
  return value == 0 ? std::u16string_view() : wordOfValue(fontStyleWords, value);
}

std::int32_t parseCursor(std::u16string_view text) { return valueOfWord(cursorWords, text, 0); }

std::u16string_view cursorToText(std::int32_t value) { return wordOfValue(cursorWords, value); }

void charsetName(std::int32_t codePage, std::string& name) {
  for (const Charset& charset : charsets) {
    if (charset.codePage == codePage) name = charset.name;
  }
}

}  // namespace tessera
