// Results of range aggregates, kept until the data changes.

#pragma once

#include <array>
#include <cstdint>

#include <tessera/xvalue.h>

namespace tessera {

enum class RangeFigure : std::uint8_t { sum, greatest, least, average, count };

struct AggregateQuery {
  RangeFigure kind = RangeFigure::sum;
  std::int32_t column = 0;
  std::int32_t from = 0;
  std::int32_t to = 0;
  bool operator==(const AggregateQuery&) const = default;
};

// A paint asks for the same sums row after row; each place holds the last query that fell on it. Answers of
// another revision of the data do not count.
class AggregateCache {
 public:
  // The answer to the query; `compute(result)` makes it where it is not known.
  template <class Compute>
  const XValue& answer(const AggregateQuery& query, std::uint64_t revision, Compute compute) {
    Entry& entry = entries_[place(query)];
    if (entry.revision != revision || entry.query != query) {
      compute(entry.result);
      entry.query = query;
      entry.revision = revision;
    }
    return entry.result;
  }

 private:
  static constexpr std::size_t places = 64;

  struct Entry {
    AggregateQuery query;
    std::uint64_t revision = 0;  // never the revision of data: those count from 1
    XValue result;
  };

  static std::size_t place(const AggregateQuery& query) {
    std::uint64_t hash = static_cast<std::uint64_t>(query.kind);
    for (const std::int32_t part : {query.column, query.from, query.to})
      hash = (hash ^ static_cast<std::uint32_t>(part)) * 0x9E3779B97F4A7C15u;
    return hash >> 58;
  }
  static_assert(places == 64, "place() gives six bits");

  std::array<Entry, places> entries_;
};

}  // namespace tessera
