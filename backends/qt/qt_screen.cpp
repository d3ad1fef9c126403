#include "backends/qt/qt_screen.h"

#include <QGuiApplication>
#include <QPalette>
#include <QScreen>
#include <algorithm>

#include "backends/qt/qt_text.h"
#include "shared/screen.h"

namespace tessera {

namespace {

struct ColorRow {
  ColorRef Screen::*color;
  QPalette::ColorRole role;
};
constexpr ColorRow colors[] = {
    {&Screen::window, QPalette::Base},     {&Screen::windowText, QPalette::Text},
    {&Screen::face, QPalette::Button},     {&Screen::highlight, QPalette::Light},
    {&Screen::light, QPalette::Midlight},  {&Screen::shadow, QPalette::Mid},
    {&Screen::darkShadow, QPalette::Dark},
};

bool isLike(const Screen& other) {
  const auto equal = [&other](const ColorRow& row) { return other.*row.color == screen().*row.color; };
  return other.dotsPerInch == screen().dotsPerInch && std::ranges::all_of(colors, equal);
}

}  // namespace

int takeDesktopScreen() {
  static int count = 0;
  Screen desktop;
  const QPalette palette = QGuiApplication::palette();
  for (const ColorRow& row : colors) {
    desktop.*row.color = toColorRef(palette.color(QPalette::Active, row.role));
  }
  if (const QScreen* first = QGuiApplication::primaryScreen()) {
    desktop.dotsPerInch = qRound(first->logicalDotsPerInch());
  }
  if (count > 0 && isLike(desktop)) return count;
  setScreen(desktop);
  return ++count;
}

}  // namespace tessera
