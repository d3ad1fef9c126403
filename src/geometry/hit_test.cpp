#include "geometry/hit_test.h"

namespace tessera {

namespace {

enum class Band { Header, Summary, Row };

struct RowPlace {
  Band band = Band::Row;
  std::int32_t index = -1;   // among the visible rows
  std::int32_t yInside = 0;  // below the top of the row or band
};

RowPlace placeOf(const GridFrame& frame, std::int32_t y) {
  const std::int32_t summaryTop =
      frame.summary == SummaryBand::Top ? frame.headerBand : subClamped(frame.client.height, frame.rowHeight);
  if (y <= frame.headerBand) return {Band::Header};
  if (frame.summary == SummaryBand::Top && y <= frame.firstRowTop()) {
    return {Band::Summary, -1, frame.rowHeight > 0 ? subClamped(y, summaryTop) % frame.rowHeight : 0};
  }
  if (frame.summary == SummaryBand::Bottom && y >= summaryTop)
    return {Band::Summary, -1, subClamped(y, summaryTop)};
  if (frame.rowHeight <= 0) return {};
  return {Band::Row, subClamped(y, frame.firstRowTop()) / frame.rowHeight,
          subClamped(y, frame.headerBand) % frame.rowHeight};
}

// Columns scrolled wholly behind the fixed zone are out of reach.
bool reachable(const ColumnRecord& column, const Rect& rect, const GridFrame& frame) {
  return column.header.fix || rect.right > frame.zoneStart();
}

template <class Cell>
ColumnPosition firstHolding(ColumnList& columns, const GridFrame& frame, std::int32_t x, std::int32_t y,
                            Cell cell) {
  for (auto it = columns.begin(); it != columns.end(); ++it) {
    const Rect* rect = cell(*it);
    if (rect && reachable(*it, *rect, frame) && rect->holds(x, y)) return it.position();
  }
  return nullptr;
}

bool rightOfAllColumns(const ColumnList& columns, std::int32_t x) {
  std::int32_t right = 0;
  for (const ColumnRecord& column : columns) right = std::max(right, column.header.rect.right);
  return x > right;
}

Hit hitIndicator(const PageView& page, const RowPlace& place) {
  switch (place.band) {
    case Band::Header:
      return {Region::Indicator, hit_row::headerIndicator};
    case Band::Summary:
      return {Region::Indicator, hit_row::summaryIndicator};
    case Band::Row:
      break;
  }
  const Row row = page.VisibleAt(place.index);
  return row ? Hit{Region::Indicator, row.number} : Hit();
}

}  // namespace

Rect cellRect(const GridFrame& frame, const ColumnRecord& column, std::int32_t visibleIndex) {
  Rect rect = frame.wholeCell(column, visibleIndex);
  rect.left = std::max(rect.left, frame.clipLeft(column));
  return rect;
}

Hit hitTest(const GridFrame& frame, ColumnList& columns, const PageView& page, const DataLink& link,
            std::int32_t x, std::int32_t y) {
  if (rightOfAllColumns(columns, x)) return {};
  const RowPlace place = placeOf(frame, y);
  Hit hit;
  if (x <= frame.indicatorWidth) {
    hit = hitIndicator(page, place);
    if (hit.row > 0 && link.level(hit.row) > 0) hit.region = Region::SummaryRow;
    return hit;
  }
  if (place.band == Band::Header) {
    hit.region = Region::Header;
    hit.column =
        firstHolding(columns, frame, x, y, [](const ColumnRecord& column) { return &column.header.rect; });
    return hit;
  }
  if (place.band == Band::Summary) {
    hit.region = Region::SummaryBand;
  } else {
    const Row row = page.VisibleAt(place.index);
    if (!row) return {};
    hit.row = row.number;
    hit.region = link.level(hit.row) > 0 ? Region::SummaryRow : Region::Row;
  }
  hit.column = firstHolding(columns, frame, x, place.yInside, [](const ColumnRecord& column) {
    return column.viewVisible ? &column.view.rect : nullptr;
  });
  return hit;
}

}  // namespace tessera
