#include "bench/rows/outline_data.h"

#include <functional>

#include "bench/support/report.h"
#include "shared/compare.h"

namespace tessera {

std::shared_ptr<OutlineData> OutlineData::tree(std::int32_t depth, std::int32_t fanOut, std::int32_t top) {
  auto data = std::make_shared<OutlineData>();
  const std::function<void(std::int32_t)> grow = [&](std::int32_t level) {
    data->add(level);
    for (std::int32_t child = 0; level < depth && child < fanOut; ++child) grow(level + 1);
  };
  while (top-- > 0) grow(1);
  return data;
}

std::shared_ptr<OutlineData> OutlineData::groups(std::int32_t members, std::int32_t fanOut,
                                                 std::int32_t top) {
  auto data = std::make_shared<OutlineData>();
  data->isTree_ = false;
  const std::function<void(std::int32_t)> grow = [&](std::int32_t level) {
    const bool innermost = level == groupLevels;
    for (std::int32_t each = 0; each < (innermost ? members : fanOut); ++each) {
      innermost ? data->add(level + 1) : grow(level + 1);
    }
    data->add(level);
  };
  while (top-- > 0) grow(1);
  return data;
}

void OutlineData::GetColumnIndex(const XString& name, std::int32_t& column) {
  column = name == u"LEVEL" ? 1 : 2;
}

void OutlineData::GetLevel(std::int32_t row, std::int32_t& level) {
  level = row >= 1 && row <= rowCount() && isSum(row) ? levelOf(row) + 1 : 0;
}

void OutlineData::GetValue(std::int32_t row, std::int32_t column, XValue& value) {
  value.setInt(column == 1 ? levelOf(row) : row);
}

void OutlineData::SetValue(std::int32_t row, std::int32_t column, const XValue& value) {
  if (column == 1 && isTree_)
    levels_[static_cast<std::size_t>(row) - 1] = static_cast<std::int8_t>(value.asInt());
}

void OutlineData::GetText(std::int32_t row, std::int32_t, XString& text) {
  if (row == inserted_) {
    text = key_;
  } else {
    text.format("%d", row);
  }
}

void OutlineData::SetText(std::int32_t, std::int32_t, const XString& text) { key_ = text; }

void OutlineData::SetTextByName(std::int32_t row, const XString& name, const XString& text) {
  if (name == u"LEVEL") SetValue(row, 1, XValue::ofInt(parseInt(text)));
}

std::int32_t OutlineData::InsertRow(std::int32_t row) {
  own_ += milliseconds([&] {
    levels_.insert(levels_.begin() + row - 1, static_cast<std::int8_t>(isTree_ ? 1 : groupLevels + 1));
  });
  current_ = inserted_ = row;
  sink_->RowInserted(row);
  return row;
}

void OutlineData::DeleteRow(std::int32_t row) {
  std::int32_t gone = 0;
  do {
    own_ += milliseconds([&] { levels_.erase(levels_.begin() + row - 1); });
    ++gone;
  } while (row <= rowCount() && isSum(row) && (row == 1 || levelOf(row - 1) <= levelOf(row)));
  inserted_ = 0;
  current_ = row <= rowCount() ? row : rowCount();
  while (gone-- > 0) sink_->RowDeleted(row);
}

void OutlineData::CommitRows() {
  for (std::int32_t level = sumsFrom_; level <= groupLevels; ++level) {
    own_ +=
        milliseconds([&] { levels_.insert(levels_.begin() + inserted_, static_cast<std::int8_t>(level)); });
  }
  sumsFrom_ = groupLevels + 1;
}

}  // namespace tessera
