#include "geometry/grid_frame.h"

namespace tessera {

Rect GridFrame::usableRect(bool adjust) const {
  Rect rect{0, 0, client.width, client.height};
  if (adjust && summary == SummaryBand::Top) rect.top = addClamped(rect.top, rowHeight);
  if (adjust && summary == SummaryBand::Bottom) rect.bottom = subClamped(rect.bottom, rowHeight);
  return rect;
}

std::int32_t GridFrame::rowCapacity() const {
  if (!hasWindow) return -1;
  if (rowHeight <= 0) return 0;
  const Rect usable = usableRect(true);
  const std::int64_t room = static_cast<std::int64_t>(usable.bottom) - headerBand - usable.top - 1;
  return std::max(1, clampToInt(room / rowHeight));
}

std::int32_t GridFrame::firstRowTop() const {
  return summary == SummaryBand::Top ? addClamped(headerBand, rowHeight) : headerBand;
}

std::int32_t GridFrame::rowTop(std::int32_t index) const {
  return addClamped(mulClamped(index, rowHeight), firstRowTop());
}

Rect GridFrame::wholeCell(const ColumnRecord& column, std::int32_t index) const {
  const Rect& view = column.view.rect;
  const std::int32_t top = addClamped(rowTop(index), view.top);
  return {view.left, top, view.right, addClamped(top, view.height())};
}

GridFrame frameOf(const GridConfig& config, const GridSettings& settings, const GridMetrics& metrics,
                  const Size* client) {
  GridFrame frame;
  frame.hasWindow = client != nullptr;
  if (client) frame.client = *client;
  frame.headerBand = settings.ViewHeader ? metrics.HeaderHeight : 0;
  frame.indicatorWidth = config.indicator.effectiveWidth();
  frame.rowHeight = metrics.RowHeight;
  frame.summary = settings.ViewSummary;
  frame.anyFixed = metrics.AnyFixed;
  if (frame.anyFixed) frame.fixed = fixedRange(config.columns);
  return frame;
}

}  // namespace tessera
