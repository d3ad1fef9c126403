#include "interaction/sort_press.h"

#include <utility>

#include "config/cell_style.h"

namespace tessera {

namespace {

constexpr std::int32_t markUp = 1, markDown = 2;

struct SortOrder {
  XString text;
  std::int32_t mark = markUp;
};

// Ascending, then back and forth.
SortOrder nextOrder(const XString& present, const XString& name) {
  XString ascending(u"+");
  ascending += name;
  if (present.find(ascending.view()) < 0) return {ascending, markUp};
  XString descending(u"-");
  descending += name;
  return {descending, markDown};
}

}  // namespace

bool SortPressController::start(ColumnPosition column, Point at) {
  const GridSettings& settings = parts_.settings;
  if (!settings.ViewHeader || !settings.Sort || !column) return false;
  if (parts_.config.tree.rowMode == RowMode::Tree) return false;
  ColumnRecord& record = column->value();
  if (!record.viewVisible || record.refColumnId.empty() || !record.header.rect.holds(at.x, at.y))
    return false;
  parts_.mouse.sort = {true, column, record.header.rect, record.header.borderStyle};
  record.header.borderStyle = border::sunkenInner;
  capture_.take();
  return true;
}

bool SortPressController::step(Point at) {
  const SortPress& press = parts_.mouse.sort;
  if (!press.pressed) return false;
  std::int32_t& shown = press.column->value().header.borderStyle;
  const std::int32_t wanted = press.rect.holds(at.x, at.y) ? border::sunkenInner : press.savedBorder;
  if (shown == wanted) return false;
  shown = wanted;
  return true;
}

bool SortPressController::end() {
  const SortPress press = std::exchange(parts_.mouse.sort, SortPress{});
  if (press.pressed) press.column->value().header.borderStyle = press.savedBorder;
  return capture_.release();
}

// The header is up again before the rows change.
bool SortPressController::release(ColumnPosition column) {
  const bool sorts = parts_.mouse.sort.pressed && column == parts_.mouse.sort.column;
  const bool ended = end();
  if (sorts) sort(column);
  return ended;
}

void SortPressController::sort(ColumnPosition column) {
  const auto dataSet = parts_.link.holdDataSet();
  if (!dataSet) return;
  XString present;
  dataSet->GetSortExpr(present);
  const SortOrder order = nextOrder(present, column->value().refColumnId);
  markColumn(column, order.mark);
  // The focus stays on its column when the rows come back.
  FocusModel& focus = parts_.focus;
  if (focus.CellMode && focus.FocusColumn) focus.FocusColumnName = focus.FocusColumn->value().refColumnId;
  dataSet->SetSortExpr(order.text);
  dataSet->ApplySort();
}

void SortPressController::markColumn(ColumnPosition column, std::int32_t mark) {
  for (ColumnRecord& other : parts_.config.columns) other.header.sortMark = 0;
  column->value().header.sortMark = mark;
}

}  // namespace tessera
