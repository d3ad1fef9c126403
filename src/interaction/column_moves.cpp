#include "interaction/column_moves.h"

namespace tessera {

void moveColumn(ColumnRecord& column, std::int32_t dx) {
  for (Rect* rect : {&column.header.rect, &column.view.rect}) {
    rect->left = addClamped(rect->left, dx);
    rect->right = addClamped(rect->right, dx);
  }
}

void widenColumn(ColumnRecord& column, std::int32_t dx) {
  for (Rect* rect : {&column.header.rect, &column.view.rect}) rect->right = addClamped(rect->right, dx);
}

void ShiftEdge(ColumnList& columns, std::int32_t edge, std::int32_t dx) {
  for (ColumnRecord& column : columns) {
    const Rect& header = column.header.rect;
    if (header.left >= edge) {
      moveColumn(column, dx);
    } else if (header.right >= edge) {
      widenColumn(column, dx);
    }
  }
}

}  // namespace tessera
