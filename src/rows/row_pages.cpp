#include "rows/row_pages.h"

namespace tessera {

RowNode* RowPages::node(std::int32_t row, RowNode* parent) {
  const std::int32_t page = (row - 1) / pageRows;
  std::unique_ptr<Page>& nodes = pages_[page];
  if (!nodes) {
    nodes = std::make_unique<Page>();
    std::int64_t number = static_cast<std::int64_t>(page) * pageRows;
    for (RowNode& fresh : *nodes) {
      fresh.parent = parent;
      fresh.row = static_cast<std::int32_t>(++number);
    }
  }
  return &(*nodes)[static_cast<std::size_t>((row - 1) % pageRows)];
}

}  // namespace tessera
