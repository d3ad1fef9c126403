#include "tools/view/cell_search.h"

#include <algorithm>
#include <tuple>

#include "cells/cell_kinds.h"

namespace tessera {

namespace {

bool showsText(const ColumnRecord& column) {
  const bool isSecret = (column.child.inputType & input_type::password) != 0;
  return kindOf(column).isText && column.viewVisible && !isSecret;
}

}  // namespace

CellSearch::CellSearch(Tessera& grid, const SearchQuery& query)
    : grid_(grid),
      matcher_(query.text, query.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive),
      backwards_(query.backwards) {
  takeColumns();
  rows_ = grid_.parts().link.rowCount();
  if (!query.text.isEmpty()) all_ = std::int64_t{rows_} * static_cast<std::int64_t>(columns_.size());
  takeStart();
}

void CellSearch::takeColumns() {
  std::vector<const ColumnRecord*> shown;
  for (const ColumnRecord& column : grid_.parts().config.columns) {
    if (showsText(column)) shown.push_back(&column);
  }
  std::stable_sort(shown.begin(), shown.end(), [](const ColumnRecord* a, const ColumnRecord* b) {
    const Rect& left = a->view.rect;
    const Rect& right = b->view.rect;
    return std::tie(left.top, left.left) < std::tie(right.top, right.left);
  });
  for (const ColumnRecord* column : shown) columns_.push_back(column->id);
}

// Without a focus cell among the columns: before the first of the row.
void CellSearch::takeStart() {
  XString column;
  std::int32_t row = -1;
  grid_.get_RowPosition(row);
  grid_.get_ColumnPosition(column);
  row_ = std::clamp(row, 1, std::max(rows_, 1));
  const auto found = std::find(columns_.begin(), columns_.end(), column);
  if (row >= 1 && found != columns_.end()) {
    at_ = static_cast<std::int32_t>(found - columns_.begin());
  } else if (backwards_) {
    at_ = 0;
  }
}

// To the next cell, around the ends; false when all have been seen.
bool CellSearch::step() {
  if (seen_ == all_) return false;
  ++seen_;
  const auto last = static_cast<std::int32_t>(columns_.size()) - 1;
  at_ += backwards_ ? -1 : 1;
  if (at_ >= 0 && at_ <= last) return true;
  at_ = backwards_ ? last : 0;
  row_ += backwards_ ? -1 : 1;
  if (row_ >= 1 && row_ <= rows_) return true;
  row_ = backwards_ ? rows_ : 1;
  wrapped_ = true;
  return true;
}

bool CellSearch::isHit() {
  constexpr std::int32_t cellKind = 3;
  text_.assign({});
  grid_.get_GetText(column(), row_, cellKind, text_);
  const std::u16string_view text = text_.view();
  return matcher_.indexIn(QStringView(text.data(), static_cast<qsizetype>(text.size()))) >= 0;
}

CellSearch::State CellSearch::run(std::chrono::steady_clock::duration slice) {
  constexpr int cellsBetweenLooks = 64;  // at the clock
  const auto end = std::chrono::steady_clock::now() + slice;
  rows_ = grid_.parts().link.rowCount();
  if (rows_ == 0) return State::NotFound;
  row_ = std::min(row_, rows_);
  do {
    for (int i = 0; i < cellsBetweenLooks; ++i) {
      if (!step()) return State::NotFound;
      if (isHit()) return State::Found;
    }
  } while (std::chrono::steady_clock::now() < end);
  return State::Running;
}

std::int32_t CellSearch::rowsSeen() const {
  return columns_.empty() ? 0 : static_cast<std::int32_t>(seen_ / static_cast<std::int64_t>(columns_.size()));
}

}  // namespace tessera
