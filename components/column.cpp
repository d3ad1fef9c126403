#include "components/column.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

#include "shared/change_type.h"
#include "shared/utf.h"

namespace tessera {
namespace {

constexpr std::uint64_t signBit = std::uint64_t{1} << 63;

template <class T>
std::int32_t order(const T& a, const T& b) {
  return a < b ? -1 : b < a ? 1 : 0;
}

std::size_t at(std::int32_t record) { return static_cast<std::size_t>(record); }

// The order of unsigned numbers is then the order of the doubles.
std::uint64_t orderedBits(double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value + 0.0);  // -0 becomes 0
  return (bits & signBit) != 0 ? ~bits : bits | signBit;
}

constexpr std::size_t pieceBytes = 7;

// Seven bytes of the text and how many are left from here, 8 meaning more than these: a text orders before a
// longer one that starts with it.
Column::OrderPiece textPiece(std::string_view text, std::size_t index) {
  const std::size_t from = std::min(index * pieceBytes, text.size());
  const std::size_t left = std::min(text.size() - from, pieceBytes + 1);
  std::uint64_t key = 0;
  for (std::size_t i = 0; i < pieceBytes; ++i)
    key = key << 8 | (i < left ? static_cast<unsigned char>(text[from + i]) : 0u);
  return {key << 8 | (left + 1), left > pieceBytes};
}

}  // namespace

Column::Column(ColumnFormat format) : format_(std::move(format)) {
  format_.scale = format_.type == columnDecimal ? std::clamp(format_.scale, 0, maxScale) : 0;
  switch (format_.type) {
    case columnInteger:
      cells_.emplace<Integers>();
      break;
    case columnLong:
      cells_.emplace<Longs>();
      break;
    case columnDecimal:
      cells_.emplace<Reals>();
      break;
    default:
      format_.type = columnText;
  }
}

bool Column::isEmpty(std::int32_t record) const {
  const auto* texts = std::get_if<TextCells>(&cells_);
  return texts ? texts->isEmpty(record) : empty_.get(record);
}

std::int64_t Column::whole(std::int32_t record) const {
  const auto* integers = std::get_if<Integers>(&cells_);
  return integers ? (*integers)[at(record)] : std::get<Longs>(cells_)[at(record)];
}

double Column::real(std::int32_t record) const {
  const auto* reals = std::get_if<Reals>(&cells_);
  return reals ? (*reals)[at(record)] : static_cast<double>(whole(record));
}

std::string_view Column::text(std::int32_t record) const { return std::get<TextCells>(cells_).view(record); }

std::string_view Column::shown(std::int32_t record, NumberBuffer& buffer) const {
  if (isText()) return text(record);
  if (empty_.get(record)) return {};
  return isWhole() ? wholeText(whole(record), buffer) : decimalText(real(record), format_.scale, buffer);
}

void Column::value(std::int32_t record, XValue& result) const {
  if (empty_.get(record)) return result.setEmpty();
  switch (format_.type) {
    case columnInteger:
      return result.setInt(static_cast<std::int32_t>(whole(record)));
    case columnLong:
      return result.setInt64(whole(record));
    case columnDecimal:
      return result.setDouble(real(record));
    default:
      assignUtf8(result.textBuffer(), text(record));
      return result.becomeText();
  }
}

void Column::reserve(std::size_t records, std::size_t textBytes) {
  if (auto* texts = std::get_if<TextCells>(&cells_)) texts->reserve(records, textBytes);
  if (auto* integers = std::get_if<Integers>(&cells_)) integers->reserve(records);
  if (auto* longs = std::get_if<Longs>(&cells_)) longs->reserve(records);
  if (auto* reals = std::get_if<Reals>(&cells_)) reals->reserve(records);
}

std::int32_t Column::nextRecord() const {
  return std::visit([](const auto& cells) { return static_cast<std::int32_t>(cells.size()); }, cells_);
}

void Column::appendEmpty() {
  if (auto* texts = std::get_if<TextCells>(&cells_)) return texts->appendEmpty();
  empty_.set(nextRecord(), true);
  if (isWhole()) return appendWhole(0);
  std::get<Reals>(cells_).push_back(0);
}

