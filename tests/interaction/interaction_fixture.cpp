#include "tests/interaction/interaction_fixture.h"

#include <algorithm>
#include <sstream>

#include "render/paint_result.h"
#include "shared/change_type.h"
#include "tests/geometry/columns_of.h"

namespace tessera::test {
namespace {

class OneObjectSite : public ClientSite, public Container, public ItemContainer {
 public:
  explicit OneObjectSite(std::shared_ptr<Component> object) : object_(std::move(object)) {}
  Container* container() override { return this; }
  std::optional<AmbientFont> ambientFont() override { return std::nullopt; }
  XValue ambientCodePage() override { return {}; }
  std::shared_ptr<Component> getObject(const XString&) const override { return object_; }

 private:
  std::shared_ptr<Component> object_;
};

class LiveEditBox : public FakeEditBox {
 public:
  LiveEditBox(EditBoxOwner& boxOwner, LiveWindow& parent) : FakeEditBox(boxOwner), parent_(parent) {}
  void setFocus() override { parent_.moveFocus(FakeWindow::Focus::Edit); }
  void sendChar(char16_t character) override {
    FakeEditBox::sendChar(character);
    put(character);
  }
  void put(char16_t character) {
    if (!owner.editAllows(character)) return;
    const std::u16string text(content.view());
    const auto start = static_cast<std::size_t>(selectionStart);
    const auto end = static_cast<std::size_t>(selectionEnd);
    content.assign(text.substr(0, start) + character + text.substr(end));
    selectionStart = selectionEnd = static_cast<std::int32_t>(start) + 1;
    owner.editCharDone(character);
  }

 private:
  LiveWindow& parent_;
};

class LiveListBox : public FakeListBox {
 public:
  LiveListBox(ListBoxOwner& boxOwner, LiveWindow& parent) : FakeListBox(boxOwner), parent_(parent) {}
  void setFocus() override { parent_.moveFocus(FakeWindow::Focus::List); }

