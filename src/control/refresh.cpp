#include "control/refresh.h"

#include "config/ambient_font.h"
#include "config/background_flags.h"
#include "config/column_info.h"
#include "control/grid_expression_host.h"
#include "interaction/reading_scope.h"
#include "rows/suppress.h"

namespace tessera {
void RefreshSequence::run() {
  clear();
  loadColumnNames(parts_.link, parts_.expressions);
  if (!compileKept() || !readColumns()) return;
  const ReadingScope reading(parts_, services_);
  measure();
  ResolveSuppress(parts_.config.columns, parts_.link);
  fillDecimals();
  fillFonts();
  applyBackgroundFlags(parts_.config);
  handOutSortMarks();
  parts_.images.ReloadImages(parts_.link);
  BuildRows(parts_, services_);
  show();
}

void RefreshSequence::clear() {
  parts_.focus.forget();
  parts_.mouse.forgetColumns();
  parts_.page.VisibleRows.clear();
  parts_.config.columns.removeAll();
  dropPrograms(parts_.config.indicator);
  dropPrograms(parts_.config.background);
  parts_.expressions.freePrograms(parts_.eval);
  parts_.link.forgetColumns();
}

// The listener of a report may refresh the grid or let go of the data set.
bool RefreshSequence::compileKept() {
  const GridToken token = parts_.token();
  std::int32_t failures = recompileKept(parts_.config.indicator, parts_.expressions);
  failures += recompileKept(parts_.config.background, parts_.expressions);
  for (; failures > 0; --failures) {
    services_.ReportError(ErrorCode::Expression);
    if (parts_.token() != token) return false;
  }
  return true;
}

// A text that does not compile is reported while the columns are read, and the listener may set another
// ColumnInfo or let go of the data set: so the columns are read into a place of their own, and an overtaken
// reading is dropped.
bool RefreshSequence::readColumns() {
  const GridToken token = parts_.token();
  GridConfig read;
  read.tree = parts_.config.tree;
  const XString text = parts_.settings.ColumnInfo;
  const bool complete = !text.empty() && parseColumnInfo(info_, text, read);
  if (parts_.token() != token) return false;
  parts_.config.columns = std::move(read.columns);
  parts_.config.tree = read.tree;
  if (complete) return true;
  services_.Repaint(nullptr);
  services_.ReportError(ErrorCode::ColumnInfo);
  return false;
}

void RefreshSequence::measure() {
  GridMetrics& metrics = parts_.metrics;
  ColumnList& columns = parts_.config.columns;
  parts_.page.ColumnStop = 1;
  metrics.measureHeights(columns);
  metrics.indicatorShift = 0;
  parts_.makeRoomForIndicator();
  metrics.buildLineTops(columns);
  parts_.focus.CurrentLine = 0;
  metrics.closeFixedZone(columns);
}

void RefreshSequence::fillDecimals() {
  const auto dataSet = parts_.link.holdDataSet();
  if (!dataSet) return;  // it has closed in the middle of an answer
  for (ColumnRecord& column : parts_.config.columns) {
    if (column.refColumnId.empty()) continue;
    std::int32_t scale = 0;
    dataSet->GetColumnScale(parts_.link.columnIndex(column.refColumnId), scale);
    column.view.decimals = scale;
    column.summary.decimals = scale;
    for (GroupCell& group : column.groups) group.decimals = scale;
  }
}

void RefreshSequence::fillFonts() {
  if (!site_) return;
  const auto font = site_->ambientFont();
  if (font) applyAmbientFont(parts_.config, *font, parts_.eval);
}

void RefreshSequence::handOutSortMarks() {
  for (ColumnRecord& column : parts_.config.columns) {
    column.header.sortBitmapUp = Glyph::SortUp;
    column.header.sortBitmapDown = Glyph::SortDown;
  }
}

void RefreshSequence::show() {
  if (!parts_.window) return;
  parts_.updateBars(bar_bit::both);
  const GridFrame frame = parts_.frame();
  if (parts_.link.rowCount() > 0) parts_.loader(frame).LoadVisibleRows(true);
  parts_.applyBorder();
  services_.Repaint(nullptr);
}

void BuildRows(GridParts& parts, GridServices& services) {
  ++parts.numbering;
  parts.rowsStale = false;
  parts.focus.FocusRow = noRow;
  parts.focus.SelectedRows.clear();
  parts.focus.leftFlags.clear();
  parts.page.clear();
  const auto error = parts.rowBuilder().build();
  parts.rowsFit = !error || error == ErrorCode::TreeLevelValue;
  if (parts.config.tree.rowMode == RowMode::Group && !error && !parts.config.tree.expand) {
    if (const Row first = parts.rows.first()) parts.link.syncCurrentRow(first.number);
  }
  if (error) services.ReportError(*error);
}

}  // namespace tessera
