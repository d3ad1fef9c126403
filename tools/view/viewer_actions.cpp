// The menus and the tool bar of the viewer, and what they do.

#include <QAction>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QSaveFile>
#include <QToolBar>
#include <algorithm>
#include <array>

#include "tools/view/key_help.h"
#include "tools/view/message_box.h"
#include "tools/view/viewer_window.h"
#include "tools/view/wait_cursor.h"

namespace tessera {

namespace {

constexpr const char* menuNames[] = {"&File", "&Edit", "&Rows", "&Help"};

}  // namespace

std::span<const ViewerWindow::ActionRow> ViewerWindow::actionRows() {
  using W = ViewerWindow;
  using enum MenuId;
  static constexpr ActionRow rows[] = {
      {File, "&Open...", "Ctrl+O", "Open", false, &W::chooseFile},
      {File, "&Reload", "F5", "", true, &W::reload},
      {File, "&Save", "Ctrl+S", "Save", true, &W::save},
      {File, "Save as &Picture...", "Ctrl+P", "Picture", true, &W::savePicture},
      {File, "&Quit", "Ctrl+Q", "", false, nullptr},
      {Edit, "&Edit Cell", "F2", "", true, &W::editCell},
      {Edit, "&Copy", "=Ctrl+C", "", true, &W::copy},
      {Edit, "&Paste", "=Ctrl+V", "", true, &W::paste},
      {Edit, "&Find...", "Ctrl+F", "Find", true, &W::openFind},
      {Edit, "Find &Next", "F3", "", true, &W::findNext},
      {Edit, "Find Pre&vious", "Shift+F3", "", true, &W::findPrevious},
      {Rows, "&Insert Row Above", "Ctrl+I", "Insert row", true, &W::insertRow},
      {Rows, "&Append Row", "Ctrl+Shift+I", "", true, &W::appendRow},
      {Rows, "&Delete Rows", "Ctrl+Delete", "Delete row", true, &W::deleteRows},
      {Rows, "&Sort by This Column", "", "Sort A-Z", true, &W::sortUp},
      {Rows, "Sort &Backwards", "", "Sort Z-A", true, &W::sortDown},
      {Rows, "As &Read", "", "", true, &W::sortAsLoaded},
      {Rows, "&Fit Columns", "", "Fit columns", true, &W::fitColumns},
      {Help, "&Keys", "F1", "", false, &W::showKeys},
  };
  return rows;
}

void ViewerWindow::makeActions() {
  tools_ = addToolBar(tr("Tools"));
  tools_->setMovable(false);
  std::array<QMenu*, std::size(menuNames)> menus{};
  for (std::size_t i = 0; i < menus.size(); ++i) menus[i] = menuBar()->addMenu(tr(menuNames[i]));
  for (const ActionRow& row : actionRows())
    addAction(row, *menus[static_cast<std::size_t>(row.menu)], *tools_);
}

void ViewerWindow::addAction(const ActionRow& row, QMenu& menu, QToolBar& bar) {
  const QString keys = QString::fromLatin1(row.keys);
  const bool gridTakes = keys.startsWith('=');
  auto* const action = menu.addAction(gridTakes ? tr(row.text) + '\t' + keys.mid(1) : tr(row.text));
  if (!gridTakes && !keys.isEmpty()) action->setShortcut(QKeySequence(keys));
  if (row.needsGrid) gridActions_ << action;
  const auto run = row.run;
  connect(action, &QAction::triggered, this, [this, run] {
    if (run) return (this->*run)();
    close();
  });
  if (*row.hint == 0) return;
  action->setIconText(tr(row.hint));
  bar.addAction(action);
}

// The commands on rows are the grid's: while a text is being edited their keys belong to that text.
bool ViewerWindow::mayTakeShortcut(const QKeyEvent& event) {
  const bool gridHasKeys =
      widget_ && grid()->parts().focus.state == FocusState::Grid && !grid()->parts().editor.active;
  if (gridHasKeys) return true;
  const QKeySequence pressed(static_cast<int>(event.modifiers() & ~Qt::KeypadModifier) | event.key());
  const auto rows = actionRows();
  return std::none_of(rows.begin(), rows.end(), [&](const ActionRow& row) {
    return row.menu == MenuId::Rows && *row.keys != 0 && QKeySequence(row.keys) == pressed;
  });
}

void ViewerWindow::openAsked(const std::string& name) {
  const OpenResult result = open(name);
  if (result.fault) {
    tellFault(this, tr("Not opened"), QString::fromStdString(result.fault->message()));
  } else if (!result.opened) {
    status_->say(tr("The reading was stopped."));
  }
}

void ViewerWindow::chooseFile() {
  if (!mayDropChanges()) return;
  QString file = QFileDialog::getOpenFileName(
      this, tr("Open"), {},
      tr("Forms and data (*.xml *.csv *.tsv *.txt *.sqlite *.sqlite3 *.db);;All files (*)"));
  if (file.isEmpty()) return;
  const auto tables = databaseTables(file.toStdString());
  if (tables && tables->size() > 1) {
    QStringList names;
    for (const std::string& table : *tables) names << QString::fromStdString(table);
    bool chosen = false;
    const QString table = QInputDialog::getItem(this, tr("Open"), tr("Table:"), names, 0, false, &chosen);
    if (!chosen) return;
    file += ':' + table;
  }
  openAsked(file.toStdString());
}

void ViewerWindow::reload() {
  if (mayDropChanges()) openAsked(std::string(document_->name()));
}

void ViewerWindow::save() {
  if (!document_->isModified() && commands().finishEdit() && !document_->isModified()) {
    return status_->say(tr("There is nothing to save."));
  }
  if (saveAll()) status_->say(tr("Saved."));
}

void ViewerWindow::savePicture() {
  const QString name = QFileInfo(QString::fromStdString(document_->name())).completeBaseName() + ".png";
  QFileDialog dialog(this, tr("Save as picture"), {}, tr("Pictures (*.png)"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix("png");  // before the dialog asks whether to replace a file
  dialog.selectFile(name);
  if (dialog.exec() != QDialog::Accepted) return;
  QSaveFile file(dialog.selectedFiles().value(0));
  const bool written = file.open(QIODevice::WriteOnly) && widget_->grab().save(&file, "PNG") && file.commit();
  if (written) return status_->say(tr("The picture is in %1.").arg(file.fileName()));
  tellFault(this, tr("Not saved"), tr("%1 cannot be written.").arg(file.fileName()));
}

void ViewerWindow::editCell() { status_->say(commands().editCell()); }

void ViewerWindow::copy() {
  QString text;
  status_->say(commands().copy(text));
  if (!text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

void ViewerWindow::paste() { status_->say(commands().paste(QGuiApplication::clipboard()->text())); }

void ViewerWindow::openFind() { find_->open(); }
void ViewerWindow::findNext() { find_->find(false); }
void ViewerWindow::findPrevious() { find_->find(true); }

void ViewerWindow::insertRow() { status_->say(commands().insertRow()); }
void ViewerWindow::appendRow() { status_->say(commands().appendRow()); }

void ViewerWindow::deleteRows() { status_->say(commands().deleteRows()); }

void ViewerWindow::sortUp() {
  const WaitCursor wait;
  status_->say(commands().sort(GridCommands::Order::Ascending));
}
void ViewerWindow::sortDown() {
  const WaitCursor wait;
  status_->say(commands().sort(GridCommands::Order::Descending));
}
void ViewerWindow::sortAsLoaded() {
  const WaitCursor wait;
  status_->say(commands().sort(GridCommands::Order::AsLoaded));
}

void ViewerWindow::fitColumns() {
  const WaitCursor wait;
  status_->say(commands().fitColumns());
}

void ViewerWindow::showKeys() { KeyHelp(this).exec(); }

}  // namespace tessera
