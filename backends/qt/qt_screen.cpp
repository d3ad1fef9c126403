#include "backends/qt/qt_screen.h"

#include <QGuiApplication>
#include <QPalette>
#include <QScreen>

#include "backends/qt/qt_text.h"
#include "shared/screen.h"

namespace tessera {

namespace {

struct ColorRow {
  ColorRef Screen::*color;
  QPalette::ColorRole role;
};
constexpr ColorRow colors[] = {
    {&Screen::window, QPalette::Base},     {&Screen::face, QPalette::Button},
    {&Screen::highlight, QPalette::Light}, {&Screen::light, QPalette::Midlight},
    {&Screen::shadow, QPalette::Mid},      {&Screen::darkShadow, QPalette::Dark},
};

// The texts of a grid are black where nothing else is configured.
bool isReadable(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() > palette.color(QPalette::Text).lightness();
}

}  // namespace

void takeDesktopScreen() {
  Screen desktop;
  const QPalette palette = QGuiApplication::palette();
  for (const ColorRow& row : colors) {
    if (isReadable(palette)) desktop.*row.color = toColorRef(palette.color(QPalette::Active, row.role));
  }
  if (const QScreen* first = QGuiApplication::primaryScreen()) {
    desktop.dotsPerInch = qRound(first->logicalDotsPerInch());
  }
  setScreen(desktop);
}

}  // namespace tessera
