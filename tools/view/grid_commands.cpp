#include "tools/view/grid_commands.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>
#include <algorithm>

#include "backends/qt/qt_text.h"
#include "cells/cell_kinds.h"

namespace tessera {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("GridCommands", text); }

bool isSecret(const ColumnRecord& column) { return (column.child.inputType & input_type::password) != 0; }

// As spreadsheets take it from the clipboard.
QString quotedCell(QString text) {
  const bool isPlain = std::none_of(text.begin(), text.end(),
                                    [](QChar c) { return c == '\t' || c == '\n' || c == '\r' || c == '"'; });
  return isPlain ? text : '"' + text.replace('"', "\"\"") + '"';
}

QString noCell() { return tr("Choose a cell first."); }
QString stillEditing() { return tr("The cell that is being edited does not take this text."); }

}  // namespace

const ColumnRecord* GridCommands::focusColumn() const {
  const FocusModel& focus = grid_.parts().focus;
  return focus.CellMode && focus.FocusRow && focus.FocusColumn ? &focus.FocusColumn->value() : nullptr;
}

std::int32_t GridCommands::focusRow() const {
  std::int32_t row = 0;
  grid_.get_RowPosition(row);
  return row;
}

std::vector<std::int32_t> GridCommands::selectedRows() const {
  XString text;
  grid_.get_SelectedRows(text);
  std::vector<std::int32_t> rows;
  for (const QString& number : toQString(text).split(',', Qt::SkipEmptyParts)) rows.push_back(number.toInt());
  return rows;
}

bool GridCommands::isEditable(const ColumnRecord& column) const {
  EvalState state;
  state.ExprRow = focusRow();
  return column.child.isEditable(state);
}

// A move of the focus to where it is already ends an edit as every move does.
bool GridCommands::finishEdit() {
  if (!grid_.parts().editor.active) return true;
  XString column;
  grid_.get_ColumnPosition(column);
  grid_.put_ColumnPosition(column);
  return !grid_.parts().editor.active;
}

QString GridCommands::editCell() {
  const ColumnRecord* const column = focusColumn();
  if (!column) return noCell();
  if (!isEditable(*column)) return tr("This cell cannot be edited.");
  const CellKindRow& kind = kindOf(*column);
  switch (kind.editor) {
    case CellEditor::Box:
      grid_.ActivateEdit();
      return {};
    case CellEditor::List:
      grid_.controllers().editors.list().open();
      return {};
    case CellEditor::None:
      break;
  }
  return kind.enter == CellAction::None ? tr("This cell cannot be edited.") : tr("Enter sets this mark.");
}

QString GridCommands::cellText(const ColumnRecord& column, std::int32_t row) const {
  constexpr std::int32_t cellKind = 3;
  XString text;
  grid_.get_GetText(column.id, row, cellKind, text);
  return toQString(text);
}

// In the focus row, as the data has it.
QString GridCommands::storedText(const ColumnRecord& column) const {
  XString text;
  if (rows_) rows_->GetTextByName(focusRow(), column.refColumnId, text);
  return toQString(text);
}

QString GridCommands::rowText(std::int32_t row) const {
  QStringList cells;
  for (const ColumnRecord& column : grid_.parts().config.columns) {
    if (column.viewVisible && !isSecret(column)) cells << quotedCell(cellText(column, row));
  }
  return cells.join('\t');
}

QString GridCommands::copy(QString& text) {
  if (const ColumnRecord* const column = focusColumn()) {
    if (isSecret(*column)) return tr("A password is not copied.");
    text = cellText(*column, focusRow());
    return tr("Copied.");
  }
  const std::vector<std::int32_t> rows = selectedRows();
  if (rows.empty()) return noCell();
  for (const std::int32_t row : rows) text += rowText(row) + '\n';
  return tr("Copied %1 rows.").arg(rows.size());
}

// "07" is no other number than "7".
bool GridCommands::isRefused(const QString& before, const QString& typed, const QString& after) {
  if (after != before || typed == before) return false;
  bool wasNumber = false;
  bool isNumber = false;
  const double was = before.toDouble(&wasNumber);
  const double is = typed.toDouble(&isNumber);
  return !wasNumber || !isNumber || was != is;
}

QString GridCommands::refusal() { return tr("The data does not take this text: the cell stays as it was."); }

