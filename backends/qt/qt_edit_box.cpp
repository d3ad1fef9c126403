#include "backends/qt/qt_edit_box.h"

#include <QApplication>
#include <QKeyEvent>

#include "backends/qt/cell_line_edit.h"
#include "backends/qt/key_codes.h"
#include "backends/qt/qt_text.h"
#include "backends/qt/qt_window.h"

namespace tessera {

QtEditBox::QtEditBox(QtWindow& window, EditBoxOwner& owner)
    : window_(window), owner_(owner), line_(new CellLineEdit(&window.view(), *this)) {
  window_.adopt(this);
  line_->show();
}

QtEditBox::~QtEditBox() {
  window_.abandon(this);
  if (line_) line_->retire();
}

void QtEditBox::setText(std::u16string_view text) { line_->setText(toQString(text)); }

XString QtEditBox::text() const { return toXString(line_->text()); }

void QtEditBox::select(std::int32_t start, std::int32_t end) {
  const auto length = static_cast<std::int32_t>(line_->text().size());
  const std::int32_t from = std::clamp(start, 0, length);
  const std::int32_t to = end < 0 ? length : std::clamp(end, 0, length);
  line_->setCursorPosition(to);
  if (from != to) line_->setSelection(from, to - from);
}

void QtEditBox::selection(std::int32_t& start, std::int32_t& end) const {
  start = line_->hasSelectedText() ? line_->selectionStart() : line_->cursorPosition();
  end = line_->hasSelectedText() ? line_->selectionEnd() : start;
}

void QtEditBox::setPassword(bool masked) {
  line_->setEchoMode(masked ? QLineEdit::Password : QLineEdit::Normal);
}

void QtEditBox::setFont(const LogFont& font) { line_->setFont(toQFont(font)); }

void QtEditBox::place(const Rect& rect) {
  rect_ = rect;
  line_->setGeometry(toQRect(rect));
}

void QtEditBox::setFocus() {
  const CallDepth::Scope call(window_.calls());
  line_->takeFocus();
}

bool QtEditBox::hasFocus() const { return line_ && line_->hasFocus(); }

void QtEditBox::setHints(Qt::InputMethodHints hints) { line_->setInputMethodHints(hints); }

bool QtEditBox::isComposing() const { return line_->isComposing(); }

void QtEditBox::dropComposition() { line_->dropComposition(); }

void QtEditBox::sendChar(char16_t character) { type(QStringView(&character, 1)); }

void QtEditBox::sendComposition() {
  if (const auto event = window_.takeComposition()) composed(*event);
}

// Backspace is a key and a character.
void QtEditBox::pressKey(std::int32_t key, QKeyEvent& event, bool entersText) {
  const auto life = life_.watch();
  const bool erases = key == key::backspace && (event.modifiers() & Qt::ControlModifier) == 0;
  if (key != 0) {
    if (owner_.editKeyDown(key) || life.expired()) return;
    if (!entersText && !erases) line_->process(event);
    owner_.editKeyDone(key);
    if (life.expired()) return;
  }
  if (entersText) return type(event.text());
  if (!erases || !allowed(key::backspace)) return;
  line_->backspace();
  owner_.editCharDone(key::backspace);
}

bool QtEditBox::allowed(char16_t character) {
  const auto life = life_.watch();
  return owner_.editAllows(character) && !life.expired();
}

// The halves of a character outside the basic plane go in together.
void QtEditBox::type(QStringView text) {
  const auto life = life_.watch();
  for (qsizetype i = 0; i < text.size();) {
    const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
    const QStringView one = text.mid(i, pair ? 2 : 1);
    i += one.size();
    if (!allowed(one.front().unicode())) {
      if (life.expired()) return;
      continue;
    }
    line_->insert(inCase(one));
    owner_.editCharDone(one.front().unicode());
    if (life.expired()) return;
  }
}

QString QtEditBox::inCase(QStringView text) const {
  const QString typed = text.toString();
  switch (letters_) {
    case LetterCase::Upper:
      return typed.toUpper();
    case LetterCase::Lower:
      return typed.toLower();
    case LetterCase::AsTyped:
      break;
  }
  return typed;
}

// What is finished goes in as if it were typed; what is not, the line edit shows in its midst, unless the
// cell takes no composition.
void QtEditBox::composed(const QInputMethodEvent& event) {
  const auto life = life_.watch();
  const bool shows = owner_.editAllowsComposition();
  if (!event.commitString().isEmpty() || event.replacementLength() > 0) {
    QInputMethodEvent over;
    line_->process(over);
    replace(event);
    if (life.expired()) return;
  }
  if (!shows && !event.preeditString().isEmpty()) return QGuiApplication::inputMethod()->reset();
  QInputMethodEvent rest(event.preeditString(), event.attributes());
  line_->process(rest);
}

// The text to replace is counted from the caret. It stays when nothing of the new one may go in.
void QtEditBox::replace(const QInputMethodEvent& event) {
  const auto life = life_.watch();
  const int caret = line_->cursorPosition();
  if (event.replacementLength() > 0) {
    const int from = std::clamp(caret + event.replacementStart(), 0, static_cast<int>(line_->text().size()));
    line_->setSelection(from, event.replacementLength());
    if (event.commitString().isEmpty()) return line_->del();
  }
  type(event.commitString());
  if (!life.expired() && event.replacementLength() > 0 && line_->hasSelectedText()) {
    line_->setCursorPosition(caret);
  }
}

// Somebody else than the control has put the focus here, as Qt does when the window or a menu bar gives it
// back. With nothing to edit the keys are the grid's.
void QtEditBox::focusArrived() {
  if (!window_.view().rect().intersects(toQRect(rect_))) window_.setFocus();
}

void QtEditBox::focusLost() {
  const CallDepth::Scope call(window_.calls());
  const bool toGrid = QApplication::focusWidget() == &window_.view();
  owner_.editFocusLost(toGrid ? FocusTarget::GridWindow : FocusTarget::Elsewhere);
}

}  // namespace tessera
