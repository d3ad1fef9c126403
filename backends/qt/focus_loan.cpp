#include "backends/qt/focus_loan.h"

#include <QApplication>
#include <utility>

namespace tessera {

bool FocusLoan::begins(const QFocusEvent& event, std::function<void()> lost) {
  end();
  if (event.reason() == Qt::PopupFocusReason) return true;
  const QWidget* const bar = QApplication::focusWidget();
  if (event.reason() != Qt::MenuBarFocusReason || !bar) return false;
  const auto moved = [this, bar, lost = std::move(lost)](QWidget*, QWidget* now) {
    if (now == bar) return;
    end();
    if (now != &lender_) lost();
  };
  watch_ = QObject::connect(qApp, &QApplication::focusChanged, &lender_, moved);
  return true;
}

}  // namespace tessera