// By the way of the keyboard, so that what a cell refuses to be typed it also refuses to be pasted.
QString GridCommands::paste(const QString& text) {
  const ColumnRecord* const column = focusColumn();
  if (!column) return noCell();
  if (!column->child.isPopupEdit() || !isEditable(*column)) return tr("This cell takes no text.");
  const QString line = text.section('\n', 0, 0).remove('\r');
  if (line.isEmpty()) return tr("The clipboard has no text.");
  const QString before = storedText(*column);
  grid_.ActivateEdit();
  const EditorModel& editor = grid_.parts().editor;
  if (!editor.active) return tr("This cell takes no text.");
  editor.box->setText({});
  for (const QChar character : line) {
    if (!editor.active) return {};
    editor.box->sendChar(character.unicode());
  }
  const QString taken = toQString(editor.box->text());
  if (taken.isEmpty()) {
    grid_.controllers().editors.tryCommit(CommitMode::Escape);
    return tr("The cell takes nothing of this text.");
  }
  if (!finishEdit()) return stillEditing();
  if (const ColumnRecord* const pasted = focusColumn();
      pasted && isRefused(before, taken, storedText(*pasted)))
    return refusal();
  return taken.compare(line, Qt::CaseInsensitive) == 0 ? QString()
                                                       : tr("The cell took \"%1\" of the text.").arg(taken);
}

QString GridCommands::insertAt(std::int32_t row) {
  if (!rows_) return tr("There are no rows to insert into.");
  if (!finishEdit()) return stillEditing();
  const std::int32_t inserted = rows_->InsertRow(row);
  if (inserted < 1) return tr("The data takes no new row.");
  return tr("Row %1 is new.").arg(QLocale().toString(inserted));
}

QString GridCommands::insertRow() { return insertAt(std::max(focusRow(), 1)); }

QString GridCommands::appendRow() { return insertAt(rows_ ? rows_->rowCount() + 1 : 0); }

// From the end, so that the numbers of the others stay.
QString GridCommands::deleteRows() {
  std::vector<std::int32_t> rows = selectedRows();
  if (!rows_ || rows.empty() || rows.back() < 1) return noCell();
  if (!finishEdit()) return stillEditing();
  std::int32_t kept = 0;
  for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
    const std::int32_t before = rows_->rowCount();
    rows_->DeleteRow(*row);
    std::int32_t status = rowNormal;
    rows_->GetStatus(*row, status);
    if (rows_->rowCount() == before && status != rowDeleted) ++kept;
  }
  if (kept > 0) return tr("%1 rows cannot be deleted.").arg(kept);
  return rows.size() == 1 ? tr("Row %1 is deleted.").arg(QLocale().toString(rows.front()))
                          : tr("%1 rows are deleted.").arg(rows.size());
}

QString GridCommands::columnName(const XString& id) const {
  constexpr std::int32_t headerKind = 2;
  XString text;
  grid_.get_GetText(id, focusRow(), headerKind, text);
  const QString name = toQString(text).simplified();
  return name.isEmpty() ? toQString(id) : name;
}

void GridCommands::keepColumn(const std::function<void()>& change) {
  XString column;
  grid_.get_ColumnPosition(column);
  change();
  if (!column.empty()) grid_.put_ColumnPosition(column);
}

QString GridCommands::sort(Order order) {
  if (!rows_) return tr("There are no rows to sort.");
  if (!finishEdit()) return stillEditing();
  XString expression;
  QString said = tr("The rows stand as they were read.");
  if (order != Order::AsLoaded) {
    const ColumnRecord* const column = focusColumn();
    if (!column || column->refColumnId.empty()) return tr("Choose a cell of the column to sort by first.");
    const bool ascending = order == Order::Ascending;
    expression.assign(ascending ? u"+" : u"-");
    expression += column->refColumnId;
    said = (ascending ? tr("Sorted by %1.") : tr("Sorted by %1, backwards.")).arg(columnName(column->id));
  }
  if (!parseSortKeys(expression.view(), rows_->store())) return tr("The data has no field to sort by here.");
  // The marks of an order that somebody else made go.
  rows_->notifier().sortReset();
  keepColumn([&] {
    rows_->SetSortExpr(expression);
    rows_->ApplySort();
  });
  return said;
}

QString GridCommands::fitColumns() {
  if (!finishEdit()) return stillEditing();
  grid_.FitArrange();
  return {};
}

}  // namespace tessera
