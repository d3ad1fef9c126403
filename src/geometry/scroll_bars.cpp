#include "geometry/scroll_bars.h"

#include <algorithm>
#include <map>

namespace tessera {

namespace {

// Pulls columns back in, whole ones at a time, while the room at the right is wider than the last hidden one.
// The result is the right edge of all scrolled columns as it was last seen, 0 when nothing is scrolled.
std::int32_t closeGapAtRight(ColumnScroll& scroll) {
  std::int32_t lastRight = 0;
  while (scroll.page.ColumnStop >= 2) {
    const std::int32_t hiddenLimit = scroll.frame.zoneStart();
    lastRight = 0;
    const Rect* lastHidden = nullptr;
    for (const ColumnRecord& column : scroll.columns) {
      if (column.header.fix) continue;
      const Rect& rect = column.header.rect;
      lastRight = std::max(lastRight, rect.right);
      if (rect.right <= hiddenLimit && (!lastHidden || rect.left > lastHidden->left)) lastHidden = &rect;
    }
    const std::int32_t room = subClamped(scroll.frame.usableRect(true).right, lastRight);
    if (!lastHidden || room <= lastHidden->width() || scroll.StepLeft() == 0) break;
  }
  return lastRight;
}

void applyBar(Window& window, Bar bar, const std::optional<BarRange>& range, bool keepVisible) {
  if (range) {
    window.enableBar(bar, true);
    window.showBar(bar, true);
    window.setBarRange(bar, *range);
  } else if (keepVisible) {
    window.enableBar(bar, false);
    window.showBar(bar, true);
  } else {
    window.showBar(bar, false);
  }
}

void setBit(std::int32_t& bits, std::int32_t bit, bool on) { bits = on ? bits | bit : bits & ~bit; }

}  // namespace

std::optional<BarRange> horizontalRange(const ColumnList& columns, const GridFrame& frame,
                                        std::int32_t knownRight) {
  // The first column of each distinct left stands for all of them.
  std::map<std::int32_t, std::int32_t> rightOfLeft;
  for (const ColumnRecord& column : columns) {
    if (!column.header.fix) rightOfLeft.try_emplace(column.header.rect.left, column.header.rect.right);
  }
  if (rightOfLeft.empty()) return std::nullopt;
  std::int64_t largestRight = knownRight;
  for (const auto& [left, right] : rightOfLeft) largestRight = std::max<std::int64_t>(largestRight, right);

  const std::int64_t before =
      static_cast<std::int64_t>(frame.indicatorWidth) + (frame.anyFixed ? frame.fixed.width() : 0);
  const std::int64_t width = frame.usableRect(true).width();
  if (before - rightOfLeft.begin()->first + largestRight <= width) return std::nullopt;

  const std::int32_t lastStop = clampToInt(before + largestRight - width);
  const auto beyond =
      static_cast<std::int32_t>(std::distance(rightOfLeft.upper_bound(lastStop), rightOfLeft.end()));
  const auto stops = static_cast<std::int32_t>(rightOfLeft.size());
  return BarRange{.maximum = frame.anyFixed && beyond == 0 ? stops : stops - beyond + 1};
}

std::optional<BarRange> verticalRange(const GridFrame& frame, std::int32_t displayCount,
                                      std::int32_t topOrdinal) {
  const std::int32_t capacity = frame.rowCapacity();
  if (displayCount <= 0 || displayCount <= capacity) return std::nullopt;
  return BarRange{1, displayCount, capacity, topOrdinal};
}

void updateHorizontalBar(ColumnScroll scroll, const GridSettings& settings, Window& window) {
  PageView& page = scroll.page;
  const std::int32_t lastRight = closeGapAtRight(scroll);
  const auto range = horizontalRange(scroll.columns, scroll.frame, lastRight);
  if (range) page.horizontal = *range;
  setBit(page.ScrollBarsOn, bar_bit::horizontal, range.has_value());
  applyBar(window, Bar::Horizontal, range, settings.FixHScroll);
}

void updateVerticalBar(PageView& page, const GridFrame& frame, const RowTree& rows,
                       const GridSettings& settings, Window& window) {
  const auto range = verticalRange(frame, rows.displayCount(), page.TopOrdinal);
  setBit(page.ScrollBarsOn, bar_bit::vertical, range.has_value());
  applyBar(window, Bar::Vertical, range, settings.FixVScroll);
}

void SetBarPositions(const PageView& page, Window& window) {
  if (page.ScrollBarsOn & bar_bit::vertical) window.setBarPosition(Bar::Vertical, page.TopOrdinal);
  if (page.ScrollBarsOn & bar_bit::horizontal) window.setBarPosition(Bar::Horizontal, page.ColumnStop);
}

}  // namespace tessera
