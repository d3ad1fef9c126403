#include "cells/glyphs.h"

#include <array>
#include <span>
#include <string_view>

namespace tessera {
namespace {

// A picture as rows of letters. A "." is the key; the palettes tell the colour of every other letter.
template <std::size_t rows>
using Art = std::array<std::string_view, rows>;

// clang-format off
constexpr Art<7> triangleUp{
    "........",
    "...##...",
    "..####..",
    ".######.",
    "########",
    "........",
    "........",
};

constexpr Art<10> disc{
    "...dddd...",
    ".ddlllmdd.",
    ".dlwwlmmd.",
    "dllwwlmmsd",
    "dlllllmmsd",
    "dlllmmmssd",
    "dmmmmmmssd",
    ".dmmmmssd.",
    ".ddsssddd.",
    "...dddd...",
};

constexpr Art<10> plus{
    "..........",
    "....##....",
    "....##....",
    "....##....",
    ".########.",
    ".########.",
    "....##....",
    "....##....",
    "....##....",
    "..........",
};

constexpr Art<10> cross{
    "..........",
    ".##....##.",
    ".###..###.",
    "..######..",
    "...####...",
    "...####...",
    "..######..",
    ".###..###.",
    ".##....##.",
    "..........",
};

constexpr Art<10> check{
    "..........",
    "........#.",
    ".......##.",
    "......###.",
    ".#...###..",
    ".##.###...",
    ".#####....",
    "..###.....",
    "...#......",
    "..........",
};

constexpr Art<14> checkOff{
    "..............",
    ".ffffffffffff.",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    ".ffffffffffff.",
    "..............",
};

constexpr Art<14> checkOn{
    "..............",
    ".ffffffffffff.",
    ".f..........f.",
    ".f........#.f.",
    ".f.......##.f.",
    ".f......###.f.",
    ".f.#...###..f.",
    ".f.##.###...f.",
    ".f.#####....f.",
    ".f..###.....f.",
    ".f...#......f.",
    ".f..........f.",
    ".ffffffffffff.",
    "..............",
};

constexpr Art<14> radioOff{
    "..............",
    "....ffffff....",
    "..ff......ff..",
    "..f........f..",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    ".f..........f.",
    "..f........f..",
    "..ff......ff..",
    "....ffffff....",
    "..............",
};

constexpr Art<14> radioOn{
    "..............",
    "....ffffff....",
    "..ff......ff..",
    "..f........f..",
    ".f...####...f.",
    ".f..######..f.",
    ".f..######..f.",
    ".f..######..f.",
    ".f..######..f.",
    ".f...####...f.",
    "..f........f..",
    "..ff......ff..",
    "....ffffff....",
    "..............",
};

constexpr Art<17> popup{
    "hhhhhhhhhhhhhhhhk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hcc##cc##cc##ccsk",
    "hcc##cc##cc##ccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hsssssssssssssssk",
    "kkkkkkkkkkkkkkkkk",
};

constexpr Art<17> drop{
    "hhhhhhhhhhhhhhhhk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccc########cccsk",
    "hcccc######ccccsk",
    "hccccc####cccccsk",
    "hcccccc##ccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hccccccccccccccsk",
    "hsssssssssssssssk",
    "kkkkkkkkkkkkkkkkk",
};
// clang-format on

struct Ink {
  char letter;
  std::uint32_t pixel;
};

constexpr std::array<Ink, 4> greenLight{
    {{'d', 0xFF0B5E1A}, {'m', 0xFF25A83C}, {'l', 0xFF5FD472}, {'s', 0xFF178029}}};
constexpr std::array<Ink, 4> redLight{
    {{'d', 0xFF7A1210}, {'m', 0xFFD32F2B}, {'l', 0xFFF27B74}, {'s', 0xFFA31F1C}}};
constexpr std::array<Ink, 4> greyLight{
    {{'d', 0xFF5C5C5C}, {'m', 0xFF9C9C9C}, {'l', 0xFFC8C8C8}, {'s', 0xFF7C7C7C}}};
constexpr std::array<Ink, 1> plain{{{'#', 0xFF4A4A4A}}};
constexpr std::array<Ink, 1> marked[] = {
    {{{'#', 0xFFC01818}}},  // deleted
    {{{'#', 0xFF1046C8}}},  // inserted
    {{{'#', 0xFF0A7A24}}},  // updated
};
constexpr std::array<Ink, 2> box{{{'f', 0xFF6E6E6E}, {'#', 0xFF1E1E1E}}};
constexpr std::array<Ink, 5> button{
    {{'c', 0xFFD4D0C8}, {'h', 0xFFFFFFFF}, {'s', 0xFFA09C94}, {'k', 0xFF5C5A54}, {'#', 0xFF1E1E1E}}};
// Letters that mean the same in every picture.
constexpr std::array<Ink, 2> common{{{'.', 0xFF00FF00}, {'w', 0xFFFFFFFF}}};

struct GlyphSource {
  Glyph glyph;
  std::span<const std::string_view> rows;
  std::span<const Ink> palette;
  bool upsideDown = false;
};

constexpr std::array<GlyphSource, 17> sources{{
    {Glyph::SortUp, triangleUp, plain},
    {Glyph::SortDown, triangleUp, plain, true},
    {Glyph::LightGreen, disc, greenLight},
    {Glyph::LightRed, disc, redLight},
    {Glyph::LightGrey, disc, greyLight},
    {Glyph::DeletedMarked, cross, marked[0]},
    {Glyph::Deleted, cross, plain},
    {Glyph::Inserted, plus, plain},
    {Glyph::InsertedMarked, plus, marked[1]},
    {Glyph::Updated, check, plain},
    {Glyph::UpdatedMarked, check, marked[2]},
    {Glyph::PopupButton, popup, button},
    {Glyph::CheckOff, checkOff, box},
    {Glyph::CheckOn, checkOn, box},
    {Glyph::DropButton, drop, button},
    {Glyph::RadioOn, radioOn, box},
    {Glyph::RadioOff, radioOff, box},
}};

constexpr const Ink* findInk(std::span<const Ink> palette, char letter) {
  for (const Ink& ink : palette) {
    if (ink.letter == letter) return &ink;
  }
  return nullptr;
}

constexpr const Ink* inkOf(const GlyphSource& source, char letter) {
  const Ink* ink = findInk(common, letter);
  return ink ? ink : findInk(source.palette, letter);
}

constexpr bool isDrawable(const GlyphSource& source) {
  for (const std::string_view row : source.rows) {
    if (row.size() != source.rows.front().size()) return false;
    for (const char letter : row) {
      if (!inkOf(source, letter)) return false;
    }
  }
  return true;
}

constexpr bool allDrawable() {
  for (const GlyphSource& source : sources) {
    if (!isDrawable(source)) return false;
  }
  return true;
}
static_assert(allDrawable(), "rows of one width and letters of the palette");

Bitmap drawnFrom(const GlyphSource& source) {
  Bitmap bitmap(static_cast<std::int32_t>(source.rows.front().size()),
                static_cast<std::int32_t>(source.rows.size()));
  auto pixel = bitmap.pixels.begin();
  for (std::size_t y = 0; y < source.rows.size(); ++y) {
    const std::string_view row = source.rows[source.upsideDown ? source.rows.size() - 1 - y : y];
    for (const char letter : row) *pixel++ = inkOf(source, letter)->pixel;
  }
  return bitmap;
}

constexpr std::size_t firstNumber = static_cast<std::size_t>(Glyph::SortUp);
constexpr std::size_t lastNumber = static_cast<std::size_t>(Glyph::RadioOff);
using GlyphTable = std::array<Bitmap, lastNumber - firstNumber + 1>;

GlyphTable drawAll() {
  GlyphTable table;
  for (const GlyphSource& source : sources) {
    table[static_cast<std::size_t>(source.glyph) - firstNumber] = drawnFrom(source);
  }
  return table;
}

}  // namespace

const Bitmap& glyphBitmap(Glyph glyph) {
  static const GlyphTable table = drawAll();
  static const Bitmap nothing;
  const auto number = static_cast<std::size_t>(glyph);
  return number >= firstNumber && number <= lastNumber ? table[number - firstNumber] : nothing;
}

}  // namespace tessera
