// Edits, open lists, the selection and its flags while the data set changes its rows.

#include "components/folder_image_set.h"
#include "tests/control/control_fixture.h"

namespace tessera {
namespace {

using namespace test;

constexpr const char16_t* editableColumns =
    u"<GRID><COLUMN id=\"a\" refcolid=\"A\"><HEADER left=\"0\" right=\"80\" top=\"0\" bottom=\"20\"/>"
    u"<VIEW left=\"0\" right=\"80\" top=\"0\" bottom=\"20\"/></COLUMN>"
    u"<COLUMN id=\"b\" refcolid=\"B\"><HEADER left=\"80\" right=\"160\" top=\"0\" bottom=\"20\"/>"
    u"<VIEW left=\"80\" right=\"160\" top=\"0\" bottom=\"20\"/><CHILD type=\"edit\"/></COLUMN>"
    u"<COLUMN id=\"c\" refcolid=\"B\"><HEADER left=\"160\" right=\"190\" top=\"0\" bottom=\"20\"/>"
    u"<VIEW left=\"160\" right=\"190\" top=\"0\" bottom=\"20\"/>"
    u"<CHILD type=\"combo\"><COMBOITEM code=\"typed\" text=\"t\"/></CHILD></COLUMN></GRID>";

class NoPictures : public PictureLoader {
  BitmapRef load(std::span<const std::byte>) override { return nullptr; }
};

// Column B holds the row's number, too.
class EditedRows : public ControlTest {
 protected:
  void openWith(std::int32_t rows, DataSetOptions options = {}) {
    data = addData(rows, options);
    const std::int32_t count = data->rowCount();
    for (std::int32_t row = 1; row <= count; ++row) {
      XString text;
      data->GetText(row, 1, text);
      data->SetText(row, 2, text);
    }
    open();
    control.put_ColumnInfo(editableColumns);
  }
  void stand(std::int32_t row, const char16_t* column) {
    control.put_RowPosition(row);
    control.put_ColumnPosition(column);
    events.take();
  }
  void edit(std::int32_t row) {
    stand(row, u"b");
    control.ActivateEdit();
    ASSERT_TRUE(editors().active());
    window.edit->content = u"typed";
  }
  void dropDown(std::int32_t row) {
    stand(row, u"c");
    ASSERT_TRUE(editors().list().open());
    ASSERT_EQ(window.list->choice, 0);
  }
  std::string columnB() const {
    std::string column;
    XString text;
    for (std::int32_t row = 1; row <= data->rowCount(); ++row) {
      data->GetText(row, 2, text);
      column += text.toUtf8() + ' ';
    }
    return column;
  }
  // The rows that the data set has marked.
  std::string flags() const {
    std::string text;
    for (std::int32_t row = 1; row <= data->rowCount(); ++row) {
      if (control.parts().link.rowSelected(row)) text += std::to_string(row) + ' ';
    }
    return text;
  }
  std::string selected() {
    XString rows;
    control.get_SelectedRows(rows);
    return rows.toUtf8();
  }
  EditorController& editors() { return control.controllers().editors; }

