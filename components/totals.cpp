#include "components/totals.h"

#include <cmath>
#include <limits>

#include "shared/compare.h"
#include "shared/utf.h"

namespace tessera {

std::int32_t DataRows::levelOf(std::int32_t record) const {
  if (levelColumn_ < 0) return 0;
  const Column& column = store_.column(levelColumn_);
  if (column.isText()) return parseInt(utf16FromUtf8(column.text(record)));
  return static_cast<std::int32_t>(column.real(record));
}

void Total::addWhole(std::int64_t value) {
  ++count_;
  if (wholeFits_ && !__builtin_add_overflow(whole_, value, &whole_)) return;
  if (wholeFits_) {
    wholeFits_ = false;
    // The overflowing addition left the wrapped sum behind.
    whole_ =
        static_cast<std::int64_t>(static_cast<std::uint64_t>(whole_) - static_cast<std::uint64_t>(value));
    real_ = static_cast<double>(whole_);
  }
  --count_;
  addReal(static_cast<double>(value));
}

void Total::addReal(double value) {
  ++count_;
  const double sum = real_ + value;
  lost_ += std::abs(real_) >= std::abs(value) ? real_ - sum + value : value - sum + real_;
  real_ = sum;
}

void Total::value(const Column& column, XValue& result) const {
  if (count_ == 0) return result.setEmpty();
  if (!column.isWhole() || !wholeFits_) return result.setDouble(withoutRoundingNoise(real()));
  using Limits = std::numeric_limits<std::int32_t>;
  const bool narrow =
      column.format().type == columnInteger && whole_ >= Limits::min() && whole_ <= Limits::max();
  if (narrow) return result.setInt(static_cast<std::int32_t>(whole_));
  result.setInt64(whole_);
}

Total totalOf(const DataRows& rows, const Column& column, std::int32_t from, std::int32_t to) {
  Total total;
  if (column.isText()) return total;
  if (column.isWhole()) {
    rows.each(from, to, [&](std::int32_t record) {
      if (!column.isEmpty(record)) total.addWhole(column.whole(record));
    });
  } else {
    rows.each(from, to, [&](std::int32_t record) {
      if (!column.isEmpty(record)) total.addReal(column.real(record));
    });
  }
  return total;
}

std::int32_t extremeOf(const DataRows& rows, const Column& column, std::int32_t from, std::int32_t to,
                       bool greatest) {
  std::int32_t best = -1;
  rows.each(from, to, [&](std::int32_t record) {
    if (column.isEmpty(record)) return;
    if (best >= 0) {
      const std::int32_t order = column.compare(record, best);
      if (greatest ? order <= 0 : order >= 0) return;
    }
    best = record;
  });
  return best;
}

}  // namespace tessera
