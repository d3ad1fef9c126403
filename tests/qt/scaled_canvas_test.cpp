// Drawing in logical pixels on device pixels.

#include "backends/qt/scaled_canvas.h"

#include <QImage>
#include <QLineEdit>
#include <gtest/gtest.h>
#include <set>

#include "qt/qt_desk.h"
#include "tests/support/source_path.h"
#include "tools/tessera/form_host.h"

namespace tessera::test {
namespace {

constexpr ColorRef red = rgb(255, 0, 0), white = rgb(255, 255, 255), black = rgb(0, 0, 0);

class RatioTest : public testing::TestWithParam<double> {
 protected:
  std::uint32_t pixel(std::int32_t x, std::int32_t y) { return canvas.device().pixel(x, y); }
  int count(ColorRef color) {
    const Bitmap all = canvas.device().snapshot();
    return static_cast<int>(std::count(all.pixels.begin(), all.pixels.end(), pixelOf(color)));
  }
  int pixels() { return canvas.device().size().width * canvas.device().size().height; }

  ScaledCanvas canvas{{64, 48}, GetParam()};
};

TEST_P(RatioTest, NeighboursMeetAndDoNotOverlap) {
  const Size device = canvas.device().size();
  EXPECT_EQ(device.width, std::lround(64 * GetParam()));
  canvas.fill({0, 0, 64, 48}, white);
  EXPECT_EQ(count(white), pixels());
  // Every third column and every fifth row as a line, all between them as cells.
  for (std::int32_t x = 0; x < 64; x += 3) canvas.polyline(std::array{Point{x, 0}, Point{x, 47}}, black, 1);
  for (std::int32_t y = 0; y < 48; y += 5) canvas.polyline(std::array{Point{0, y}, Point{63, y}}, black, 1);
  const int lines = count(black);
  for (std::int32_t y = 0; y < 48; y += 5) {
    for (std::int32_t x = 0; x < 64; x += 3) canvas.fill({x + 1, y + 1, x + 3, y + 5}, red);
  }
  EXPECT_EQ(count(black), lines) << "no cell covers a line";
  EXPECT_EQ(count(white), 0) << "no gap between cells and lines";
  EXPECT_EQ(count(red) + lines, pixels());
}

TEST_P(RatioTest, CopiesLieWhereFillsWould) {
  canvas.fill({0, 0, 64, 48}, white);
  const Bitmap source(16, 16, pixelOf(red));
  canvas.blit({5, 7, 40, 40}, source, 2, 3);  // 14 by 13 pixels are there
  const int copied = count(red);
  canvas.fill({5, 7, 19, 20}, black);
  EXPECT_EQ(count(red), 0);
  EXPECT_EQ(count(black), copied);
  const auto surface = canvas.createSurface({64, 48});
  surface->fill({0, 0, 64, 48}, red);
  canvas.blitSurface({0, 0, 64, 48}, *surface, 0, 0);
  EXPECT_EQ(count(red), pixels());
}

TEST_P(RatioTest, TextsFitTheirExtents) {
  LogFont font;
  font.setFace("DejaVu Sans");
  font.lfHeight = -12;
  const std::u16string_view text = u"Wagon 42";
  const Size extent = canvas.textExtent(font, text);
  ASSERT_LT(extent.width, 64);
  canvas.fill({0, 0, 64, 48}, white);
  canvas.text({0, 0, 64, 48}, 0, 4, font, black, text);
  const int inAll = pixels() - count(white);
  canvas.fill({0, 4, extent.width, 4 + extent.height}, white);
  EXPECT_GT(inAll, 0);
  EXPECT_EQ(count(white), pixels()) << "nothing of it lies outside";
  // Of the size that the ratio asks for, not of a smaller one: no more than a pixel a letter is rounded.
  LogFont twelve = font;
  RasterCanvas plain({64, 48});
  EXPECT_NEAR(extent.width, plain.textExtent(twelve, text).width, 8);
}

TEST_P(RatioTest, EdgesKeepInsideTheirArea) {
  canvas.fill({0, 0, 64, 48}, red);
  canvas.edge({10, 10, 30, 30}, Edge::RaisedInner);
  canvas.focusRect({12, 12, 28, 28});
  const int drawn = pixels() - count(red);
  EXPECT_GT(drawn, 0);
  canvas.fill({10, 10, 30, 30}, red);
  EXPECT_EQ(count(red), pixels());
}

INSTANTIATE_TEST_SUITE_P(Ratios, RatioTest, testing::Values(1.25, 1.5, 1.75, 2.0, 3.0));

// At the ratio that the environment sets.
class HighDpi : public testing::Test {
 protected:
  double ratio() { return desk.grid().devicePixelRatioF(); }
  // Of the client area.
  QImage picture() { return desk.view().grab().toImage(); }

