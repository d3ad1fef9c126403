#include "tools/view/state_file.h"

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

#include "backends/qt/qt_text.h"

namespace tessera {

namespace {

constexpr int interval = 30;  // milliseconds between two looks

QJsonArray sidesOf(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

const char* keyboardName(FocusState state) {
  switch (state) {
    case FocusState::Grid:
      return "grid";
    case FocusState::Editor:
      return "editor";
    case FocusState::List:
      return "list";
    default:
      return "elsewhere";
  }
}

}  // namespace

StateFile::StateFile(ViewerWindow& window, const std::string& path)
    : window_(window), path_(QString::fromStdString(path)) {
  connect(&timer_, &QTimer::timeout, this, &StateFile::update);
  timer_.start(interval);
}

void StateFile::update() {
  const QByteArray text = QJsonDocument(describe()).toJson();
  if (text == written_) return;
  QSaveFile file(path_);
  if (!file.open(QIODevice::WriteOnly)) return;
  file.write(text);
  if (file.commit()) written_ = text;
}

QJsonObject StateFile::describe() const {
  const QWidget* const active = QApplication::activeWindow();
  QJsonObject state{
      {"title", window_.windowTitle().replace("[*]", window_.isWindowModified() ? "*" : "")},
      {"active", active ? active->windowTitle().remove("[*]") : QString()},
      {"said", window_.statusLine().said()},
      {"place", window_.statusLine().place()},
      {"errors", window_.statusLine().errorCount()},
      {"find", window_.findBar().isVisible() ? window_.findBar().message() : QJsonValue()},
      {"searching", window_.findBar().isSearching()},
  };
  if (Tessera* const grid = window_.grid()) describeGrid(*grid, state);
  return state;
}

void StateFile::describeGrid(Tessera& grid, QJsonObject& state) const {
  const GridParts& parts = grid.parts();
  if (!parts.window) return;
  const Point origin = parts.window->clientOrigin();
  const Size size = parts.window->clientSize();
  state["client"] = sidesOf({origin.x, origin.y, origin.x + size.width, origin.y + size.height});
  const GridFrame frame = parts.frame();
  state["firstRowTop"] = frame.firstRowTop();
  state["rowHeight"] = frame.rowHeight;
  state["keyboard"] = keyboardName(parts.focus.state);
  state["rows"] = parts.link.rowCount();
  std::int32_t row = 0;
  grid.get_RowPosition(row);
  XString column;
  grid.get_ColumnPosition(column);
  state["row"] = row;
  state["column"] = toQString(column);
  XString rows;
  grid.get_SelectedRows(rows);
  state["selected"] = toQString(rows);
  XString text;
  if (!column.empty() && row > 0) grid.get_GetText(column, row, 3, text);
  state["text"] = toQString(text);
  if (parts.editor.active) state["edit"] = toQString(parts.editor.box->text());
  state["list"] = grid.controllers().editors.list().isOpen();
  if (!parts.page.VisibleRows.empty()) state["top"] = parts.page.VisibleRows.front().number;
  QJsonObject headers;
  QJsonObject views;
  for (const ColumnRecord& each : parts.config.columns) {
    headers[toQString(each.id)] = sidesOf(each.header.rect);
    views[toQString(each.id)] = sidesOf(each.view.rect);
  }
  state["headers"] = headers;
  state["views"] = views;  // from the top of a row
}

}  // namespace tessera
