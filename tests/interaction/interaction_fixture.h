// A grid with its keyboard and its editors on a window whose focus really moves, for tests.

#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "binding/data_client.h"
#include "components/memory_data_set.h"
#include "interaction/key_filter.h"
#include "tests/support/fake_window.h"

namespace tessera::test {

// Tells whoever loses and gains the focus, and plays the part of the two child windows for keys and
// characters.
class LiveWindow : public FakeWindow {
 public:
  std::unique_ptr<EditBox> createEditBox(EditBoxOwner& owner) override;
  std::unique_ptr<ListBox> createListBox(ListBoxOwner& owner) override;
  void setFocus() override {
    if (!refusesFocus) moveFocus(Focus::Grid);
  }
  void moveFocus(Focus target);

  std::function<void()> gained;
  std::function<void()> lost;
  bool refusesFocus = false;  // as a disabled window does
};

// Writes events down as "Name arguments; ", answers them, and runs what a test wants to happen inside them.
class LiveServices : public GridServices {
 public:
  void catchUp() override {}
  void Repaint(const Rect*) override { ++repaints; }
  void ReportError(ErrorCode) override {}
  XValue fire(EventId id, std::span<const XValue> arguments) override;
  bool ask(EventId id, std::span<const XValue> arguments) override {
    return !(fire(id, arguments) == XValue::ofBool(false));
  }
  std::uint64_t generation() const override { return generationNumber; }
  std::string take() { return std::exchange(log, ""); }

  std::string log;
  std::map<EventId, XValue> answers;
  std::map<EventId, std::function<void()>> inside;  // each runs once
  int repaints = 0;
  std::uint64_t generationNumber = 1;
};

// Knows the data sets of lookup columns.
class LookupServices : public InfoServices {
 public:
  DocumentReader& documents() override { throw std::logic_error("no documents here"); }
  const XExprProgram* compileExpression(const XString&) override { return nullptr; }
  LateBitmap downloadImage(const XString&) override { return {}; }
  std::shared_ptr<DataSetControl> findDataSet(const XString& id) override {
    const auto found = dataSets.find(id.toUtf8());
    return found == dataSets.end() ? nullptr : found->second;
  }

  std::map<std::string, std::shared_ptr<DataSetControl>> dataSets;
};

// Follows the data set as the control does, as far as the focus and the editors are concerned.
class DataFollower : public DataClient {
 public:
  explicit DataFollower(class GridTest& test) : test_(test) {}
  HResult SortReset(std::int32_t) override { return S_OK; }
  HResult StructureChanged(std::int32_t, std::int32_t) override;
  HResult RowsAdded(std::int32_t, std::int32_t) override { return S_OK; }
  HResult DataChanged(std::int32_t cookie, std::int32_t value) override {
    return StructureChanged(cookie, value);
  }
  HResult CanChange(std::int32_t, std::int32_t, VariantBool& allowed) override;
  HResult CurrentRowChanged(std::int32_t, std::int32_t row) override;
  HResult RowsReset(std::int32_t) override;
  HResult Reserved(std::int32_t, std::int32_t) override { return S_OK; }
  HResult RowInserted(std::int32_t, std::int32_t row) override;
  HResult RowDeleted(std::int32_t, std::int32_t row) override;
  HResult CellChanged(std::int32_t, std::int32_t row, std::int32_t column) override;
  HResult SourceClosing(std::int32_t, VariantBool) override { return S_OK; }

 private:
  class GridTest& test_;
};

// Unless a test says otherwise: an indicator of 16, then the columns a, b and c, 60 wide each, texts that can
// be edited; headers and rows are 20 high, and the page holds four rows of ten and one pixel of a fifth. The
// text of a cell is its column and its row, "a1".
class GridTest : public ::testing::Test {
 public:
  GridTest();
  ~GridTest() override;

  // Columns as columnsOf() reads them, and what else there is to say about them; both outlive a refresh.
  void setColumns(const std::string& text, std::function<void(GridTest&)> finish = nullptr);
  void setRows(std::int32_t count);
  void setFormats(std::vector<ColumnFormat> formats, std::int32_t rows);

  // What a host may do inside an event.
  void refresh();
  void letGoOfData();
  void deleteRow(std::int32_t row) { data->DeleteRow(row); }
  void destroyWindow();

  // A key as the host's loop brings it: through the filter, then to whatever has the focus. False when the
  // host was left to do something with it first.
  bool press(std::int32_t key, Modifiers modifiers = {});
  // What a press of the left button does with the row there; false when there is none.
  bool pressRow(Point at, Modifiers modifiers);
  void type(const std::u16string& text);

  ColumnPosition position(std::string_view id);
  ColumnRecord& column(std::string_view id) { return position(id)->value(); }
  std::string cellText(std::int32_t row, std::string_view name);
  // "ROW COLUMN" of the focus cell, "rows N N" in row mode, the data set's current row when it differs.
  std::string focusText() const;
  // The rows that the data set has marked as selected.
  std::string flags();
  std::string boxText() const { return window.edit->content.toUtf8(); }

  LiveWindow window;
  LiveServices services;
  LookupServices info;
  DataFollower follower{*this};
  std::shared_ptr<MemoryDataSet> data;
  GridParts parts;
  BlockKeys blocks;
  EditorController editors{parts, services, info};
  FocusController focus{parts, services, editors};
  KeyController keys{parts, services, focus, editors, blocks};
  KeyFilter filter{parts, services, focus, editors, blocks};
  std::vector<std::string> writes;    // "ROW COLUMN" of every cell that changed
  std::function<void()> whenWritten;  // once, in the middle of a write

  void buildPage();

 private:
  std::string columnText_;
  std::function<void(GridTest&)> finish_;
};

constexpr Modifiers withControl{true, false}, withShift{false, true}, withBoth{true, true};

}  // namespace tessera::test
