#include "rows/row_tree.h"

#include <algorithm>

namespace tessera {

void RowTree::buildPlain(std::int32_t count) { rowCount_ = std::max(count, 0); }

Row RowTree::find(std::int32_t number) const {
  return number >= 1 && number <= rowCount_ ? Row{number} : noRow;
}

RowView RowTree::view(Row row) const {
  return {.row = row, .goesOn = row.number < rowCount_ ? 1U : 0U, .isFirst = row.number == 1};
}

void RowTree::view(std::span<const Row> page, std::vector<RowView>& views) const {
  views.resize(page.size());
  std::transform(page.begin(), page.end(), views.begin(), [this](Row row) { return view(row); });
}

}  // namespace tessera
