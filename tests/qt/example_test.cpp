// The example program, run as a person would.

#include <QImage>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tessera::test {
namespace {

TEST(Example, ShowsATableOfADatabase) {
  const QTemporaryDir folder;
  const QString database = folder.filePath("orders.sqlite"), picture = folder.filePath("orders.png");
  sqlite3* file = nullptr;
  ASSERT_EQ(sqlite3_open(database.toUtf8().constData(), &file), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(file,
                         "CREATE TABLE orders (number INTEGER, customer TEXT, total DECIMAL(8,2));"
                         "INSERT INTO orders VALUES (1,'Ada',19.5),(2,'Grace',7.25),(3,'Edsger',120);",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(file);
  EXPECT_EQ(QProcess::execute(TESSERA_QT_ORDERS, {database, "orders", picture}), 0);
  const QImage image(picture);
  ASSERT_FALSE(image.isNull());
  // Letters of all three rows, in the middle column.
  for (const int top : {22, 44, 66}) {
    QSet<QRgb> colors;
    for (int y = top + 2; y < top + 20; ++y) {
      for (int x = 112; x < 218; ++x) colors.insert(image.pixel(x, y));
    }
    EXPECT_GT(colors.size(), 3) << top;
  }
  EXPECT_EQ(QProcess::execute(TESSERA_QT_ORDERS, {database, "nothing", picture}), 1);
}

}  // namespace
}  // namespace tessera::test
