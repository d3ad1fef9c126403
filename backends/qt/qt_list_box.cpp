#include "backends/qt/qt_list_box.h"

#include <QKeyEvent>

#include "backends/qt/list_popup.h"
#include "backends/qt/qt_text.h"
#include "backends/qt/qt_window.h"
#include "shared/compare.h"

namespace tessera {

QtListBox::QtListBox(QtWindow& window, ListBoxOwner& owner)
    : window_(window), owner_(owner), popup_(new ListPopup(&window.view(), *this)) {
  window_.adopt(this);
}

QtListBox::~QtListBox() {
  window_.abandon(this);
  if (popup_) popup_->retire();
}

void QtListBox::setItems(std::vector<XString> items) {
  ListView& view = popup_->view();
  view.clear();
  const QSize size(0, itemHeight());
  for (const XString& item : items) {
    auto* const row = new QListWidgetItem(toQString(item), &view);
    row->setSizeHint(size);
  }
}

void QtListBox::choose(std::int32_t index) {
  ListView& view = popup_->view();
  view.setCurrentRow(index);
  if (const QListWidgetItem* item = view.item(index)) {
    view.scrollToItem(item, QAbstractItemView::PositionAtTop);
  }
}

std::int32_t QtListBox::chosen() const { return popup_->view().currentRow(); }

std::int32_t QtListBox::itemHeight() const { return std::max(1, popup_->view().fontMetrics().height()); }

void QtListBox::setFont(const LogFont& font) { popup_->view().setFont(toQFont(font)); }

void QtListBox::place(const Rect& rect) { popup_->setGeometry(toQRect(rect)); }

void QtListBox::show(bool shown) {
  const CallDepth::Scope call(window_.calls());
  popup_->setVisible(shown);
}

void QtListBox::setFocus() {
  if (!popup_->isVisible()) return;
  entered_ = true;
  window_.giveFocus(popup_->view());
}

bool QtListBox::hasFocus() const { return popup_ && popup_->view().hasFocus(); }

// Left and Right are as good as Up and Down where there is one column.
void QtListBox::pressKey(std::int32_t key, QKeyEvent& event, bool entersText) {
  const auto life = life_.watch();
  if (key != 0) {
    owner_.listKeyDown(key);
    if (life.expired()) return;
    ListView& view = popup_->view();
    const int step = event.key() == Qt::Key_Left ? -1 : event.key() == Qt::Key_Right ? 1 : 0;
    if (step != 0) {
      view.setCurrentRow(std::clamp(view.currentRow() + step, 0, std::max(0, view.count() - 1)));
    } else if (!entersText) {
      view.process(event);
    }
    owner_.listKeyDone(key);
    if (life.expired()) return;
  }
  if (entersText) typed(event.text().front());
}

// The next item behind the chosen one that begins with the character, from the last one on to the first.
void QtListBox::typed(QChar character) {
  ListView& view = popup_->view();
  const int count = view.count();
  for (int step = 1; step <= count; ++step) {
    const int row = (std::max(view.currentRow(), -1) + step) % count;
    if (!view.item(row)->text().startsWith(character, Qt::CaseInsensitive)) continue;
    view.setCurrentRow(row);
    break;
  }
  owner_.listCharDone(character.unicode());
}

void QtListBox::clicked() {
  const CallDepth::Scope call(window_.calls());
  owner_.listClicked();
}

void QtListBox::left() {
  if (std::exchange(entered_, false)) window_.leaveList(owner_);
}

}  // namespace tessera
