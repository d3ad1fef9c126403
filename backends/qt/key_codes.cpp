#include "backends/qt/key_codes.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>

namespace tessera {

namespace {

struct KeyRow {
  int key;
  std::int32_t code;
};

constexpr KeyRow unsorted[] = {
    {Qt::Key_Escape, 27},
    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},
    {Qt::Key_Backspace, 8},
    {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Pause, 19},
    {Qt::Key_Print, 44},
    {Qt::Key_Clear, 12},
    {Qt::Key_Home, 36},
    {Qt::Key_End, 35},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
    {Qt::Key_Meta, 91},
    {Qt::Key_Menu, 93},
    {Qt::Key_Space, 32},
    {Qt::Key_Semicolon, 186},
    {Qt::Key_Colon, 186},
    {Qt::Key_Equal, 187},
    {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},
    {Qt::Key_Less, 188},
    {Qt::Key_Minus, 189},
    {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190},
    {Qt::Key_Slash, 191},
    {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192},
    {Qt::Key_AsciiTilde, 192},
    {Qt::Key_BracketLeft, 219},
    {Qt::Key_BraceLeft, 219},
    {Qt::Key_Backslash, 220},
    {Qt::Key_Bar, 220},
    {Qt::Key_BracketRight, 221},
    {Qt::Key_BraceRight, 221},
    {Qt::Key_Apostrophe, 222},
    {Qt::Key_QuoteDbl, 222},
    {Qt::Key_Exclam, 49},
    {Qt::Key_At, 50},
    {Qt::Key_NumberSign, 51},
    {Qt::Key_Dollar, 52},
    {Qt::Key_Percent, 53},
    {Qt::Key_AsciiCircum, 54},
    {Qt::Key_Ampersand, 55},
    {Qt::Key_Asterisk, 56},
    {Qt::Key_ParenLeft, 57},
    {Qt::Key_ParenRight, 48},
};

constexpr auto rows = [] {
  auto table = std::to_array(unsorted);
  std::sort(table.begin(), table.end(), [](const KeyRow& a, const KeyRow& b) { return a.key < b.key; });
  return table;
}();

// Of the number pad, where it enters characters.
constexpr KeyRow padRows[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},   {Qt::Key_Comma, 110},
    {Qt::Key_Minus, 109},    {Qt::Key_Period, 110}, {Qt::Key_Slash, 111},
};

constexpr std::int32_t firstPadDigit = 96, firstFunctionKey = 112;

std::int32_t padCode(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return firstPadDigit + key - Qt::Key_0;
  for (const KeyRow& row : padRows) {
    if (row.key == key) return row.code;
  }
  return 0;
}

}  // namespace

std::int32_t keyCode(const QKeyEvent& event) {
  const int key = event.key();
  if (event.modifiers() & Qt::KeypadModifier) {
    if (const std::int32_t code = padCode(key)) return code;
  }
  if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z)) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return firstFunctionKey + key - Qt::Key_F1;
  const auto found = std::lower_bound(rows.begin(), rows.end(), key,
                                      [](const KeyRow& row, int wanted) { return row.key < wanted; });
  return found != rows.end() && found->key == key ? found->code : 0;
}

}  // namespace tessera
