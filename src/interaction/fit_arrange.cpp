#include "interaction/fit_arrange.h"

#include "interaction/grid_watch.h"
#include "interaction/reading_scope.h"
#include "render/column_width.h"

namespace tessera {

namespace {

class ColumnFitter {
 public:
  ColumnFitter(GridParts& parts, const GridServices& services) : parts_(parts), watch_(parts, services) {}

  // Stops when the grid is rebuilt meanwhile.
  void run() {
    const GridFrame frame = parts_.frame();
    scrollHome(frame);
    maxWidth_ = subClamped(frame.usableRect(true).width(), addClamped(frame.indicatorWidth, margin));
    if (maxWidth_ >= leastColumnWidth && fitLines(true)) fitLines(false);
  }

 private:
  static constexpr std::int32_t margin = 5;

  void scrollHome(const GridFrame& frame) {
    ColumnScroll scroll{parts_.config.columns, parts_.page, parts_.focus, frame};
    while (scroll.StepRight() != 0) {
    }
    while (scroll.StepLeft() != 0) {
    }
  }

  // Columns of the last header line, or those of the others.
  bool fitLines(bool last) {
    for (ColumnRecord& column : parts_.config.columns) {
      if (!column.viewVisible || (column.header.rect.bottom == parts_.metrics.HeaderHeight) != last) continue;
      const std::int32_t wanted = wantedWidth(column);
      if (!watch_.holds()) return false;
      const std::int32_t width = column.header.rect.width();
      if (last ? wanted == width : wanted <= width) continue;
      ShiftEdge(parts_.config.columns, column.header.rect.right, subClamped(wanted, width));
    }
    return true;
  }

  std::int32_t wantedWidth(const ColumnRecord& column) {
    const TextSource texts{parts_.link, parts_.eval, scratch_};
    const bool summary = parts_.settings.ViewSummary != SummaryBand::None;
    return std::clamp(measureColumnWidth(parts_.window->canvas(), texts, parts_.images, column, summary),
                      leastColumnWidth, maxWidth_);
  }

  GridParts& parts_;
  GridWatch watch_;
  TextScratch scratch_;
  std::int32_t maxWidth_ = 0;
};

}  // namespace

void fitArrange(GridParts& parts, GridServices& services) {
  if (!parts.window || !parts.link.dataSet()) return;
  {
    const ReadingScope reading(parts, services);
    ColumnFitter(parts, services).run();
  }
  if (!parts.window) return;
  parts.focus.followColumn();
  parts.updateBars(bar_bit::horizontal);
  const GridFrame frame = parts.frame();
  FocusModel& focus = parts.focus;
  if (focus.CellMode && focus.FocusColumn) {
    ColumnScroll{parts.config.columns, parts.page, focus, frame}.EnsureColumnVisible(
        focus.FocusColumn->value());
    parts.page.EnsureRowVisible(parts.rows, frame.rowCapacity(), focus.FocusRow);
  }
  services.Repaint(nullptr);
}

}  // namespace tessera
