// A dialog with a grid between two line edits, and the hands of the person before it.

#pragma once

#include <QEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QScrollBar>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <tessera/tessera_widget.h>

#include "tools/tessera/open_form.h"

namespace tessera::test {

// The form's path below tests/console/forms. At the start the line edit before the grid has the focus and the
// grid's client area the form's size.
class QtDesk {
 public:
  explicit QtDesk(const std::string& form);
  // Runs the event loop until nothing is left that was destroyed on the way.
  ~QtDesk();
  QtDesk(const QtDesk&) = delete;
  QtDesk& operator=(const QtDesk&) = delete;

  TesseraWidget& grid() { return *grid_; }
  bool hasGrid() const { return !grid_.isNull(); }
  void destroyGrid();
  QLineEdit& before() { return *before_; }
  QLineEdit& after() { return *after_; }
  // The client area.
  QWidget& view() { return *view_; }
  QLineEdit& editBox() { return *view_->findChild<QLineEdit*>(); }
  bool editIsOpen() { return view_->rect().intersects(editBox().geometry()); }
  // Whether none of the grid's windows has the focus.
  bool gridIsAway();
  // Null while no list is shown.
  QListWidget* list();
  QScrollBar& bar(Qt::Orientation orientation);
  DataSetControl* dataSet(const std::string& id);
  std::string cell(std::int32_t row, std::int32_t column);  // of the first data set

  // Every event of the grid as "OnEnter("name", 1)", in order, since the last call.
  std::vector<std::string> takeEvents();
  std::string takeText();  // the same, each with "; " behind it
  void dropEvent(const std::string& text) { std::erase(events_, text); }
  void answer(EventId event, const QVariant& value) { grid_->setHandler(event, logging(event, value)); }
  // Runs in the event.
  void runInside(EventId event, std::function<void()> action);
  void fitClient(Size client);

  // Points in client pixels; whatever of the grid lies there gets the event.
  void mouse(QEvent::Type type, Qt::MouseButton button, QPoint client, Qt::KeyboardModifiers held = {});
  void click(QPoint client) {
    mouse(QEvent::MouseButtonPress, Qt::LeftButton, client);
    mouse(QEvent::MouseButtonRelease, Qt::LeftButton, client);
  }
  void wheel(QPoint client, int delta, Qt::KeyboardModifiers held = {});
  // To whoever has the focus.
  void key(int key, Qt::KeyboardModifiers held = {}, const QString& text = {});
  void type(const QString& text);
  void compose(const QString& preedit, const QString& commit);
  // An input method puts `commit` in the place of a text that begins `from` the caret.
  void retype(int from, int length, const QString& commit);
  void tapAlt();
  // Whether the focus keeps a key from being a shortcut of the program.
  bool claims(int key, Qt::KeyboardModifiers held);
  void settle();  // lets the event loop run dry

 private:
  TesseraWidget::Handler logging(EventId event, const QVariant& value);
  QWidget* targetAt(QPoint client);
  void sendToFocus(QEvent& event);

  OpenedForm opened_;
  QWidget dialog_;
  QLineEdit* before_;
  QPointer<TesseraWidget> grid_;
  QLineEdit* after_;
  QWidget* view_ = nullptr;
  Qt::MouseButtons pressed_;
  std::vector<std::string> events_;
};

// For a grid of its own: one column "a" over the field A of rows "one" and "two".
inline constexpr const char* oneColumn =
    R"(<GRID><COLUMN id="a" refcolid="A"><HEADER left="0" right="80" top="0" bottom="20"/>)"
    R"(<VIEW left="0" right="80" top="0" bottom="20"/><CHILD type="edit"/></COLUMN></GRID>)";
template <class Rows>
std::shared_ptr<Rows> twoRows() {
  return std::make_shared<Rows>(std::vector<XString>{u"A"},
                                std::vector<std::vector<const char16_t*>>{{u"one"}, {u"two"}});
}

// The text of an event as the console writes it.
std::string eventText(EventId event, const QVariantList& arguments);

}  // namespace tessera::test