  NoPictures noPictures;
  std::shared_ptr<FolderImageSet> pictures = std::make_shared<FolderImageSet>("pictures", "", noPictures);
  std::shared_ptr<MemoryDataSet> data;
};

const DataSetOptions kept{.keepDeleted = true};
// Each row has a subtotal row behind it, which goes with it: the data set tells of both in turn.
const DataSetOptions grouped{.sort = "+A", .subsum = "1:A"};

TEST_F(EditedRows, TheTextFindsItsRow) {
  struct Row {
    const char* what;
    DataSetOptions options;
    std::int32_t row;
    std::function<void(MemoryDataSet&)> act;
    bool goesOn;  // the edit is still open
    const char* column;
  };
  const auto remove = [](std::int32_t row) { return [row](MemoryDataSet& rows) { rows.DeleteRow(row); }; };
  const auto insert = [](std::int32_t row) { return [row](MemoryDataSet& rows) { rows.InsertRow(row); }; };
  const Row table[] = {
      {"a row above goes", {}, 3, remove(1), false, "2 typed 4 "},
      {"the row goes", {}, 3, remove(3), false, "1 2 4 "},
      {"a row comes above", {}, 3, insert(1), false, " 1 2 typed 4 "},
      {"a kept row above", kept, 3, remove(1), true, "1 2 typed 4 "},
      {"the row, which is kept", kept, 3, remove(3), true, "1 2 typed 4 "},
      {"two rows above go at once", grouped, 5, remove(1), false, "2  typed  4  "},
      {"two rows below go at once", grouped, 3, remove(5), false, "1  typed  4  "},
      {"the row and its subtotal go", grouped, 5, remove(5), false, "1  2  4  "},
      {"rows at the end", {}, 3, [](MemoryDataSet& rows) { rows.appendRows(1); }, true, "1 2 typed 4  "},
      {"fewer rows", {}, 3, [](MemoryDataSet& rows) { rows.notifier().rowsAdded(2); }, false, "1 2 3 4 "},
      {"new pictures", {}, 3, [this](MemoryDataSet&) { pictures->reload(); }, false, "1 2 typed 4 "},
      {"the current row moves",
       {},
       3,
       [](MemoryDataSet& rows) { rows.SetCurrentRow(1); },
       false,
       "1 2 typed 4 "},
      {"the current row is none",
       {},
       3,
       [](MemoryDataSet& rows) { rows.notifier().currentRowChanged(9); },
       false,
       "1 2 typed 4 "},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    openWith(4, row.options);
    site.objects["pictures"] = pictures;
    control.put_ImageDataID(u"pictures");
    edit(row.row);
    row.act(*data);
    EXPECT_EQ(editors().active(), row.goesOn);
    editors().tryCommit(CommitMode::Enter);
    EXPECT_EQ(columnB(), row.column);
    control.windowDestroyed();
    control.put_DataID(u"");
  }
}

TEST_F(EditedRows, TheChoiceFindsItsRow) {
  struct Row {
    const char* what;
    DataSetOptions options;
    std::int32_t row;
    std::function<void(MemoryDataSet&)> act;
    bool goesOn;
    const char* column;
  };
  const auto remove = [](std::int32_t row) { return [row](MemoryDataSet& rows) { rows.DeleteRow(row); }; };
  const Row table[] = {
      {"a row above goes", {}, 3, remove(1), true, "2 typed 4 "},
      {"the row goes", {}, 3, remove(3), false, "1 2 4 "},
      {"a row comes above", {}, 3, [](MemoryDataSet& rows) { rows.InsertRow(2); }, true, "1  2 typed 4 "},
      {"a kept row above", kept, 3, remove(1), true, "1 2 typed 4 "},
      {"the row, which is kept", kept, 3, remove(3), true, "1 2 typed 4 "},
      {"rows change places", grouped, 5, remove(1), false, "2  3  4  "},
      {"fewer rows", {}, 3, [](MemoryDataSet& rows) { rows.notifier().rowsAdded(2); }, false, "1 2 3 4 "},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    openWith(4, row.options);
    dropDown(row.row);
    row.act(*data);
    EXPECT_EQ(editors().list().isOpen(), row.goesOn);
    EXPECT_EQ(events.take().find("OnCloseUp") != std::string::npos, !row.goesOn);
    editors().list().close(true);
    EXPECT_EQ(columnB(), row.column);
    control.windowDestroyed();
    control.put_DataID(u"");
  }
}

TEST_F(EditedRows, FlagsAndSelectionFollowTheDataSet) {
  struct Row {
    const char* what;
    const char* start;  // rows that are pressed in the indicator, the last one first; one letter: cell mode
    std::function<void(MemoryDataSet&)> act;
    const char* selected;
    const char* flags;
  };
  const auto move = [](std::int32_t row) { return [row](MemoryDataSet& rows) { rows.SetCurrentRow(row); }; };
  const auto remove = [](std::int32_t row) { return [row](MemoryDataSet& rows) { rows.DeleteRow(row); }; };
  const auto insert = [](std::int32_t row) { return [row](MemoryDataSet& rows) { rows.InsertRow(row); }; };
  const auto tell = [](std::int32_t row) {
    return [row](MemoryDataSet& rows) { rows.notifier().currentRowChanged(row); };
  };
  const auto cut = [](MemoryDataSet& rows) { rows.notifier().rowsAdded(2); };
  const Row table[] = {
      {"the focus moves", "b", move(2), "2", "2 "},
      {"the focus stays", "b", move(3), "3", "3 "},
      {"the focus is nowhere", "b", tell(9), "", ""},
      {"a row comes above the focus", "b", insert(1), "1", "1 "},
      {"a row comes below the focus", "b", insert(4), "4", "4 "},
      {"a row above the focus goes", "b", remove(1), "2", "2 "},
      {"the focus row goes", "b", remove(3), "3", "3 "},
      {"the rows end above the focus", "b", cut, "2", "2 3 "},
      {"the head moves", "3", move(2), "2", "2 "},
      {"one of several moves", "13", move(4), "1,4", "1 4 "},
      {"the head goes to a selected row", "13", move(1), "1", "1 "},
      {"no row", "13", tell(9), "", ""},
      {"a row comes above them", "134", insert(2), "1,2,4", "1 2 4 "},
      {"a row comes in the head's place", "134", insert(4), "1,3,4", "1 3 4 "},
      {"a row above them goes", "134", remove(2), "1,2,3", "1 2 3 "},
      {"the head goes", "134", remove(4), "1,3", "1 3 "},
      {"the rows end above some", "134", cut, "1", "1 3 4 "},
      {"the rows end above all", "34", cut, "2", "2 3 4 "},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    openWith(4);
    const std::string start = row.start;
    stand(3, u"b");
    if (start != "b") {
      window.keys.control = false;
      for (const char digit : start) {
        control.controllers().mouse.leftDown({8, 20 * (digit - '0') + 10});
        window.keys.control = true;
      }
      window.keys.control = false;
    }
    row.act(*data);
    EXPECT_EQ(selected(), row.selected);
    EXPECT_EQ(flags(), row.flags);
    EXPECT_FALSE(control.parts().link.SelfMove());
    control.windowDestroyed();
    control.put_DataID(u"");
    control.put_ColumnPosition(u"b");
    const_cast<GridParts&>(control.parts()).focus.CellMode = true;
  }
}

// The keyboard needs a column, and there was none to take before.
TEST_F(EditedRows, TheFirstRowGetsAColumn) {
  data = addData(0);
  open();
  data->InsertRow(1);
  EXPECT_EQ(page(), "1-1 top 1 of 1 focus 1 a");
  EXPECT_EQ(flags(), "1 ");
  data->appendRows(2);
  const_cast<GridParts&>(control.parts()).focus.forget();
  data->SetCurrentRow(3);
  EXPECT_EQ(page(), "1-3 top 1 of 3 focus 3 a");
}

// Another subscriber that changes the rows in the middle of the grid's own move, which the grid does not
// hear.
class Meddler : public DataSetNotifications {
 public:
  explicit Meddler(std::function<void()> act) : act_(std::move(act)) {}
  HResult SortReset() override { return S_OK; }
  HResult StructureChanged(std::int32_t) override { return S_OK; }
  HResult RowsAdded(std::int32_t) override { return S_OK; }
  HResult DataChanged(std::int32_t) override { return S_OK; }
  HResult CanChange(std::int32_t, VariantBool&) override { return S_OK; }
  HResult CurrentRowChanged(std::int32_t) override {
    if (const auto act = std::exchange(act_, nullptr)) act();
    return S_OK;
  }
  HResult RowsReset() override { return S_OK; }
  HResult Reserved(std::int32_t) override { return S_OK; }
  HResult RowInserted(std::int32_t) override { return S_OK; }
  HResult RowDeleted(std::int32_t) override { return S_OK; }
  HResult CellChanged(std::int32_t, std::int32_t) override { return S_OK; }
  HResult SourceClosing(VariantBool) override { return S_OK; }

