// A small grid whose mouse is in the test's hand.

#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>

#include "interaction/grid_parts.h"
#include "tests/geometry/columns_of.h"
#include "tests/interaction/interaction_fixture.h"
#include "tests/support/fake_data_set.h"
#include "tests/support/fake_window.h"

namespace tessera::test {

// Remembers its sort text and tells when it sorts.
class SortedData : public FakeDataSet {
 public:
  using FakeDataSet::FakeDataSet;
  void GetSortExpr(XString& text) override { text = sort; }
  void SetSortExpr(const XString& text) override { sort = text; }
  void ApplySort() override {
    ++sorts;
    if (whenSorted) whenSorted();
  }

  XString sort;
  int sorts = 0;
  std::function<void()> whenSorted;
};

// Unless a test says otherwise: an indicator of 16, then the columns a, b and c, 60 wide each; headers and
// rows are 20 high, the page holds four rows of ten and shows one pixel of a fifth, and right of the columns
// stay 54 pixels.
class MouseTest : public ::testing::Test {
 public:
  MouseTest() {
    window.size = {250, 101};
    parts.config.indicator.width = 16;
    setColumns("a 0 60 0 20\nb 60 120 0 20\nc 120 180 0 20");
    setRows(10);
  }

  // The text of columnsOf, counted from the indicator.
  void setColumns(const std::string& text) {
    parts.focus.forget();
    parts.config.columns = columnsOf(text);
    for (ColumnRecord& column : parts.config.columns) column.header.borderStyle = border::raisedInner;
    measure();
    loadPage();
  }
  void measure() {
    parts.metrics.measureHeights(parts.config.columns);
    parts.metrics.indicatorShift = 0;
    parts.metrics.makeRoomForIndicator(parts.config.columns, parts.config.indicator.effectiveWidth());
    parts.metrics.buildLineTops(parts.config.columns);
    parts.metrics.closeFixedZone(parts.config.columns);
    parts.window = &window;
    parts.updateBars(bar_bit::both);
  }
  void setRows(std::int32_t count) {
    data = std::make_shared<SortedData>();
    data->columns = {u"a", u"b", u"c"};
    for (std::int32_t row = 1; row <= count; ++row) {
      const XValue number = XValue::ofInt(row);
      data->rows.push_back({{number, number, number}});
    }
    bindTo(parts.link, data);
    parts.rows.buildPlain(count);
    parts.updateBars(bar_bit::both);
    loadPage();
  }
  void loadPage() {
    const GridFrame frame = parts.frame();
    parts.loader(frame).LoadVisibleRows(false);
  }

  ColumnPosition position(std::string_view id) {
    ColumnList& columns = parts.config.columns;
    for (auto it = columns.begin(); it != columns.end(); ++it) {
      if (utf8FromUtf16(it->id) == id) return it.position();
    }
    return nullptr;
  }
  ColumnRecord& column(std::string_view id) { return position(id)->value(); }

  // What a Refresh does to those who hold on to columns and rows.
  void rebuild() {
    ++services.generationNumber;
    const ColumnList columns = parts.config.columns;
    parts.focus.forget();
    parts.mouse.forgetColumns();
    parts.config.columns.removeAll();
    parts.config.columns = columns;
    parts.rows.buildPlain(parts.link.rowCount());
    loadPage();
  }
  void closeWindow() { parts.window = nullptr; }

  // "row column" of the focus cell, "rows ..." in row mode.
  std::string focus() const {
    std::ostringstream text;
    if (!parts.focus.CellMode) {
      text << "rows";
      for (const RowNode* node : parts.focus.SelectedRows) text << ' ' << node->row;
      return text.str();
    }
    text << RowNumber(parts.focus.FocusRow) << ' ';
    text << (parts.focus.FocusColumn ? parts.focus.FocusColumn->value().id.toUtf8() : "-");
    return text.str();
  }

  FakeWindow window;
  LiveServices services;
  GridParts parts;
  std::shared_ptr<SortedData> data;
};

}  // namespace tessera::test