void Column::appendWhole(std::int64_t value) {
  if (auto* integers = std::get_if<Integers>(&cells_))
    return integers->push_back(static_cast<std::int32_t>(value));
  std::get<Longs>(cells_).push_back(value);
}

void Column::appendReal(double value) { std::get<Reals>(cells_).push_back(value); }

void Column::appendText(std::string_view utf8) { std::get<TextCells>(cells_).append(utf8); }

Column::Change Column::set(std::int32_t record, const XValue& value) {
  const bool isNothing = value.type() == VT_EMPTY || value.type() == VT_NULL ||
                         (!isText() && value.type() == VT_BSTR && value.asText().empty());
  if (isNothing) {
    if (isEmpty(record)) return Change::same;
    setEmpty(record);
    return Change::changed;
  }
  return isText() ? setText(record, value) : setNumber(record, value);
}

Column::Change Column::setText(std::int32_t record, const XValue& value) {
  XValue converted;
  const bool ready = value.type() == VT_BSTR;
  if (!ready && !succeeded(changeType(value, VT_BSTR, converted))) return Change::refused;
  const std::string utf8 = utf8FromUtf16((ready ? value : converted).asText().view());
  auto& texts = std::get<TextCells>(cells_);
  // A text of no characters says nothing new about an empty cell.
  if (texts.view(record) == utf8) return Change::same;
  texts.set(record, utf8);
  return Change::changed;
}

Column::Change Column::setNumber(std::int32_t record, const XValue& value) {
  const VarType wanted = format_.type == columnInteger ? VT_I4 : format_.type == columnLong ? VT_I8 : VT_R8;
  XValue converted;
  if (!succeeded(changeType(value, wanted, converted))) return Change::refused;
  if (wanted == VT_R8 && !std::isfinite(converted.asDouble())) return Change::refused;
  const auto put = [&](auto& cell, auto number) {
    if (cell == number && !empty_.get(record)) return Change::same;
    cell = number;
    empty_.set(record, false);
    return Change::changed;
  };
  if (auto* integers = std::get_if<Integers>(&cells_)) return put((*integers)[at(record)], converted.asInt());
  if (auto* longs = std::get_if<Longs>(&cells_)) return put((*longs)[at(record)], converted.asInt64());
  return put(std::get<Reals>(cells_)[at(record)], converted.asDouble());
}

void Column::setEmpty(std::int32_t record) {
  if (auto* texts = std::get_if<TextCells>(&cells_)) return texts->setEmpty(record);
  if (auto* integers = std::get_if<Integers>(&cells_)) (*integers)[at(record)] = 0;
  if (auto* longs = std::get_if<Longs>(&cells_)) (*longs)[at(record)] = 0;
  if (auto* reals = std::get_if<Reals>(&cells_)) (*reals)[at(record)] = 0;
  empty_.set(record, true);
}

std::int32_t Column::compare(std::int32_t a, std::int32_t b) const {
  if (isEmpty(a) || isEmpty(b)) return order(isEmpty(b), isEmpty(a));
  if (isText()) return order(text(a).compare(text(b)), 0);
  return isWhole() ? order(whole(a), whole(b)) : order(real(a), real(b));
}

// Every key of a cell that is not empty is above 0.
Column::OrderPiece Column::orderPiece(std::int32_t record, std::size_t index) const {
  if (isEmpty(record)) return {};
  switch (format_.type) {
    case columnInteger:
      return {static_cast<std::uint64_t>(whole(record)) + signBit, false};
    case columnDecimal:
      return {orderedBits(real(record)), false};
    case columnLong: {
      const std::uint64_t bits = static_cast<std::uint64_t>(whole(record)) ^ signBit;
      if (index == 0) return {(bits >> 32) + 1, true};
      return {bits & 0xFFFFFFFFu, false};
    }
    default:
      return textPiece(text(record), index);
  }
}

std::size_t Column::memoryBytes() const {
  if (const auto* texts = std::get_if<TextCells>(&cells_)) return texts->memoryBytes();
  if (const auto* integers = std::get_if<Integers>(&cells_))
    return integers->capacity() * sizeof(std::int32_t);
  return static_cast<std::size_t>(nextRecord()) * sizeof(double);
}

}  // namespace tessera
