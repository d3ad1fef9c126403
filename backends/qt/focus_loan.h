// Tells whether the keyboard focus is only lent.

#pragma once

#include <QFocusEvent>
#include <QMetaObject>
#include <QWidget>
#include <functional>

namespace tessera {

// Popups and menu bars borrow the keys. A menu bar takes the focus itself meanwhile: it gives it back, or
// passes it on to somebody else, and then the lender has lost it.
class FocusLoan {
 public:
  explicit FocusLoan(QWidget& lender) : lender_(lender) {}
  ~FocusLoan() { end(); }
  FocusLoan(const FocusLoan&) = delete;
  FocusLoan& operator=(const FocusLoan&) = delete;

  // For the event with which the lender loses the focus: true when it may come back. `lost` is called when it
  // does not.
  bool begins(const QFocusEvent& event, std::function<void()> lost);
  bool underWay() const { return static_cast<bool>(watch_); }
  void end() { QObject::disconnect(watch_); }

 private:
  QWidget& lender_;
  QMetaObject::Connection watch_;
};

}  // namespace tessera
