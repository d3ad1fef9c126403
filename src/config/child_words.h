// The words of a CHILD element.

#pragma once

#include <array>
#include <string_view>

#include "config/child_spec.h"
#include "config/value_words.h"

namespace tessera {

constexpr std::int32_t numberOf(EditKind kind) { return static_cast<std::int32_t>(kind); }

// What the value of a cell is to the grid.
enum class CellValue {
  Text,        // formatted and shown
  Bare,        // read as it is: a mark depends on it
  ItemCode,    // stands for the text of a combo item
  LookupCode,  // stands for a text of another data set
  PictureKey,  // names a picture of the image set
};

// What a kind of cell is before anything is laid out or drawn; the rest stands in cells/cell_kinds.h.
struct CellKindWord {
  std::u16string_view word;
  CellKind kind;
  CellValue value = CellValue::Text;
};

inline constexpr std::array cellKindTable = {
    CellKindWord{u"none", CellKind::None},
    CellKindWord{u"edit", CellKind::Edit},
    CellKindWord{u"combo", CellKind::Combo, CellValue::ItemCode},
    CellKindWord{u"lookup", CellKind::Lookup, CellValue::LookupCode},
    CellKindWord{u"check", CellKind::Check, CellValue::Bare},
    CellKindWord{u"image", CellKind::Image, CellValue::PictureKey},
    CellKindWord{u"radio", CellKind::Radio, CellValue::Bare},
    CellKindWord{u"bar", CellKind::Bar},
};
inline constexpr std::size_t cellKindCount = cellKindTable.size();

// Whether the row of each kind stands at the kind's number, in a table of any type of row.
template <class Table>
constexpr bool isInOrderOfKinds(const Table& table) {
  for (std::size_t number = 0; number < table.size(); ++number) {
    if (table[number].kind != static_cast<CellKind>(number)) return false;
  }
  return table.size() == cellKindCount;
}
static_assert(isInOrderOfKinds(cellKindTable));

constexpr CellValue valueOfKind(CellKind kind) { return cellKindTable[static_cast<std::size_t>(kind)].value; }

inline constexpr auto cellKindWords = [] {
  std::array<ValueWord, cellKindCount> words{};
  for (std::size_t number = 0; number < cellKindCount; ++number) {
    words[number] = {cellKindTable[number].word, static_cast<std::int32_t>(number)};
  }
  return words;
}();

inline constexpr ValueWord editKindWords[] = {
    {u"popup", numberOf(EditKind::Popup)},
    {u"popupfix", numberOf(EditKind::PopupFix)},
};

inline constexpr ValueWord imeWords[] = {{u"none", 0}, {u"native", 1}, {u"english", 2}};

// The first word of a flag is the one that is written; this is also the order of writing.
inline constexpr ValueWord inputTypeWords[] = {
    {u"numeric", input_type::numeric}, {u"num", input_type::numeric}, {u"password", input_type::password},
    {u"pass", input_type::password},   {u"upper", input_type::upper}, {u"lower", input_type::lower},
};

inline constexpr ValueWord barAlignWords[] = {
    {u"none", 0},         {u"left", align::left},     {u"right", align::right},
    {u"top", align::top}, {u"bottom", align::bottom},
};

// The flags of a list separated by commas; blanks, tabs and unknown words do not count.
std::int32_t parseInputType(std::u16string_view list);

// Column names where the word "none" means no column.
XString columnNameOrNone(const XString& value);

}  // namespace tessera
