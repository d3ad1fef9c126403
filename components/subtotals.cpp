#include "components/subtotals.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <string>
#include <utility>

#include "shared/compare.h"

namespace tessera {
namespace {

// The first line at or after `row`.
template <class Lines>
auto lineAt(Lines& lines, std::int32_t row) {
  return std::lower_bound(lines.begin(), lines.end(), row,
                          [](const auto& line, std::int32_t wanted) { return line.row < wanted; });
}

// How many keys two records share, from the outermost on.
std::int32_t sharedKeys(const std::vector<GroupKey>& keys, const ColumnStore& store, std::int32_t a,
                        std::int32_t b) {
  std::int32_t shared = 0;
  for (const GroupKey& key : keys) {
    if (store.column(key.column).compare(a, b) != 0) break;
    ++shared;
  }
  return shared;
}

}  // namespace

std::vector<GroupKey> parseSubsum(std::u16string_view text, const ColumnStore& store) {
  std::u16string packed(text);
  std::erase_if(packed, [](char16_t c) { return c == u' ' || c == u'\t'; });
  std::vector<GroupKey> keys;
  const std::u16string_view items = packed;
  for (std::size_t from = 0; from < items.size();) {
    const std::size_t comma = std::min(items.find(u',', from), items.size());
    const std::u16string_view item = items.substr(from, comma - from);
    const std::size_t colon = item.find(u':');
    if (colon == std::u16string_view::npos) return {};
    const GroupKey key{parseInt(item.substr(0, colon)), store.find(item.substr(colon + 1))};
    if (key.level < 1) return {};
    keys.push_back(key);
    from = comma + 1;
  }
  return keys;
}

void Subtotals::setKeys(std::vector<GroupKey> keys) {
  const bool known =
      std::all_of(keys.begin(), keys.end(), [](const GroupKey& key) { return key.column >= 0; });
  keys_ = known ? std::move(keys) : std::vector<GroupKey>();
}

std::int32_t Subtotals::depthOfLevel(std::int32_t level) const {
  const auto found =
      std::find_if(keys_.begin(), keys_.end(), [=](const GroupKey& key) { return key.level == level; });
  return found == keys_.end() ? 0 : static_cast<std::int32_t>(found - keys_.begin()) + 1;
}

void Subtotals::build(const ColumnStore& store, RowOrder& order) {
  lines_.assign(keys_.size(), {});
  sums_.clear();
  std::vector<std::int32_t> entries;
  entries.reserve(static_cast<std::size_t>(order.count()));
  std::int32_t last = -1;
  const auto closeGroups = [&](std::int32_t keptDepth) {
    for (std::int32_t depth = innermost(); depth > keptDepth; --depth) {
      linesOf(depth).push_back({.row = static_cast<std::int32_t>(entries.size()), .keyRecord = last});
      entries.push_back(-depth);
    }
  };
  for (std::int32_t row = 0; row < order.count(); ++row) {
    const std::int32_t record = order.at(row);
    if (record < 0) continue;
    if (last >= 0) closeGroups(sharedKeys(keys_, store, last, record));
    entries.push_back(record);
    last = record;
  }
  if (last >= 0) closeGroups(0);
  order.assign(std::move(entries));
}

const Subtotals::Line& Subtotals::line(std::int32_t row, std::int32_t depth) const {
  const auto found = lineAt(linesOf(depth), row);
  assert(found != linesOf(depth).end() && found->row == row);
  return *found;
}

void Subtotals::shift(std::int32_t fromRow, std::int32_t by) {
  for (Lines& lines : lines_)
    for (auto line = lineAt(lines, fromRow); line != lines.end(); ++line) line->row += by;
}

void Subtotals::rowInserted(std::int32_t row) {
  shift(row, 1);
  rowChanged(row);
}

std::int32_t Subtotals::rowErased(std::int32_t row, std::int32_t record, RowOrder& order) {
  shift(row, -1);
  rowChanged(row);
  std::int32_t gone = 0;
  for (std::int32_t depth = innermost(); depth > 0; --depth) {
    const auto line = lineAt(linesOf(depth), row);
    if (line == linesOf(depth).end() || line->row != row) continue;
    if (subtotalBefore(row, depth) != row - 1) break;
    linesOf(depth).erase(line);
    order.erase(row);
    shift(row, -1);
    ++gone;
  }
  for (Lines& lines : lines_) {
    const auto line = lineAt(lines, row);
    if (line == lines.end() || line->keyRecord != record) continue;
    std::int32_t heir = line->row - 1;
    while (order.at(heir) < 0) --heir;
    line->keyRecord = order.at(heir);
  }
  return gone;
}

void Subtotals::rowChanged(std::int32_t row) {
  for (Lines& lines : lines_)
    if (const auto line = lineAt(lines, row); line != lines.end()) line->stale = true;
}

std::int32_t Subtotals::subtotalAfter(std::int32_t row, std::int32_t depth) const {
  std::int32_t nearest = -1;
  for (std::int32_t d = 1; d <= depth; ++d) {
    const auto line = lineAt(linesOf(d), row);
    if (line != linesOf(d).end() && (nearest < 0 || line->row < nearest)) nearest = line->row;
  }
  return nearest;
}

std::int32_t Subtotals::subtotalBefore(std::int32_t row, std::int32_t depth) const {
  std::int32_t nearest = -1;
  for (std::int32_t d = 1; d <= depth; ++d) {
    const auto line = lineAt(linesOf(d), row);
    if (line != linesOf(d).begin()) nearest = std::max(nearest, std::prev(line)->row);
  }
  return nearest;
}

void Subtotals::refresh(Line& line, std::int32_t depth, const ColumnStore& store, const DataRows& rows) {
  const auto columns = static_cast<std::size_t>(store.columnCount());
  if (line.sums < 0) {
    line.sums = static_cast<std::int32_t>(sums_.size() / columns);
    sums_.resize(sums_.size() + columns);
  }
  const std::int32_t begin = subtotalBefore(line.row, depth) + 1;
  for (std::size_t c = 0; c < columns; ++c)
    sums_[static_cast<std::size_t>(line.sums) * columns + c] =
        totalOf(rows, store.column(static_cast<std::int32_t>(c)), begin, line.row);
  line.stale = false;
}

void Subtotals::value(std::int32_t row, std::int32_t depth, std::int32_t column, const ColumnStore& store,
                      const DataRows& rows, XValue& result) {
  const bool isText = store.column(column).isText();
  const auto giveNothing = [&result, isText] { return isText ? result.setText(u"") : result.setEmpty(); };
  Line& line = *lineAt(linesOf(depth), row);
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    if (keys_[i].column != column) continue;
    if (static_cast<std::int32_t>(i) < depth) return store.column(column).value(line.keyRecord, result);
    return giveNothing();
  }
  if (isText) return giveNothing();
  if (line.stale) refresh(line, depth, store, rows);
  const auto columns = static_cast<std::size_t>(store.columnCount());
  sums_[static_cast<std::size_t>(line.sums) * columns + static_cast<std::size_t>(column)].value(
      store.column(column), result);
}

void Subtotals::select(std::int32_t row, std::int32_t depth, bool on) {
  lineAt(linesOf(depth), row)->selected = on;
}

}  // namespace tessera
