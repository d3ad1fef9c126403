#include "rows/row_builder.h"

#include <algorithm>
#include <utility>

#include "rows/group_levels.h"
#include "rows/tree_levels.h"

namespace tessera {
namespace {

// Painter and hit test find the tree at the left end of the first column.
void prepareTreeColumn(ColumnList& columns, ColumnPosition position, bool withGroups) {
  ColumnRecord& column = position->value();
  column.view.align = align::leftCenter;
  if (withGroups) {
    for (GroupCell& group : column.groups) group.align = align::leftCenter;
  }
  columns.moveToHead(position);
}

}  // namespace

std::optional<ErrorCode> RowBuilder::build() {
  if (config.tree.rowMode == RowMode::Plain) {
    rows.buildPlain(link.rowCount());
    return std::nullopt;
  }
  const Arrangement found = read();
  if (found.treeColumn) arrange(found);
  return found.error;
}

std::optional<ErrorCode> RowBuilder::findTreeColumn(ColumnPosition& found) const {
  ColumnPosition first = nullptr;
  for (auto it = config.columns.begin(); it != config.columns.end(); ++it) {
    if (!it->hasTree) continue;
    if (first) return ErrorCode::TooManyTreeColumns;
    first = it.position();
  }
  found = first;
  return found ? std::nullopt : std::optional(ErrorCode::NoTreeColumn);
}

RowBuilder::Arrangement RowBuilder::read() const {
  Arrangement found;
  found.error = findTreeColumn(found.treeColumn);
  if (found.error) return found;
  config.tree.rowMode == RowMode::Tree ? readTree(found) : readGroups(found);
  return found;
}

void RowBuilder::readTree(Arrangement& found) const {
  TreeLevels read = readTreeLevels(link, config.tree.levelColumn, 0, link.rowCount(), 0);
  if (read.error == ErrorCode::NoTreeLevelColumn) found.treeColumn = nullptr;
  found.levels = std::move(read.levels);
  found.error = read.error;
}

void RowBuilder::readGroups(Arrangement& found) const {
  std::optional<GroupLevels> groups = parseSubsumExpr(link.subsumExpr(), link);
  if (!groups) {
    found.treeColumn = nullptr;
    found.error = ErrorCode::SubsumExpr;
    return;
  }
  found.levels = readGroupLevels(link, *groups);
  found.groups = std::move(*groups);
}

void RowBuilder::arrange(const Arrangement& found) {
  const bool groups = config.tree.rowMode == RowMode::Group;
  if (groups) {
    rows.buildGroups(found.groups, config.tree.expand, found.levels);
  } else {
    rows.buildTree(config.tree.expand, found.levels);
  }
  prepareTreeColumn(config.columns, found.treeColumn, groups);
}

std::optional<ErrorCode> RowBuilder::continueTree(std::int32_t count) {
  const std::int32_t before = rows.rowCount();
  const std::int32_t lastLevel = rows.level(rows.find(before));
  const TreeLevels read = readTreeLevels(link, config.tree.levelColumn, before, count, lastLevel);
  rows.appendToTree(read.levels);
  return read.error;
}

std::int32_t RowBuilder::levelOf(Row row) const {
  if (config.tree.rowMode == RowMode::Group) return groupLevelOf(link, rows.groups(), row.number);
  return treeLevelOf(link, link.columnIndex(config.tree.levelColumn), row.number);
}

// Whether the rows are arranged like that already.
bool RowBuilder::stand(const Arrangement& found) const {
  if (rows.isPlain() || rows.groups() != found.groups) return false;
  if (rows.rowCount() != static_cast<std::int32_t>(found.levels.size())) return false;
  bool same = true;
  auto level = found.levels.begin();
  rows.visitOutline([&](std::int32_t present, RowState) { same = *level++ == present && same; });
  return same;
}

RowBuilder::Rebuilt RowBuilder::rebuild(const GroupStates* states) {
  const Arrangement found = read();
  if (!found.treeColumn || stand(found)) return {false, found.error};
  std::vector<RowState> before;
  if (!rows.isPlain() && !states) {
    before.reserve(static_cast<std::size_t>(rows.rowCount()));
    rows.visitOutline([&before](std::int32_t, RowState state) { before.push_back(state); });
  }
  arrange(found);
  if (states) states->restore(rows, link, found.levels);
  const std::size_t common = std::min(before.size(), found.levels.size());
  for (std::size_t index = 0; index < common; ++index) {
    const Row row{static_cast<std::int32_t>(index) + 1};
    const RowState state = rows.state(row);
    const bool isParent = state != RowState::Leaf && before[index] != RowState::Leaf;
    if (isParent && state != before[index]) rows.toggle(row);
  }
  return {true, found.error};
}

}  // namespace tessera
