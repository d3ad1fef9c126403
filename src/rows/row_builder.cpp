#include "rows/row_builder.h"

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
  switch (config.tree.rowMode) {
    case RowMode::Plain:
      rows.buildPlain(link.rowCount());
      return std::nullopt;
    case RowMode::Group:
      return buildGroups();
    case RowMode::Tree:
      return buildTree();
  }
  return std::nullopt;
}

std::optional<ErrorCode> RowBuilder::findTreeColumn(ColumnPosition& found) const {
  for (auto it = config.columns.begin(); it != config.columns.end(); ++it) {
    if (!it->hasTree) continue;
    if (found) return ErrorCode::TooManyTreeColumns;
    found = it.position();
  }
  return found ? std::nullopt : std::optional(ErrorCode::NoTreeColumn);
}

std::optional<ErrorCode> RowBuilder::buildTree() {
  ColumnPosition column = nullptr;
  if (const auto error = findTreeColumn(column)) return error;
  const TreeLevels read = readTreeLevels(link, config.tree.levelColumn, 0, link.rowCount(), 0);
  if (read.error == ErrorCode::NoTreeLevelColumn) return read.error;
  rows.buildTree(config.tree.expand, read.levels);
  prepareTreeColumn(config.columns, column, false);
  return read.error;
}

std::optional<ErrorCode> RowBuilder::continueTree(std::int32_t count) {
  const std::int32_t before = rows.rowCount();
  const std::int32_t lastLevel = rows.view(rows.find(before)).level;
  const TreeLevels read = readTreeLevels(link, config.tree.levelColumn, before, count, lastLevel);
  rows.appendToTree(read.levels);
  return read.error;
}

std::optional<ErrorCode> RowBuilder::buildGroups() {
  ColumnPosition column = nullptr;
  if (const auto error = findTreeColumn(column)) return error;
  std::optional<GroupLevels> groups = parseSubsumExpr(link.subsumExpr(), link);
  if (!groups) return ErrorCode::SubsumExpr;
  rows.buildGroups(*groups, config.tree.expand, readGroupLevels(link, *groups));
  prepareTreeColumn(config.columns, column, true);
  return std::nullopt;
}

}  // namespace tessera
