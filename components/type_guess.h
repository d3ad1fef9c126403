// Tells a column's type from its cells.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "components/column.h"

namespace tessera {

// A field whose type is given and not guessed.
struct FieldSpec {
  std::string name = {};
  std::int32_t type = 0;    // a column type; 0: guessed
  std::int32_t scale = -1;  // digits after the point; -1: as many as the longest cell has
  std::int32_t length = 0;  // characters; 0: the type's own limit
};

// A column is of whole numbers when every cell that is not empty is one as a program writes it: no blanks, no
// plus, no leading zeros. Among them a point makes a column of decimals, if no cell has more than 15 digits.
// Anything else, and a column of empty cells, is text.
class TypeGuess {
 public:
  TypeGuess() = default;
  explicit TypeGuess(const FieldSpec& given) : given_(given) {}

  // False: the cell is no number of the given type.
  bool add(std::string_view cell);
  // Cells of a source that knows types: a text is no number there, even when it looks like one.
  bool addWhole(std::int64_t value);
  bool addReal(double value);
  bool addText(std::string_view text);

  bool isGiven() const { return given_.type != 0; }
  // Every cell was empty.
  bool isOpen() const { return kind_ == Kind::none; }
  ColumnFormat format(XString name) const;
  // Bytes that the cells take as texts.
  std::size_t textBytes() const { return textBytes_; }

 private:
  enum class Kind : std::uint8_t { none, integer, longer, decimal, text };

  bool addToGiven(std::string_view cell);
  void addScale(std::int32_t scale) { scale_ = scale > scale_ ? scale : scale_; }
  void noteText(std::string_view cell) { textBytes_ += TextCells::storedSize(cell.size()); }
  static Kind kindOf(std::string_view cell, std::int32_t& digits, std::int32_t& scale);

  FieldSpec given_;
  Kind kind_ = Kind::none;
  bool digitsFitDecimal_ = true;  // no cell has more digits than a decimal keeps
  std::int32_t scale_ = 0;
  std::size_t textBytes_ = 0;
};

// "integer", "long", "decimal" and "text" as column types, 0 for any other word.
std::int32_t columnTypeOf(std::string_view word);
// What a cell of the type is called in a message: "an integer".
std::string_view columnTypeName(std::int32_t type);

// Puts the text into the column; false when it is no value of the column's type.
bool appendCell(Column& column, std::string_view cell);

}  // namespace tessera
