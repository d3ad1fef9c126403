#include "interaction/row_copy.h"

namespace tessera {

Row RowCopy::copy(Row source, Row target, Place place) {
  const RowTree& rows = parts_.rows;
  const RowTree::Span beside = rows.subtree(target);
  const bool isChild = place == Place::FirstChild;
  const Row first{isChild ? target.number + 1 : beside.first.number + beside.count};
  levels_ = levelsBelow(source, rows.level(target) + (isChild ? 1 : 0));
  copies_.clear();
  const bool complete = copyRows(source, first);
  if (!edit_.holds()) return noRow;
  if (!complete) {
    for (std::size_t left = copies_.size(); left-- > 0 && edit_.holds();) edit_.erase(copies_[left]);
    return noRow;
  }
  edit_.arrived(first, levels_);
  for (const Row row : copies_) edit_.checkLevel(row);
  edit_.settle();
  return edit_.holds() ? first : noRow;
}

std::vector<std::int32_t> RowCopy::levelsBelow(Row source, std::int32_t level) const {
  const RowTree::Span span = parts_.rows.subtree(source);
  const std::int32_t deeper = level - parts_.rows.level(source);
  std::vector<std::int32_t> levels;
  for (std::int32_t number = span.first.number; number < span.first.number + span.count; ++number) {
    levels.push_back(parts_.rows.level({number}) + deeper);
  }
  return levels;
}

// The rows of the source move on as copies come in front of them.
bool RowCopy::copyRows(Row source, Row first) {
  for (std::size_t index = 0; index < levels_.size(); ++index) {
    const auto done = static_cast<std::int32_t>(index);
    const Row wanted{first.number + done};
    const Row copy = edit_.insert(wanted);
    if (copy) copies_.push_back(copy);
    if (copy != wanted) return false;
    const Row from{source.number + done + (first.number <= source.number ? done + 1 : 0)};
    if (!copyValues(from, copy, levels_[index])) return false;
  }
  return true;
}

bool RowCopy::copyValues(Row from, Row to, std::int32_t level) {
  const std::int32_t levelColumn = parts_.link.columnIndex(parts_.config.tree.levelColumn);
  const std::int32_t columns = parts_.link.columnCount();
  XValue value;
  for (std::int32_t column = 1; column <= columns && edit_.holds(); ++column) {
    if (column == levelColumn) {
      value = XValue::ofInt(level);
    } else {
      parts_.link.value(from.number, column, value);
    }
    parts_.link.setValue(to.number, column, value);
  }
  return edit_.holds();
}

}  // namespace tessera
