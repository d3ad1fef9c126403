#include "geometry/column_edges.h"

#include <algorithm>
#include <vector>

namespace tessera {

namespace {

bool passedOver(const ColumnRecord& column, const Rect& rect, const ExpandOptions& options) {
  if (!options.fixedToo) return column.header.fix;
  return !column.header.fix && rect.left < options.limit;
}

struct Span {
  std::int32_t left;
  std::int32_t right;
};

// What may push an edge, in the order in which an edge on its way meets it: one walk finds where it ends.
template <class Before>
std::vector<Span> pushers(const ColumnList& columns, const ExpandOptions& options, Before before) {
  std::vector<Span> spans;
  for (const ColumnRecord& column : columns) {
    const Rect& rect = options.useHeader ? column.header.rect : column.view.rect;
    if (!passedOver(column, rect, options)) spans.push_back({rect.left, rect.right});
  }
  std::sort(spans.begin(), spans.end(), before);
  return spans;
}

}  // namespace

FixedRange fixedRange(const ColumnList& columns) {
  FixedRange range;
  for (const ColumnRecord& column : columns) {
    if (!column.header.fix) continue;
    range.left = std::min(range.left, column.header.rect.left);
    range.right = std::max(range.right, column.header.rect.right);
  }
  return range;
}

std::int32_t ExpandRight(const ColumnList& columns, std::int32_t edge, const ExpandOptions& options) {
  const auto meetsFirst = [](const Span& a, const Span& b) { return a.left < b.left; };
  for (const Span& span : pushers(columns, options, meetsFirst)) {
    if (span.left >= edge) break;
    edge = std::max(edge, span.right);
  }
  return edge;
}

std::int32_t ExpandLeft(const ColumnList& columns, std::int32_t edge, const ExpandOptions& options) {
  const auto meetsFirst = [](const Span& a, const Span& b) { return a.right > b.right; };
  for (const Span& span : pushers(columns, options, meetsFirst)) {
    if (span.right <= edge) break;
    edge = std::min(edge, span.left);
  }
  return edge;
}

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

void ShiftColumns(ColumnList& columns, std::int32_t dx) {
  for (ColumnRecord& column : columns) moveColumn(column, dx);
}

void shiftScrolledColumns(ColumnList& columns, std::int32_t dx) {
  for (ColumnRecord& column : columns) {
    if (!column.header.fix) moveColumn(column, dx);
  }
}

}  // namespace tessera