 private:
  LiveWindow& parent_;
};

// The list moves its choice and says so.
void keyToList(FakeListBox& list, std::int32_t key) {
  ListBoxOwner& owner = list.owner;
  FakeWindow& window = *list.window;
  owner.listKeyDown(key);
  if (window.list && key == key::down) ++window.list->choice;
  if (window.list && key == key::up) --window.list->choice;
  owner.listKeyDone(key);
}

}  // namespace

std::unique_ptr<EditBox> LiveWindow::createEditBox(EditBoxOwner& owner) {
  auto box = std::make_unique<LiveEditBox>(owner, *this);
  box->window = this;
  edit = box.get();
  return box;
}

std::unique_ptr<ListBox> LiveWindow::createListBox(ListBoxOwner& owner) {
  auto box = std::make_unique<LiveListBox>(owner, *this);
  box->window = this;
  list = box.get();
  return box;
}

void LiveWindow::moveFocus(Focus target) {
  const Focus from = std::exchange(focus, target);
  if (from == target) return;
  if (from == Focus::Grid) lost();
  if (from == Focus::Edit && edit) {
    edit->owner.editFocusLost(target == Focus::Grid ? FocusTarget::GridWindow : FocusTarget::Elsewhere);
  }
  if (from == Focus::List && list) list->owner.listFocusLost();
  if (focus == target && target == Focus::Grid) gained();
}

XValue LiveServices::fire(EventId id, std::span<const XValue> arguments) {
  std::ostringstream text;
  text << eventName(id);
  for (const XValue& argument : arguments) text << ' ' << textOf(argument).toUtf8();
  log += text.str() + "; ";
  if (const auto found = inside.find(id); found != inside.end()) {
    const auto run = std::exchange(found->second, nullptr);
    if (run) run();
  }
  const auto answer = answers.find(id);
  return answer == answers.end() ? XValue() : answer->second;
}

HResult DataFollower::StructureChanged(std::int32_t, std::int32_t) {
  test_.editors.forgetRows();
  test_.refresh();
  return S_OK;
}

HResult DataFollower::CanChange(std::int32_t, std::int32_t, VariantBool& allowed) {
  allowed = VARIANT_TRUE;
  return S_OK;
}

HResult DataFollower::CurrentRowChanged(std::int32_t, std::int32_t row) {
  FocusModel& focus = test_.parts.focus;
  if (test_.parts.link.SelfMove() || !focus.CellMode) return S_OK;
  test_.editors.tryCommit(CommitMode::FocusLost);
  RowNode* const node = test_.parts.rows.find(row);
  if (node && focus.CellMode) focus.FocusRow = node;
  return S_OK;
}

HResult DataFollower::RowsReset(std::int32_t) {
  test_.editors.forgetRows();
  ++test_.services.generationNumber;
  test_.parts.focus.FocusRow = nullptr;
  test_.buildPage();
  return S_OK;
}

HResult DataFollower::RowInserted(std::int32_t, std::int32_t row) {
  ++test_.parts.numbering;
  test_.parts.rows.setPlainCount(test_.parts.link.rowCount());
  test_.editors.rowInserted(row);
  test_.editors.tryCommit(CommitMode::FocusLost);
  test_.parts.focus.FocusRow = test_.parts.rows.find(test_.parts.link.currentRow());
  return S_OK;
}

HResult DataFollower::RowDeleted(std::int32_t, std::int32_t row) {
  GridParts& parts = test_.parts;
  ++parts.numbering;
  parts.rows.setPlainCount(parts.link.rowCount());
  test_.editors.rowDeleted(row);
  test_.editors.tryCommit(CommitMode::FocusLost);
  std::erase_if(parts.page.VisibleRows, [&](const RowNode* node) { return !parts.rows.find(node->row); });
  parts.focus.SelectedRows.removeIf([&](const RowNode* node) { return !parts.rows.find(node->row); });
  parts.focus.FocusRow = parts.rows.find(parts.link.currentRow());
  return S_OK;
}

HResult DataFollower::CellChanged(std::int32_t, std::int32_t row, std::int32_t column) {
  test_.writes.push_back(std::to_string(row) + ' ' + std::to_string(column));
  if (const auto run = std::exchange(test_.whenWritten, nullptr)) run();
  return S_OK;
}

GridTest::GridTest() {
  window.gained = [this] { focus.focusGained(); };
  window.lost = [this] { focus.focusLost(); };
  window.size = {250, 101};
  parts.config.indicator.width = 16;
  parts.settings.ColumnInfo = u"text";
  parts.window = &window;
  editors.setKeyTarget([this](std::int32_t key) { keys.keyDown(key); });
  editors.windowCreated();
  setColumns("a 0 60 0 20\nb 60 120 0 20\nc 120 180 0 20", [](GridTest& test) {
    for (ColumnRecord& column : test.parts.config.columns) column.child.type = CellKind::Edit;
  });
  setRows(10);
  window.moveFocus(FakeWindow::Focus::Grid);
  services.take();
}

GridTest::~GridTest() {
  if (parts.window) destroyWindow();
  parts.link.unbind();
}

void GridTest::setColumns(const std::string& text, std::function<void(GridTest&)> finish) {
  columnText_ = text;
  finish_ = std::move(finish);
  refresh();
}

void GridTest::setRows(std::int32_t count) {
  std::vector<ColumnFormat> formats;
  for (const ColumnRecord& column : columnsOf(columnText_)) formats.push_back({column.refColumnId});
  setFormats(std::move(formats), count);
  XString text;
  for (std::int32_t row = 1; row <= count; ++row) {
    for (const ColumnRecord& column : parts.config.columns) {
      text.format("%s%d", column.id.toUtf8(), row);
      data->SetTextByName(row, column.refColumnId, text);
    }
  }
  data->acceptChanges();
  writes.clear();
}

void GridTest::setFormats(std::vector<ColumnFormat> formats, std::int32_t rows) {
  ColumnStore store;
  for (ColumnFormat& format : formats) store.addColumn(std::move(format));
  DataSetOptions options;
  options.id = "data";
  const auto old = std::exchange(data, std::make_shared<MemoryDataSet>(std::move(store), options));
  data->appendRows(rows);
  data->acceptChanges();
  if (rows > 0) data->SetCurrentRow(1);
  OneObjectSite site(data);
  parts.link.bindDataSet(follower, &site, u"data");
  refresh();
}

void GridTest::refresh() {
  ++services.generationNumber;
  editors.abandon();
  parts.focus.forget();
  parts.page.VisibleRows.clear();
  parts.config.columns.removeAll();
  parts.link.forgetColumns();
  parts.config.columns = columnsOf(columnText_);
  parts.metrics.measureHeights(parts.config.columns);
  parts.metrics.indicatorShift = 0;
  parts.metrics.makeRoomForIndicator(parts.config.columns, parts.config.indicator.effectiveWidth());
  parts.metrics.buildLineTops(parts.config.columns);
  parts.metrics.closeFixedZone(parts.config.columns);
  parts.page.ColumnStop = 1;
  if (finish_) finish_(*this);
  buildPage();
}

void GridTest::buildPage() {
  parts.page.VisibleRows.clear();
  parts.rows.buildPlain(parts.link.rowCount());
  parts.updateBars(bar_bit::both);
  const GridFrame frame = parts.frame();
  parts.loader(frame).LoadVisibleRows(true);
}

void GridTest::letGoOfData() {
  OneObjectSite nobody(nullptr);
  parts.link.bindDataSet(follower, &nobody, u"");
}

void GridTest::destroyWindow() {
  editors.windowDestroyed();
  parts.window = nullptr;
  window.edit = nullptr;
  window.list = nullptr;
  window.focus = FakeWindow::Focus::Elsewhere;
}

bool GridTest::pressRow(Point at, Modifiers modifiers) {
  const GridFrame frame = parts.frame();
  const Hit hit = hitTest(frame, parts.config.columns, parts.page, parts.link, at.x, at.y);
  focus.pressRow(hit, at, modifiers);
  return hit.node != nullptr;
}

bool GridTest::press(std::int32_t key, Modifiers modifiers) {
  window.keys = modifiers;
  const KeyRoute route = filter.translate(key);
  const bool hostFirst = route == KeyRoute::Host;
  if (route != KeyRoute::Done && parts.window) {
    if (window.focus == FakeWindow::Focus::Grid) {
      keys.keyDown(key);
    } else if (window.focus == FakeWindow::Focus::Edit) {
      EditBoxOwner& owner = window.edit->owner;
      if (!owner.editKeyDown(key)) owner.editKeyDone(key);
    } else if (window.focus == FakeWindow::Focus::List) {
      keyToList(*window.list, key);
    }
  }
  window.keys = {};
  return !hostFirst;
}

void GridTest::type(const std::u16string& text) {
  for (const char16_t character : text) {
    if (window.focus == FakeWindow::Focus::Edit) {
      static_cast<LiveEditBox*>(window.edit)->put(character);
    } else {
      editors.charArrived(character);
    }
  }
}

ColumnPosition GridTest::position(std::string_view id) {
  ColumnList& columns = parts.config.columns;
  for (auto it = columns.begin(); it != columns.end(); ++it) {
    if (it->id.toUtf8() == id) return it.position();
  }
  return nullptr;
}

std::string GridTest::cellText(std::int32_t row, std::string_view name) {
  XString text;
  data->GetTextByName(row, XString::fromNarrow(name), text);
  return text.toUtf8();
}

std::string GridTest::focusText() const {
  std::ostringstream text;
  const FocusModel& model = parts.focus;
  if (model.CellMode) {
    text << RowNumber(model.FocusRow) << ' '
         << (model.FocusColumn ? model.FocusColumn->value().id.toUtf8() : "-");
  } else {
    text << "rows";
    for (const RowNode* node : model.SelectedRows) text << ' ' << node->row;
  }
  const RowNode* row = model.CellMode               ? model.FocusRow
                       : model.SelectedRows.empty() ? nullptr
                                                    : model.SelectedRows.front();
  if (row && parts.link.currentRow() != row->row) text << " current " << parts.link.currentRow();
  return text.str();
}

std::string GridTest::flags() {
  std::ostringstream text;
  for (std::int32_t row = 1; row <= data->rowCount(); ++row) {
    if (parts.link.rowSelected(row)) text << (text.tellp() > 0 ? " " : "") << row;
  }
  return text.str();
}

}  // namespace tessera::test
