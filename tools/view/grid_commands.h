// What the viewer's menus do with the grid and its data.

#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "components/memory_data_set.h"
#include "control/tessera.h"

namespace tessera {

// Every command ends an open edit first, but those that are about the edit itself. What it returns is for the
// person to read; the empty text says nothing. `grid` is borrowed; `rows` is null without a data set.
class GridCommands {
 public:
  GridCommands(Tessera& grid, std::shared_ptr<MemoryDataSet> rows) : grid_(grid), rows_(std::move(rows)) {}

  // Saves what is being edited into its cell. False: the editor stays open.
  bool finishEdit();

  // Opens the editor of the focus cell, or its list.
  QString editCell();
  // The text of the focus cell, or the selected rows: cells divided by tabs, a row a line, with quotes around
  // cells that have tabs, line ends or quotes of their own.
  QString copy(QString& text);
  // An edit that left its cell as it was although another value was typed.
  static bool isRefused(const QString& before, const QString& typed, const QString& after);
  static QString refusal();
  // Types the first line of `text` into the focus cell in place of its content.
  QString paste(const QString& text);

  QString insertRow();  // above the focus row
  QString appendRow();
  QString deleteRows();  // all selected ones

  enum class Order { Ascending, Descending, AsLoaded };
  QString sort(Order order);
  QString fitColumns();

  // What stands above a column, in one line; its id when nothing does.
  QString columnName(const XString& id) const;
  // Rows that change places take the focus column with them; so the column is put back around `change`.
  void keepColumn(const std::function<void()>& change);

 private:
  const ColumnRecord* focusColumn() const;
  std::int32_t focusRow() const;
  std::vector<std::int32_t> selectedRows() const;
  bool isEditable(const ColumnRecord& column) const;
  QString rowText(std::int32_t row) const;
  QString storedText(const ColumnRecord& column) const;
  QString cellText(const ColumnRecord& column, std::int32_t row) const;
  QString insertAt(std::int32_t row);

  Tessera& grid_;
  std::shared_ptr<MemoryDataSet> rows_;
};

}  // namespace tessera
