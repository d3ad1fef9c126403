// The words of attribute values, shared by their readers and writers.

#pragma once

#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

#include <tessera/xstring.h>

#include "config/cell_style.h"

namespace tessera {

struct ValueWord {
  std::u16string_view word;
  std::int32_t value;
};

inline constexpr std::int32_t unknownWord = -1;

// Several words may have one value; the first of them is the one that is written.
inline constexpr ValueWord alignWords[] = {
    {u"lefttop", align::left | align::top},           {u"topleft", align::left | align::top},
    {u"leftcenter", align::left | align::middle},     {u"centerleft", align::left | align::middle},
    {u"leftbottom", align::left | align::bottom},     {u"bottomleft", align::left | align::bottom},
    {u"centertop", align::center | align::top},       {u"topcenter", align::center | align::top},
    {u"centercenter", align::center | align::middle}, {u"centerbottom", align::center | align::bottom},
    {u"bottomcenter", align::center | align::bottom}, {u"righttop", align::right | align::top},
    {u"topright", align::right | align::top},         {u"rightcenter", align::right | align::middle},
    {u"centerright", align::right | align::middle},   {u"rightbottom", align::right | align::bottom},
    {u"bottomright", align::right | align::bottom},   {u"full", align::fullWord},
};
static_assert(std::size(alignWords) == 18);

inline constexpr ValueWord borderStyleWords[] = {
    {u"line", border::line},
    {u"raisedinner", border::raisedInner},
    {u"sunkeninner", border::sunkenInner},
    {u"raisedouter", border::raisedOuter},
    {u"sunkenouter", border::sunkenOuter},
    {u"none", border::none},
};

inline constexpr ValueWord fontStyleWords[] = {
    {u"none", 0},
    {u"bold", font_style::bold},
    {u"italic", font_style::italic},
    {u"bolditalic", font_style::bold | font_style::italic},
    {u"italicbold", font_style::bold | font_style::italic},
    {u"underline", font_style::underline},
    {u"under", font_style::underline},
    {u"underbold", font_style::underline | font_style::bold},
    {u"boldunder", font_style::underline | font_style::bold},
    {u"underitalic", font_style::underline | font_style::italic},
    {u"italicunder", font_style::underline | font_style::italic},
    {u"underbolditalic", font_style::underline | font_style::bold | font_style::italic},
    {u"boldunderitalic", font_style::underline | font_style::bold | font_style::italic},
};
static_assert(std::size(fontStyleWords) == 13);

// 8, the sideways arrows of column borders, is a cursor without a word.
inline constexpr ValueWord cursorWords[] = {
    {u"arrow", 1}, {u"beam", 2}, {u"cross", 3},    {u"no", 4},
    {u"help", 5},  {u"wait", 6}, {u"starting", 7}, {u"hand", 9},
};

// The value of the first row whose word is `text`, in any case; `unknown` when there is none.
std::int32_t valueOfWord(std::span<const ValueWord> words, std::u16string_view text,
                         std::int32_t unknown = unknownWord);
// The first word of `value`, the empty text when it has none.
std::u16string_view wordOfValue(std::span<const ValueWord> words, std::int32_t value);

// 0 for a text that is no alignment.
std::int32_t parseAlign(std::u16string_view text);
// Horizontal word, then vertical word; a direction without a bit gives nothing. Reads the bits, so
// align::full reads as left and top.
XString alignToText(std::int32_t value);

// unknownWord for a text that is no border style.
std::int32_t parseBorderStyle(std::u16string_view text);
// Empty for 0 and for combinations.
std::u16string_view borderStyleToText(std::int32_t value);

// unknownWord for a text that is no font style.
std::int32_t parseFontStyle(std::u16string_view text);
// Empty for 0 and for unknown bits.
std::u16string_view fontStyleToText(std::int32_t value);

// 0, which shows as the arrow, for a text that is no cursor.
std::int32_t parseCursor(std::u16string_view text);
// Empty for a cursor without a word.
std::u16string_view cursorToText(std::int32_t value);

// The name of a code page in the head of an HTML file; `name` is left alone for a code page without one.
void charsetName(std::int32_t codePage, std::string& name);

}  // namespace tessera
