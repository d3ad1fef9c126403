#include "rows/group_states.h"

#include <vector>

namespace tessera {
namespace {

std::u16string keyOf(const RowTree& rows, const DataLink& link, Row row) {
  XString text;
  const auto group = static_cast<std::size_t>(rows.level(row)) - 1;
  link.text(row.number, rows.groups()[group].columnIndex, text);
  std::u16string key(text.view());
  return key += u'\0';
}

std::u16string pathOf(const RowTree& rows, const DataLink& link, Row row) {
  std::u16string path;
  for (; row; row = rows.parent(row)) path.insert(0, keyOf(rows, link, row));
  return path;
}

}  // namespace

GroupStates::GroupStates(const RowTree& rows, const DataLink& link, bool expanded)
    : other_(expanded ? RowState::Collapsed : RowState::Expanded) {
  for (Row row = rows.firstIn(other_, {1}); row; row = rows.firstIn(other_, {row.number + 1})) {
    paths_.insert(pathOf(rows, link, row));
  }
}

// A group stands behind its members, so the outer ones come first.
void GroupStates::restore(RowTree& rows, const DataLink& link, std::span<const std::int32_t> levels) const {
  if (paths_.empty()) return;
  const std::size_t groups = rows.groups().size();
  std::vector<std::u16string> paths(groups + 1);
  for (std::size_t index = levels.size(); index-- > 0;) {
    const auto level = static_cast<std::size_t>(levels[index]);
    if (level > groups) continue;
    const Row row{static_cast<std::int32_t>(index) + 1};
    paths[level] = paths[level - 1] + keyOf(rows, link, row);
    const RowState state = rows.state(row);
    if (state != RowState::Leaf && state != other_ && paths_.contains(paths[level])) rows.toggle(row);
  }
}

}  // namespace tessera