 private:
  std::function<void()> act_;
};

TEST_F(EditedRows, RowsThatChangeDuringAnOwnMove) {
  struct Row {
    const char* what;
    std::function<void(MemoryDataSet&)> act;
    const char* page;
  };
  const Row table[] = {
      {"come", [](MemoryDataSet& rows) { rows.InsertRow(1); }, "1-5 top 1 of 5 focus 1 b"},
      {"go", [](MemoryDataSet& rows) { rows.DeleteRow(1); }, "1-3 top 1 of 3 focus 2 b"},
      {"are added", [](MemoryDataSet& rows) { rows.appendRows(2); }, "1-5 top 1 of 6 focus 3 b"},
      {"stay", [](MemoryDataSet&) {}, "1-4 top 1 of 4 focus 3 b"},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    openWith(4);
    stand(1, u"b");
    const_cast<GridParts&>(control.parts()).focus.FocusColumnName = u"B";
    Meddler meddler([&] { row.act(*data); });
    data->Advise(&meddler, 1);
    control.put_RowPosition(3);
    data->Unadvise(&meddler);
    EXPECT_EQ(page(), row.page);
    EXPECT_EQ(control.parts().rows.displayCount(), data->rowCount());
    control.windowDestroyed();
    control.put_DataID(u"");
  }
}

TEST_F(EditedRows, NothingOpensAgainBelowAnEmptyDataID) {
  openWith(4);
  edit(2);
  control.put_DataID(u"");
  EXPECT_FALSE(editors().active());
  EXPECT_EQ(window.edit->rect, parkedEditor);
  EXPECT_EQ(columnB(), "1 typed 3 4 ");
}

}  // namespace
}  // namespace tessera
