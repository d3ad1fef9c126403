// Shows a table of an SQLite database in a grid: qt_orders DATABASE TABLE [PICTURE.png]
// With a picture the program paints the grid into it and ends.

#include <QApplication>
#include <QTimer>
#include <cstdio>

#include <tessera/tessera_widget.h>

#include "components/open_data_set.h"

static QString columnsOf(tessera::DataSetControl& rows) {
  constexpr int width = 110, height = 22;
  QString columns;
  std::int32_t count = 0;
  rows.GetColumnCount(count);
  for (std::int32_t i = 0; i < count; ++i) {
    tessera::XString name;
    rows.GetColumnName(i + 1, name);
    const QString id = QString::fromUtf16(name.chars()).toHtmlEscaped();
    const QString place = QString(R"(left="%1" right="%2" top="0" bottom="%3")")
                              .arg(i * width)
                              .arg((i + 1) * width)
                              .arg(height);
    columns +=
        QString(
            R"(<COLUMN id="%1" refcolid="%1"><HEADER %2 text="%1"/><VIEW %2/><CHILD type="edit"/></COLUMN>)")
            .arg(id, place);
  }
  return "<GRID>" + columns + "</GRID>";
}

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc < 3) return std::fputs("usage: qt_orders DATABASE TABLE [PICTURE.png]\n", stderr), 2;
  auto opened = tessera::openDataSet({.database = argv[1], .table = argv[2]}, {.id = "rows"});
  if (!opened) return std::fprintf(stderr, "qt_orders: %s\n", opened.error().message().c_str()), 1;

  tessera::TesseraWidget grid;
  grid.addDataSet("rows", opened->rows);
  grid.setDataID("rows");
  grid.setColumnInfo(columnsOf(*opened->rows));
  grid.resize(660, 400);
  grid.show();
  if (argc > 3) {
    QTimer::singleShot(0, &grid, [&] { QApplication::exit(grid.grab().save(argv[3]) ? 0 : 1); });
  }
  return application.exec();
}
