// The drop-down list on the desktop.

#pragma once

#include <QPointer>

#include "platform/lifeline.h"
#include "platform/list_box.h"

class QKeyEvent;

namespace tessera {

class ListPopup;
class QtWindow;

// A window of its own that takes all keys while it is shown and closes at a press elsewhere. The window that
// made it outlives it.
class QtListBox : public ListBox {
 public:
  QtListBox(QtWindow& window, ListBoxOwner& owner);
  ~QtListBox() override;
  QtListBox(const QtListBox&) = delete;
  QtListBox& operator=(const QtListBox&) = delete;

  void setItems(std::vector<XString> items) override;
  void choose(std::int32_t index) override;
  std::int32_t chosen() const override;
  std::int32_t itemHeight() const override;
  void setFont(const LogFont& font) override;
  void place(const Rect& rect) override;
  void show(bool shown) override;
  void setFocus() override;
  bool hasFocus() const override;

  // What a person does; each may end with the list destroyed. `entersText`: the key's text is typed.
  void pressKey(std::int32_t key, QKeyEvent& event, bool entersText);
  void clicked();
  // The list has lost the focus or was closed, which the owner hears once.
  void left();
  QtWindow& window() { return window_; }

 private:
  void typed(QChar character);

  QtWindow& window_;
  ListBoxOwner& owner_;
  Lifeline life_;
  QPointer<ListPopup> popup_;
  bool entered_ = false;  // it had the focus, and the owner has not heard of its end
};

}  // namespace tessera
