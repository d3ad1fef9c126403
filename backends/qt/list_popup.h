// The widgets that a drop-down list on the desktop stands on.

#pragma once

#include <QFrame>
#include <QListWidget>

namespace tessera {

class QtListBox;

class ListView : public QListWidget {
 public:
  ListView(QWidget* parent, QtListBox*& list);

  void process(QKeyEvent& event) { QListWidget::keyPressEvent(&event); }

 protected:
  bool event(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QtListBox*& list_;  // the popup's
};

// The top-level window around the list, with a line as its border. While it is shown it gets what the mouse
// does anywhere: what is the grid's goes on to the grid.
class ListPopup : public QFrame {
 public:
  ListPopup(QWidget* parent, QtListBox& list);

  ListView& view() { return *view_; }
  // The list goes away; the widgets may be in the midst of an event and stay until the grid's window ends.
  void retire();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QtListBox* list_;  // null after retire()
  ListView* view_;
};

}  // namespace tessera