  QtDesk desk{"editors.xml"};
};

OpenedForm openedEditors() { return std::move(*openForm(sourcePath("tests/console/forms/editors.xml"))); }

Bitmap headlessPicture() {
  FormHost host(openedEditors());
  host.window()->paint();
  return host.window()->canvas().snapshot();
}

// A blurred picture has colours between those of the lines and the cells.
TEST_F(HighDpi, PicturesAreTheHeadlessDesktopsOnMorePixels) {
  const QByteArray wanted = qgetenv("QT_SCALE_FACTOR");
  EXPECT_DOUBLE_EQ(ratio(), wanted.isEmpty() ? 1.0 : wanted.toDouble());
  const Bitmap plain = headlessPicture();
  const QImage image = picture();
  ASSERT_EQ(image.width(), std::lround(plain.width * ratio()));
  constexpr int besideTheNames = 88;
  std::set<QRgb> colors, plainColors;
  for (int y = 0; y < plain.height; ++y) plainColors.insert(plain.at(besideTheNames, y));
  for (int y = 0; y < image.height(); ++y) {
    colors.insert(image.pixel(static_cast<int>(besideTheNames * ratio()), y));
  }
  EXPECT_GT(colors.size(), 2u);
  EXPECT_EQ(colors, plainColors);
}

struct StateCase {
  const char* what;
  QPoint press;  // null: none
  int steps;     // that the rows are scrolled by
  bool edits;
};

void PrintTo(const StateCase& row, std::ostream* out) { *out << row.what; }

class StateTest : public testing::TestWithParam<StateCase> {};

// The pictures of both desktops after the same hands, where no window of Qt's lies above.
TEST_P(StateTest, LooksAsOnTheHeadlessDesktop) {
  constexpr std::uint32_t vscroll = 277;
  const StateCase& is = GetParam();
  QtDesk desk("editors.xml");
  if (desk.grid().devicePixelRatioF() != 1.0) GTEST_SKIP() << "the headless desktop has plain pixels";
  FormHost host(openedEditors());
  const Point press{is.press.x(), is.press.y()};
  const auto headlessPress = [&](MouseAction action) { host.input().mouse(action, press, {}); };
  if (!is.press.isNull()) {
    headlessPress(MouseAction::LeftDown);
    headlessPress(MouseAction::LeftUp);
    desk.click(is.press);
  }
  for (int i = 0; i < is.steps; ++i) {
    host.control().HandleMessage(vscroll, 1, 0);
    desk.bar(Qt::Vertical).triggerAction(QAbstractSlider::SliderSingleStepAdd);
  }
  if (is.edits) {
    host.control().ActivateEdit();
    desk.grid().activateEdit();
  }
  ASSERT_EQ(desk.editIsOpen(), is.edits);
  host.window()->paint();
  desk.settle();
  const Bitmap wanted = host.window()->canvas().snapshot();
  const QImage image = desk.view().grab().toImage();
  const QRect box = is.edits ? desk.editBox().geometry() : QRect();
  ASSERT_EQ(image.size(), QSize(wanted.width, wanted.height));
  int different = 0;
  for (int y = 0; y < wanted.height; ++y) {
    for (int x = 0; x < wanted.width; ++x) {
      different += !box.contains(x, y) && image.pixel(x, y) != wanted.at(x, y) ? 1 : 0;
    }
  }
  EXPECT_EQ(different, 0);
}

constexpr QPoint thirdName{60, 70}, thirdIndicator{10, 70};
INSTANTIATE_TEST_SUITE_P(States, StateTest,
                         testing::Values(StateCase{"Fresh", {}, 0, false},
                                         StateCase{"Cell", thirdName, 0, false},
                                         StateCase{"OpenEdit", thirdName, 0, true},
                                         StateCase{"Scrolled", thirdName, 2, false},
                                         StateCase{"ScrolledEdit", thirdName, 1, true},
                                         StateCase{"SelectedRow", thirdIndicator, 1, false}),
                         [](const auto& row) { return std::string(row.param.what); });

// Letters are set in the device's size: a picture that was only enlarged is the plain one with pixels
// doubled.
TEST_F(HighDpi, LettersAreSharp) {
  const Bitmap plain = headlessPicture();
  const QImage image = picture();
  if (ratio() == 1.0) GTEST_SKIP() << "nothing to enlarge";
  int uneven = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width() / 2; ++x) {
      const auto doubled = plain.at(static_cast<int>(x / ratio()), static_cast<int>(y / ratio()));
      uneven += image.pixel(x, y) != doubled ? 1 : 0;
    }
  }
  EXPECT_GT(uneven, 1000);
}

}  // namespace
}  // namespace tessera::test
