#include "render/paint_fixture.h"

#include <algorithm>
#include <string>

#include "cells/glyphs.h"

namespace tessera {

PaintFixture::PaintFixture() {
  settings.ColumnInfo = u"<GRID/>";
  config.indicator.width = 0;
  for (int number = 208; number <= 227; ++number) {
    const Bitmap& bitmap = glyphBitmap(static_cast<Glyph>(number));
    if (bitmap.width != 0) canvas.name(bitmap, "glyph" + std::to_string(number));
  }
}

ColumnRecord& PaintFixture::addColumn(const char16_t* name) {
  const std::int32_t left = config.indicator.effectiveWidth() + 100 * config.columns.count();
  ColumnRecord& column = config.columns.addTail({})->value();
  column.id = column.refColumnId = name;
  column.header.text = name;
  column.header.rect = {left, 0, left + 100, 20};
  column.view.rect = {left, 0, left + 100, 20};
  return column;
}

void PaintFixture::bind(std::vector<XString> names, const std::vector<std::vector<const char16_t*>>& texts) {
  data = std::make_shared<FakeDataSet>(std::move(names), texts);
  bindTo(link, data);
  rows.buildPlain(static_cast<std::int32_t>(texts.size()));
  showAll();
}

void PaintFixture::showAll() {
  page.VisibleRows.clear();
  for (Row row = rows.first(); row; row = rows.NextRow(row)) page.VisibleRows.push_back(row);
}

void PaintFixture::select(std::initializer_list<std::int32_t> numbers) {
  focus.SelectedRows.clear();
  for (const std::int32_t number : numbers) focus.SelectedRows.append(Row{number});
}

PaintResult PaintFixture::paint() {
  canvas.clear();
  metrics.measureHeights(config.columns);
  metrics.AnyFixed = std::any_of(config.columns.begin(), config.columns.end(),
                                 [](const ColumnRecord& column) { return column.header.fix; });
  const GridFrame frame = frameOf(config, settings, metrics, &client);
  return pipeline.paint(canvas, {config, settings, frame, page, focus, rows, link, images, eval, editorOpen});
}

Lines PaintFixture::paintFrom(const std::string& first) {
  paint();
  const Lines& all = canvas.lines();
  const auto start = std::find_if(all.begin(), all.end(),
                                  [&first](const std::string& line) { return line.starts_with(first); });
  return {start, all.end()};
}

Lines PaintFixture::paintOnly(const std::string& prefix) {
  paint();
  return canvas.linesOf(prefix);
}

}  // namespace tessera
