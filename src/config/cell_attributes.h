// The attributes of the cells of a column, of the indicator and of the background.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "config/attribute_reader.h"
#include "config/background_record.h"
#include "config/column_record.h"
#include "config/indicator_record.h"

namespace tessera {

enum class CellElement : std::uint8_t { Header, View, Summary, Group, Indicator, Background };

// The parts of a cell that an attribute can reach; null where the cell has no such part.
struct CellFields {
  explicit CellFields(HeaderCell& cell);
  explicit CellFields(ViewCell& cell);
  explicit CellFields(SummaryCell& cell);
  explicit CellFields(GroupCell& cell);
  explicit CellFields(IndicatorRecord& record);
  explicit CellFields(BackgroundRecord& record);

  CellElement element;
  CellStyle* style;
  Rect* rect = nullptr;
  std::int32_t* layoutLeft = nullptr;
  std::int32_t* layoutRight = nullptr;
  std::int32_t* level = nullptr;
  std::int32_t* cursor = nullptr;
  XString* text = nullptr;
  HeaderCell* header = nullptr;     // for what only a header has
  KeptExpressions* kept = nullptr;  // of a record that outlives a Refresh
};

struct CellAttribute {
  const char* name;
  ValueKind kind;
  std::uint8_t readBy;  // bit 1 << CellElement for each element of ColumnInfo that has the attribute
  std::optional<DynamicSlot> slot;  // for an "@" value
  // Stores a literal. False when the value is no word of the attribute and the field stays as it is.
  bool (*store)(InfoServices& services, const CellFields& cell, const XString& value);

  constexpr bool isReadBy(CellElement element) const {
    return (readBy >> static_cast<std::uint8_t>(element) & 1) != 0;
  }
};

// All of them, in the order in which they are read.
std::span<const CellAttribute> cellAttributes();

// What must hold: there is an attribute of this name.
const CellAttribute& cellAttribute(std::string_view name);

// Takes an attribute's value, literal or expression, into the cell. A stored literal ends the attribute's
// expression; a literal text of a view ends all of its expressions. A view keeps the source of its text
// expression as its text.
void storeCellAttribute(InfoServices& services, const CellAttribute& attribute, const CellFields& cell,
                        const XString& value);

// The same for the attribute of an element, if it has it.
void readCellAttribute(InfoServices& services, const DocumentNode& element, const CellAttribute& attribute,
                       const CellFields& cell);

// All attributes of a HEADER, VIEW, VIEWSUMMARY or GROUP element, then its TEXT and DISPLAYFORMAT children.
void readCell(InfoServices& services, const DocumentNode& element, const CellFields& cell);

}  // namespace tessera
