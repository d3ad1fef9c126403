#include "components/type_guess.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace tessera {
namespace {

struct TypeWord {
  std::string_view word;
  std::int32_t type;
  std::string_view name;
};
constexpr TypeWord typeWords[] = {
    {"integer", columnInteger, "an integer"},
    {"long", columnLong, "a whole number"},
    {"decimal", columnDecimal, "a decimal number"},
    {"text", columnText, "a text"},
};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool fitsInteger(std::int64_t value) {
  using Limits = std::numeric_limits<std::int32_t>;
  return value >= Limits::min() && value <= Limits::max();
}

std::int32_t scaleOf(std::string_view cell) {
  const std::size_t point = cell.find('.');
  if (point == std::string_view::npos) return 0;
  const auto digits =
      std::find_if_not(cell.begin() + static_cast<std::ptrdiff_t>(point) + 1, cell.end(), isDigit);
  return static_cast<std::int32_t>(digits - cell.begin()) - static_cast<std::int32_t>(point) - 1;
}

bool parseInteger(std::string_view cell, std::int64_t& value) {
  return parseWhole(cell, value) && fitsInteger(value);
}

}  // namespace

std::int32_t columnTypeOf(std::string_view word) {
  for (const TypeWord& row : typeWords)
    if (row.word == word) return row.type;
  return 0;
}

std::string_view columnTypeName(std::int32_t type) {
  for (const TypeWord& row : typeWords)
    if (row.type == type) return row.name;
  return "a value";
}

TypeGuess::Kind TypeGuess::kindOf(std::string_view cell, std::int32_t& digits, std::int32_t& scale) {
  const bool negative = cell.front() == '-';
  const std::string_view number = cell.substr(negative ? 1 : 0);
  const std::size_t point = std::min(number.find('.'), number.size());
  const std::string_view whole = number.substr(0, point);
  const std::string_view fraction = number.substr(std::min(point + 1, number.size()));
  const bool leadingZero = whole.size() > 1 && whole[0] == '0';
  if (whole.empty() || leadingZero || (point < number.size() && fraction.empty())) return Kind::text;
  if (!std::all_of(whole.begin(), whole.end(), isDigit)) return Kind::text;
  if (!std::all_of(fraction.begin(), fraction.end(), isDigit)) return Kind::text;
  // A negative zero would lose its sign.
  if (negative && number.find_first_not_of("0.") == std::string_view::npos) return Kind::text;
  // Zeros at the end of a fraction ask nothing of a number's precision.
  const std::size_t needed = fraction.find_last_not_of('0') + 1;
  digits = static_cast<std::int32_t>(needed + (whole == "0" ? 0 : whole.size()));
  scale = static_cast<std::int32_t>(fraction.size());
  if (scale > 0) return digits <= decimalDigits && scale <= maxScale ? Kind::decimal : Kind::text;
  std::int64_t value = 0;
  const auto [end, fault] = std::from_chars(cell.data(), cell.data() + cell.size(), value);
  if (fault != std::errc() || end != cell.data() + cell.size()) return Kind::text;
  return fitsInteger(value) ? Kind::integer : Kind::longer;
}

bool TypeGuess::addToGiven(std::string_view cell) {
  std::int64_t whole = 0;
  double real = 0;
  switch (given_.type) {
    case columnInteger:
      return parseInteger(cell, whole);
    case columnLong:
      return parseWhole(cell, whole);
    case columnDecimal:
      addScale(scaleOf(cell));
      return parseDecimal(cell, real);
    default:
      return true;
  }
}

bool TypeGuess::add(std::string_view cell) {
  if (cell.empty()) return true;
  noteText(cell);
  if (given_.type != 0) return addToGiven(cell);
  if (kind_ == Kind::text) return true;
  std::int32_t digits = 0;
  std::int32_t scale = 0;
  kind_ = std::max(kind_, kindOf(cell, digits, scale));
  addScale(scale);
  digitsFitDecimal_ = digitsFitDecimal_ && digits <= decimalDigits;
  if (kind_ == Kind::decimal && !digitsFitDecimal_) kind_ = Kind::text;
  return true;
}

bool TypeGuess::addWhole(std::int64_t value) {
  NumberBuffer buffer;
  return add(wholeText(value, buffer));
}

bool TypeGuess::addReal(double value) {
  NumberBuffer buffer;
  if (!std::isfinite(value)) return addText("not finite");
  const std::string_view text = exactDecimalText(value, 0, buffer);
  noteText(text);
  if (given_.type != 0) return addToGiven(text);
  kind_ = std::max(kind_, digitsFitDecimal_ ? Kind::decimal : Kind::text);
  addScale(std::min(scaleOf(text), maxScale));
  return true;
}

bool TypeGuess::addText(std::string_view text) {
  if (given_.type == 0) kind_ = Kind::text;
  return add(text);
}

ColumnFormat TypeGuess::format(XString name) const {
  constexpr std::int32_t types[] = {columnText, columnInteger, columnLong, columnDecimal, columnText};
  ColumnFormat format;
  format.name = std::move(name);
  format.type = given_.type != 0 ? given_.type : types[static_cast<std::size_t>(kind_)];
  if (format.type == columnDecimal) format.scale = given_.scale >= 0 ? given_.scale : scale_;
  format.length = given_.length;
  return format;
}

bool appendCell(Column& column, std::string_view cell) {
  if (cell.empty()) return column.appendEmpty(), true;
  if (column.isText()) return column.appendText(cell), true;
  std::int64_t whole = 0;
  double real = 0;
  if (!column.isWhole()) {
    if (!parseDecimal(cell, real)) return false;
    return column.appendReal(real), true;
  }
  const bool narrow = column.format().type == columnInteger;
  if (!(narrow ? parseInteger(cell, whole) : parseWhole(cell, whole))) return false;
  return column.appendWhole(whole), true;
}

}  // namespace tessera
