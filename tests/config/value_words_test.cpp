#include "config/value_words.h"

#include <gtest/gtest.h>

#include "config/child_words.h"

namespace tessera {
namespace {

struct WordRow {
  const char16_t* text;
  std::int32_t value;
};

void expectAll(std::span<const WordRow> rows, std::int32_t (*parse)(std::u16string_view)) {
  for (const WordRow& row : rows) EXPECT_EQ(parse(row.text), row.value) << XString(row.text).toUtf8();
}

TEST(ValueWords, AlignReadsBothOrdersInAnyCase) {
  const WordRow rows[] = {
      {u"lefttop", 9},       {u"TopLeft", 9},       {u"leftcenter", 17},
      {u"centerleft", 17},   {u"leftbottom", 33},   {u"bottomleft", 33},
      {u"centertop", 10},    {u"topcenter", 10},    {u"CENTERCENTER", 18},
      {u"centerbottom", 34}, {u"bottomcenter", 34}, {u"righttop", 12},
      {u"topright", 12},     {u"rightcenter", 20},  {u"centerright", 20},
      {u"rightbottom", 36},  {u"bottomright", 36},  {u"full", 940302},
      {u"left", 0},          {u"left top", 0},      {u"", 0},
      {u"middle", 0},
  };
  expectAll(rows, parseAlign);
}

TEST(ValueWords, AlignIsWrittenHorizontalFirst) {
  const WordRow rows[] = {
      {u"lefttop", 9},    {u"leftcenter", 17},   {u"leftbottom", 33},
      {u"centertop", 10}, {u"centercenter", 18}, {u"centerbottom", 34},
      {u"righttop", 12},  {u"rightcenter", 20},  {u"rightbottom", 36},
      {u"full", 940302},  {u"left", 1},          {u"bottom", 32},
      {u"", 0},           {u"lefttop", -1},
  };
  for (const WordRow& row : rows) EXPECT_EQ(alignToText(row.value).toUtf8(), XString(row.text).toUtf8());
}

TEST(ValueWords, BorderStyles) {
  const WordRow rows[] = {{u"line", 1},         {u"raisedinner", 2}, {u"sunkeninner", 4}, {u"RaisedOuter", 8},
                          {u"sunkenouter", 16}, {u"none", 0},        {u"raised", -1},     {u"", -1}};
  expectAll(rows, parseBorderStyle);
  const WordRow written[] = {{u"line", 1}, {u"sunkenouter", 16}, {u"", 0}, {u"", 3}, {u"", -1}};
  for (const WordRow& row : written)
    EXPECT_EQ(XString(borderStyleToText(row.value)).toUtf8(), XString(row.text).toUtf8()) << row.value;
}

TEST(ValueWords, FontStyles) {
  const WordRow rows[] = {
      {u"none", 0},
      {u"bold", 1},
      {u"italic", 2},
      {u"bolditalic", 3},
      {u"italicbold", 3},
      {u"underline", 4},
      {u"under", 4},
      {u"underbold", 5},
      {u"BoldUnder", 5},
      {u"underitalic", 6},
      {u"italicunder", 6},
      {u"underbolditalic", 7},
      {u"boldunderitalic", 7},
      {u"bold under", -1},
      {u"", -1},
      {u"bolditalicunder", -1},
  };
  expectAll(rows, parseFontStyle);
  const WordRow written[] = {
      {u"", 0},          {u"bold", 1},        {u"italic", 2},          {u"bolditalic", 3}, {u"underline", 4},
      {u"underbold", 5}, {u"underitalic", 6}, {u"underbolditalic", 7}, {u"", 8},           {u"", -1}};
  for (const WordRow& row : written)
    EXPECT_EQ(XString(fontStyleToText(row.value)).toUtf8(), XString(row.text).toUtf8()) << row.value;
}

TEST(ValueWords, Cursors) {
  const WordRow rows[] = {{u"arrow", 1}, {u"BEAM", 2},     {u"cross", 3}, {u"no", 4}, {u"help", 5},
                          {u"wait", 6},  {u"starting", 7}, {u"hand", 9},  {u"", 0},   {u"sizewe", 0}};
  expectAll(rows, parseCursor);
  const WordRow written[] = {{u"arrow", 1}, {u"starting", 7}, {u"", 8}, {u"hand", 9}, {u"", 0}, {u"", 10}};
  for (const WordRow& row : written)
    EXPECT_EQ(XString(cursorToText(row.value)).toUtf8(), XString(row.text).toUtf8()) << row.value;
}

// What a writer gives, a reader takes back; 0 has no text for styles, so it starts at 1.
TEST(ValueWords, WrittenWordsReadBack) {
  for (const ValueWord& row : alignWords) EXPECT_EQ(parseAlign(alignToText(row.value)), row.value);
  for (std::int32_t flags = 1; flags <= 7; ++flags) {
    EXPECT_EQ(parseFontStyle(fontStyleToText(flags)), flags);
  }
  for (const std::int32_t style : {1, 2, 4, 8, 16}) {
    EXPECT_EQ(parseBorderStyle(borderStyleToText(style)), style);
  }
  for (const std::int32_t cursor : {1, 2, 3, 4, 5, 6, 7, 9}) {
    EXPECT_EQ(parseCursor(cursorToText(cursor)), cursor);
  }
}

TEST(ValueWords, CharsetNames) {
  const std::pair<std::int32_t, const char*> rows[] = {
      {932, "Shift-JIS"}, {949, "KS_C_5601-1987"}, {50220, "ISO-2022-JP"}, {50221, "ISO-2022-JP"},
      {51932, "EUC-JP"},  {51949, "EUC-KR"},       {65001, "before"},      {0, "before"},
  };
  for (const auto& [codePage, expected] : rows) {
    std::string name = "before";
    charsetName(codePage, name);
    EXPECT_EQ(name, expected) << codePage;
  }
}

TEST(ValueWords, InputTypes) {
  const WordRow rows[] = {
      {u" num , upper ", 3}, {u"numeric,foo", 1}, {u"pass,LOWER", 12}, {u"password\t", 8}, {u"", 0},
      {u",,num,,num,", 1},   {u"n u m", 1},       {u"num\nupper", 0},  {u"num;upper", 0},
  };
  expectAll(rows, parseInputType);
}

}  // namespace
}  // namespace tessera
