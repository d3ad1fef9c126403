#include "components/column_store.h"

#include <cassert>
#include <limits>
#include <utility>

namespace tessera {

namespace {

std::u16string lowerCase(std::u16string_view name) {
  std::u16string lower(name);
  for (char16_t& unit : lower) {
    if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit - u'A' + u'a');
  }
  return lower;
}

}  // namespace

void ColumnStore::addColumn(ColumnFormat format, bool hidden) {
  assert(hidden || visible_ == allColumnCount());
  if (!hidden) {
    lowerNames_.emplace(lowerCase(format.name.view()), visible_);
    const bool fresh = names_.emplace(std::u16string(format.name.view()), visible_++).second;
    assert(fresh);
    static_cast<void>(fresh);
  }
  columns_.emplace_back(std::move(format));
}

std::int32_t ColumnStore::find(std::u16string_view name) const {
  if (const auto found = names_.find(name); found != names_.end()) return found->second;
  const auto found = lowerNames_.find(lowerCase(name));
  return found == lowerNames_.end() ? -1 : found->second;
}

std::int32_t ColumnStore::newRecord() {
  if (!released_.empty()) {
    const std::int32_t record = released_.back();
    released_.pop_back();
    return record;
  }
  if (records_ == std::numeric_limits<std::int32_t>::max()) return -1;
  for (Column& column : columns_) column.appendEmpty();
  return records_++;
}

void ColumnStore::releaseRecord(std::int32_t record) {
  for (Column& column : columns_) {
    column.setEmpty(record);
    column.mark(record, false);
  }
  released_.push_back(record);
}

std::size_t ColumnStore::memoryBytes() const {
  std::size_t bytes = 0;
  for (const Column& column : columns_) bytes += column.memoryBytes();
  return bytes;
}

}  // namespace tessera
