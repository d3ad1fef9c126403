#include "components/sort_keys.h"

#include <algorithm>

namespace tessera {
namespace {

constexpr std::u16string_view blanks = u" \t";

std::u16string_view trimmed(std::u16string_view text) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::u16string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

struct NamedItem {
  std::int32_t column = -1;  // -1: no start of the text names one
  std::size_t length = 0;    // up to the comma behind it
};

// The longest start of `text` up to a comma, or to its end, that names a column.
NamedItem longestName(std::u16string_view text, const ColumnStore& store) {
  for (std::size_t end = text.size();;) {
    const std::u16string_view name = text.substr(0, end);
    std::int32_t column = store.find(name);
    if (column < 0) column = store.find(trimmed(name));
    if (column >= 0) return {column, end};
    const std::size_t comma = end == 0 ? std::u16string_view::npos : text.rfind(u',', end - 1);
    if (comma == std::u16string_view::npos) return {};
    end = comma;
  }
}

// A record with the piece of its order that is being sorted by.
struct Entry {
  std::uint64_t key;
  std::int32_t record;
  bool more;
};

// A run of entries that all earlier pieces leave equal.
struct Run {
  std::size_t begin;
  std::size_t end;
  std::size_t key;    // index of the sort key
  std::size_t piece;  // index of the piece of that key's cells
};

void sortByPiece(std::span<Entry> run) {
  constexpr std::size_t shortRun = 16;
  const auto less = [](const Entry& a, const Entry& b) { return a.key < b.key; };
  if (run.size() > shortRun) {
    if (!std::is_sorted(run.begin(), run.end(), less)) std::stable_sort(run.begin(), run.end(), less);
    return;
  }
  for (auto entry = run.begin(); entry != run.end(); ++entry)
    std::rotate(std::upper_bound(run.begin(), entry, *entry, less), entry, entry + 1);
}

}  // namespace

std::optional<std::vector<SortKey>> parseSortKeys(std::u16string_view text, const ColumnStore& store) {
  std::vector<SortKey> keys;
  if (trimmed(text).empty()) return keys;
  for (std::size_t from = 0; from <= text.size();) {
    from = std::min(text.find_first_not_of(blanks, from), text.size());
    const bool sign = from < text.size() && (text[from] == u'+' || text[from] == u'-');
    const bool descending = sign && text[from] == u'-';
    if (sign) ++from;
    const NamedItem item = longestName(text.substr(from), store);
    if (item.column < 0) return std::nullopt;
    keys.push_back({item.column, descending});
    from += item.length + 1;
  }
  return keys;
}

// Cells are read once for each piece and not once for each comparison: in a big column nearly every read
// waits for memory.
void sortRecords(std::span<std::int32_t> records, std::span<const SortKey> keys, const ColumnStore& store) {
  std::vector<Entry> entries(records.size());
  for (std::size_t i = 0; i < records.size(); ++i) entries[i].record = records[i];
  std::vector<Run> runs = {{0, entries.size(), 0, 0}};
  while (!runs.empty()) {
    const Run run = runs.back();
    runs.pop_back();
    if (run.end - run.begin < 2 || run.key == keys.size()) continue;
    const Column& column = store.column(keys[run.key].column);
    const std::uint64_t flip = keys[run.key].descending ? ~std::uint64_t{0} : 0;
    for (std::size_t i = run.begin; i < run.end; ++i) {
      const Column::OrderPiece piece = column.orderPiece(entries[i].record, run.piece);
      entries[i].key = piece.key ^ flip;
      entries[i].more = piece.more;
    }
    sortByPiece({entries.data() + run.begin, run.end - run.begin});
    for (std::size_t from = run.begin, to = from; from < run.end; from = to) {
      while (to < run.end && entries[to].key == entries[from].key) ++to;
      const bool more = entries[from].more;
      if (to - from > 1) runs.push_back({from, to, more ? run.key : run.key + 1, more ? run.piece + 1 : 0});
    }
  }
  std::transform(entries.begin(), entries.end(), records.begin(), [](const Entry& e) { return e.record; });
}

}  // namespace tessera
