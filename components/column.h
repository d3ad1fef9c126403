// One typed column of cells.

#pragma once

#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include <tessera/data_set_control.h>
#include <tessera/xstring.h>
#include <tessera/xvalue.h>

#include "components/bits.h"
#include "components/number_text.h"
#include "components/text_cells.h"

namespace tessera {

// What a column is called and holds.
struct ColumnFormat {
  XString name;
  std::int32_t type = columnText;  // columnText, columnInteger, columnDecimal or columnLong
  std::int32_t scale = 0;          // digits after the point of a decimal's text, 0 to maxScale
  std::int32_t length = 0;         // characters that a cell's text may have; 0: the type's own limit
};

// Cells are numbered by their record. Integers take 4 bytes each, longs and decimals 8, texts 8 and their
// UTF-8. Every read of a cell that is empty gives 0 or the empty text.
class Column {
 public:
  explicit Column(ColumnFormat format);

  const ColumnFormat& format() const { return format_; }
  bool isText() const { return std::holds_alternative<TextCells>(cells_); }
  bool isWhole() const { return format_.type == columnInteger || format_.type == columnLong; }

  bool isEmpty(std::int32_t record) const;
  std::int64_t whole(std::int32_t record) const;     // integer and long columns only
  double real(std::int32_t record) const;            // number columns only
  std::string_view text(std::int32_t record) const;  // text columns only
  // The cell's text: inside the column or in `buffer`, valid until either changes.
  std::string_view shown(std::int32_t record, NumberBuffer& buffer) const;
  // VT_EMPTY for an empty number; an empty text is a text, too.
  void value(std::int32_t record, XValue& result) const;

  // Loading. What must hold: the value fits the column's type.
  void reserve(std::size_t records, std::size_t textBytes);
  void appendEmpty();
  void appendWhole(std::int64_t value);
  void appendReal(double value);
  void appendText(std::string_view utf8);

  enum class Change { refused, same, changed };
  // Takes the value in the column's own type; refused when it does not convert or is no finite number.
  Change set(std::int32_t record, const XValue& value);
  void setEmpty(std::int32_t record);

  // The mark that a cell was written since it was loaded or last saved.
  bool isMarked(std::int32_t record) const { return marked_.get(record); }
  void mark(std::int32_t record, bool on) { marked_.set(record, on); }
  void clearMarks() { marked_.clear(); }

  // The order of two cells: empty ones first, numbers by size, texts by code point.
  std::int32_t compare(std::int32_t a, std::int32_t b) const;
  // The same order in pieces: cells compare as their first pieces that differ. `more` tells that a piece of
  // this key is not the last.
  struct OrderPiece {
    std::uint64_t key = 0;
    bool more = false;
  };
  OrderPiece orderPiece(std::int32_t record, std::size_t index) const;

  std::size_t memoryBytes() const;

 private:
  using Integers = std::vector<std::int32_t>;
  using Longs = std::vector<std::int64_t>;
  using Reals = std::vector<double>;

  std::int32_t nextRecord() const;
  Change setText(std::int32_t record, const XValue& value);
  Change setNumber(std::int32_t record, const XValue& value);

  ColumnFormat format_;
  std::variant<TextCells, Integers, Longs, Reals> cells_;
  Bits empty_;  // number columns only
  Bits marked_;
};

}  // namespace tessera
