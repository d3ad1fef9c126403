// Finding columns.

#pragma once

#include "geometry/grid_frame.h"

namespace tessera {

// The first column that `counts`; null when there is none.
template <class Counts>
ColumnPosition firstColumn(ColumnList& columns, Counts counts) {
  for (auto it = columns.begin(); it != columns.end(); ++it) {
    if (counts(*it)) return it.position();
  }
  return nullptr;
}

// The first column that `counts` and that no other one is `better` than, by their views.
template <class Counts, class Better>
ColumnPosition bestColumn(ColumnList& columns, Counts counts, Better better) {
  ColumnPosition found = nullptr;
  for (auto it = columns.begin(); it != columns.end(); ++it) {
    if (counts(*it) && (!found || better(it->view.rect, found->value().view.rect))) found = it.position();
  }
  return found;
}

// The last column that `counts` among those that no column before them in the list is `further` out than:
// each visible column sets the limit for all that follow, whether it counts or not.
template <class Further, class Counts>
ColumnPosition outermostColumn(ColumnList& columns, Rect limit, Further further, Counts counts) {
  ColumnPosition found = nullptr;
  for (auto it = columns.begin(); it != columns.end(); ++it) {
    if (!it->viewVisible || further(limit, it->view.rect)) continue;
    limit = it->view.rect;
    if (counts(*it)) found = it.position();
  }
  return found;
}

inline bool startsFurtherLeft(const Rect& a, const Rect& b) { return a.left < b.left; }
inline bool endsFurtherRight(const Rect& a, const Rect& b) { return a.right > b.right; }

// No column that a walk finds starts further right, or ends further left.
inline constexpr std::int32_t walkLimit = 65536;

template <class Counts>
ColumnPosition leftmostColumn(ColumnList& columns, Counts counts) {
  return outermostColumn(columns, {.left = walkLimit}, startsFurtherLeft, counts);
}
template <class Counts>
ColumnPosition rightmostColumn(ColumnList& columns, Counts counts) {
  return outermostColumn(columns, {.right = -walkLimit}, endsFurtherRight, counts);
}

ColumnPosition columnById(ColumnList& columns, const XString& id);

// How near to an edge of a header the pointer has to be.
inline constexpr std::int32_t edgeReach = 5;

// The column whose header's right edge is nearest to `at` on that line; null when none is within reach. Of
// edges that are equally near, the later one in the list.
const ColumnRecord* columnOfEdge(const ColumnList& columns, Point at, bool fixedOnly);
// Whether `at` lies inside a header and near to one of its sides.
bool isAtColumnEdge(const ColumnList& columns, const GridFrame& frame, Point at);

}  // namespace tessera
