// The grid takes face, size and colours of the desktop, whenever these change.

#include <QApplication>
#include <QPalette>
#include <gtest/gtest.h>

#include "qt/qt_desk.h"
#include "support/fake_data_set.h"

namespace tessera::test {
namespace {

class LooksTest : public testing::TestWithParam<bool> {
 protected:
  // Alone, or inside of a window of its own.
  LooksTest() : grid(*new TesseraWidget(GetParam() ? &window : nullptr)) {
    grid.addDataSet("rows", twoRows<FakeDataSet>());
    grid.setDataID("rows");
    grid.setColumnInfo(oneColumn);
    grid.resize(200, 100);
    (GetParam() ? window : grid).show();
    QApplication::processEvents();
  }
  ~LooksTest() override {
    delete &grid;
    take(palette);
  }

  // What the palette's change posts posts more.
  static void take(const QPalette& changed) {
    QApplication::setPalette(changed);
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
  }
  void change(QColor base, QColor text) {
    QPalette changed = palette;
    changed.setColor(QPalette::Base, base);
    changed.setColor(QPalette::Text, text);
    take(changed);
  }
  // Logical pixels.
  QColor colorAt(QPoint place) {
    const QImage image = grid.grab().toImage();
    return image.pixelColor((QPointF(place) * image.devicePixelRatio()).toPoint());
  }
  // Lightness of the darkest and the lightest pixel in the first row, which names no colour.
  std::pair<int, int> lightness() {
    const QImage image = grid.grab().toImage();
    const double ratio = image.devicePixelRatio();
    std::pair<int, int> range{255, 0};
    for (int y = static_cast<int>(24 * ratio); y < 36 * ratio; ++y) {
      for (int x = static_cast<int>(20 * ratio); x < 90 * ratio; ++x) {
        const int found = qGray(image.pixel(x, y));
        range = {std::min(range.first, found), std::max(range.second, found)};
      }
    }
    return range;
  }

  const QPalette palette = QApplication::palette();
  QWidget window;
  TesseraWidget& grid;
};

TEST_P(LooksTest, AreThePalettesAlsoWhenItChanges) {
  constexpr QPoint cell{70, 50}, emptySpace{40, 90};
  EXPECT_EQ(colorAt(cell), palette.color(QPalette::Base));
  EXPECT_EQ(colorAt(emptySpace), palette.color(QPalette::Base));
  EXPECT_LT(lightness().first, 60);
  change(QColor(250, 240, 220), Qt::black);
  EXPECT_EQ(colorAt(cell), QColor(250, 240, 220));
  change(QColor(20, 24, 28), QColor(230, 230, 230));
  EXPECT_EQ(colorAt(cell), QColor(20, 24, 28));
  EXPECT_GT(lightness().second, 150) << "light texts on dark cells";
  EXPECT_GT(lightness().first, 15) << "and none darker than the cells";
  take(palette);
  EXPECT_EQ(colorAt(cell), palette.color(QPalette::Base));
}

TEST_P(LooksTest, FollowTheFont) {
  const QImage small = grid.grab().toImage();
  QFont font = grid.font();
  font.setPointSize(2 * font.pointSize());
  (GetParam() ? window : grid).setFont(font);
  QApplication::processEvents();
  EXPECT_NE(grid.grab().toImage(), small);
}

INSTANTIATE_TEST_SUITE_P(Parents, LooksTest, testing::Bool(),
                         [](const auto& inside) { return inside.param ? "Inside" : "Alone"; });

}  // namespace
}  // namespace tessera::test
