#include "control/message_table.h"

#include <algorithm>
#include <array>

#include "control/controllers.h"
#include "control/tessera.h"

namespace tessera {

namespace {

using Words = MessageWords;

Point pointOf(const Words& words) { return {words.x(), words.y()}; }

void nothing(Tessera&, const Words&) {}

// What the edit and list windows tell of themselves, when it comes as a message: a focus change of the edit
// window in the high word, everything else in the low word.
namespace child {
constexpr std::int32_t setFocus = 7, killFocus = 8, keyDown = 256, character = 258, leftDown = 513,
                       keyDone = 1027;
}

// Of a lost focus, lParam names the window that has it now; 1 stands for the grid's own.
constexpr std::int64_t gridWindow = 1;

void childMessage(Tessera& control, const Words& words) {
  Controllers& controllers = control.controllers();
  DropListController& list = controllers.editors.list();
  const auto key = static_cast<std::int32_t>(words.lParam);
  if (words.lowWord() == child::killFocus) return list.listFocusLost();
  if (words.highWord() == child::killFocus) {
    return controllers.editors.editFocusLost(words.lParam == gridWindow ? FocusTarget::GridWindow
                                                                        : FocusTarget::Elsewhere);
  }
  if (words.lowWord() == child::setFocus || words.highWord() == child::setFocus) return;
  if (words.lowWord() == child::leftDown) return list.listClicked();
  if (words.lowWord() == child::keyDown) return list.listKeyDown(key);
  if (words.lowWord() == child::character) return list.listCharDone(static_cast<char16_t>(key));
  if (words.wParam == child::keyDone) return list.listKeyDone(key);
}

void killFocus(Tessera& control, const Words&) {
  control.controllers().focus.focusLost();
  control.controllers().mouse.endPress();
  control.Repaint(nullptr);
}

constexpr std::array rows = {
    MessageRow{5, "WM_SIZE", [](Tessera& control, const Words&) { control.windowResized(); }},
    MessageRow{7, "WM_SETFOCUS",
               [](Tessera& control, const Words&) { control.controllers().focus.focusGained(); }},
    MessageRow{8, "WM_KILLFOCUS", killFocus},
    MessageRow{20, "WM_ERASEBKGND", nothing},
    MessageRow{32, "WM_SETCURSOR",
               [](Tessera& control, const Words&) { control.controllers().mouse.showCursor(); }},
    MessageRow{
        256, "WM_KEYDOWN",
        [](Tessera& control, const Words& words) { control.controllers().keys.keyDown(words.signedWord()); }},
    MessageRow{257, "WM_KEYUP", nothing},
    MessageRow{258, "WM_CHAR",
               [](Tessera& control, const Words& words) {
                 control.controllers().editors.charArrived(static_cast<char16_t>(words.wParam));
               }},
    MessageRow{260, "WM_SYSKEYDOWN",
               [](Tessera& control, const Words&) { control.controllers().keys.systemKeyDown(); }},
    MessageRow{269, "WM_IME_STARTCOMPOSITION",
               [](Tessera& control, const Words&) { control.controllers().editors.imeStarted(); }},
    MessageRow{271, "WM_IME_COMPOSITION",
               [](Tessera& control, const Words&) { control.controllers().editors.imeComposing(); }},
    MessageRow{273, "WM_COMMAND", childMessage},
    MessageRow{275, "WM_TIMER", nothing},
    MessageRow{276, "WM_HSCROLL",
               [](Tessera& control, const Words& words) {
                 control.controllers().scroll.hscroll(static_cast<ScrollCode>(words.lowWord()));
               }},
    MessageRow{277, "WM_VSCROLL",
               [](Tessera& control, const Words& words) {
                 control.controllers().scroll.vscroll(static_cast<ScrollCode>(words.lowWord()));
               }},
    MessageRow{
        512, "WM_MOUSEMOVE",
        [](Tessera& control, const Words& words) { control.controllers().mouse.move(pointOf(words)); }},
    MessageRow{
        513, "WM_LBUTTONDOWN",
        [](Tessera& control, const Words& words) { control.controllers().mouse.leftDown(pointOf(words)); }},
    MessageRow{
        514, "WM_LBUTTONUP",
        [](Tessera& control, const Words& words) { control.controllers().mouse.leftUp(pointOf(words)); }},
    MessageRow{
        515, "WM_LBUTTONDBLCLK",
        [](Tessera& control, const Words& words) { control.controllers().mouse.leftDouble(pointOf(words)); }},
    MessageRow{
        516, "WM_RBUTTONDOWN",
        [](Tessera& control, const Words& words) { control.controllers().mouse.rightDown(pointOf(words)); }},
    MessageRow{
        517, "WM_RBUTTONUP",
        [](Tessera& control, const Words& words) { control.controllers().mouse.rightUp(pointOf(words)); }},
    MessageRow{518, "WM_RBUTTONDBLCLK",
               [](Tessera& control, const Words& words) {
                 control.controllers().mouse.rightDouble(pointOf(words));
               }},
    MessageRow{
        522, "WM_MOUSEWHEEL",
        [](Tessera& control, const Words& words) { control.controllers().scroll.wheel(words.signedWord()); }},
    MessageRow{673, "WM_MOUSEHOVER", nothing},
    MessageRow{675, "WM_MOUSELEAVE", nothing},
    MessageRow{1025, "row of the next evaluation",
               [](Tessera& control, const Words& words) { control.setExprRow(words.signedWord()); }},
};

constexpr bool inOrder() {
  return std::is_sorted(rows.begin(), rows.end(),
                        [](const MessageRow& a, const MessageRow& b) { return a.number < b.number; });
}
static_assert(rows.size() == 26 && inOrder());

}  // namespace

std::span<const MessageRow> messageTable() { return rows; }

const MessageRow* findMessage(std::uint32_t number) {
  const auto found =
      std::lower_bound(rows.begin(), rows.end(), number,
                       [](const MessageRow& row, std::uint32_t wanted) { return row.number < wanted; });
  return found != rows.end() && found->number == number ? &*found : nullptr;
}

}  // namespace tessera
