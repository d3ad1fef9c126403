#include "qt/qt_desk.h"

#include <QApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include "backends/qt/qt_text.h"
#include "shared/compare.h"
#include "shared/utf.h"
#include "tests/support/source_path.h"
#include "tools/tessera/form_property_bag.h"
#include "tools/tessera/value_text.h"

namespace tessera::test {

namespace {

OpenedForm opened(const std::string& form) {
  auto result = openForm(sourcePath("tests/console/forms/" + form));
  if (!result) throw std::runtime_error(result.error().message());
  return std::move(*result);
}

}  // namespace

std::string eventText(EventId event, const QVariantList& arguments) {
  std::string text(eventName(event));
  text += '(';
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const XValue value = toXValue(arguments[i]);
    if (i > 0) text += ", ";
    text += value.type() == VT_BSTR ? quotedText(value.asText()) : valueText(value);
  }
  return text + ')';
}

QtDesk::QtDesk(const std::string& form)
    : opened_(opened(form)),
      before_(new QLineEdit(&dialog_)),
      grid_(new TesseraWidget(&dialog_)),
      after_(new QLineEdit(&dialog_)) {
  for (int id = 1; id <= static_cast<int>(eventTable.size()); ++id) answer(static_cast<EventId>(id), {});
  QFont font(toQString(utf16FromUtf8(opened_.form.font)), opened_.form.fontSize);
  grid_->setFont(font);
  for (std::size_t i = 0; i < opened_.components.dataSets.size(); ++i) {
    grid_->addDataSet(QString::fromStdString(opened_.form.dataSets[i].options.id),
                      opened_.components.dataSets[i].rows);
  }
  FormPropertyBag bag(opened_.form.properties);
  grid_->load(bag);
  view_ = grid_->focusProxy();
  before_->move(0, 0);
  grid_->move(0, 40);
  fitClient(opened_.form.client);
  before_->setFocus();
  dialog_.show();
  fitClient(opened_.form.client);
  dialog_.activateWindow();
  for (QElapsedTimer timer; !dialog_.isActiveWindow() && !timer.hasExpired(2000);) {
    if (!timer.isValid()) timer.start();
    settle();
  }
  settle();
  events_.clear();
}

QtDesk::~QtDesk() {
  destroyGrid();
  settle();
}

// Bars come and go with the size of the client area.
void QtDesk::fitClient(Size client) {
  for (int i = 0; i < 3; ++i) {
    grid_->resize(QSize(client.width, client.height) + grid_->size() - view_->size());
  }
  dialog_.resize(grid_->width() + 100, grid_->height() + 100);
  after_->move(0, grid_->height() + 60);
}

void QtDesk::destroyGrid() { delete grid_.data(); }

bool QtDesk::gridIsAway() {
  const QWidget* const holder = QApplication::focusWidget();
  return !list() && holder != view_ && !view_->isAncestorOf(holder);
}

QListWidget* QtDesk::list() {
  QListWidget* const list = view_->findChild<QListWidget*>();
  return list && list->isVisible() ? list : nullptr;
}

QScrollBar& QtDesk::bar(Qt::Orientation orientation) {
  for (QScrollBar* bar : view_->parentWidget()->findChildren<QScrollBar*>(Qt::FindDirectChildrenOnly)) {
    if (bar->orientation() == orientation) return *bar;
  }
  throw std::runtime_error("no such bar");
}

DataSetControl* QtDesk::dataSet(const std::string& id) {
  for (std::size_t i = 0; i < opened_.form.dataSets.size(); ++i) {
    if (opened_.form.dataSets[i].options.id == id) return opened_.components.dataSets[i].rows.get();
  }
  return nullptr;
}

std::string QtDesk::cell(std::int32_t row, std::int32_t column) {
  XString text;
  opened_.components.dataSets.front().rows->GetText(row, column, text);
  return text.toUtf8();
}

TesseraWidget::Handler QtDesk::logging(EventId event, const QVariant& value) {
  return [this, event, value](const QVariantList& arguments) {
    events_.push_back(eventText(event, arguments));
    return value;
  };
}

void QtDesk::runInside(EventId event, std::function<void()> action) {
  grid_->setHandler(event, [this, event, action](const QVariantList& arguments) {
    events_.push_back(eventText(event, arguments));
    action();
    return QVariant();
  });
}

std::vector<std::string> QtDesk::takeEvents() { return std::exchange(events_, {}); }

std::string QtDesk::takeText() {
  std::string text;
  for (const std::string& event : takeEvents()) text += event + "; ";
  return text;
}

QWidget* QtDesk::targetAt(QPoint client) {
  const QPoint at = view_->mapToGlobal(client);
  if (QListWidget* shown = list()) {
    if (shown->rect().contains(shown->mapFromGlobal(at))) return shown->viewport();
  }
  QWidget* const child = view_->childAt(client);
  return child ? child : view_;
}

void QtDesk::mouse(QEvent::Type type, Qt::MouseButton button, QPoint client, Qt::KeyboardModifiers held) {
  // A list that opens at a press takes the mouse from whoever was pressed.
  const QPointer<QWidget> target = pressed_ && !list() ? view_ : targetAt(client);
  const QPoint global = view_->mapToGlobal(client);
  QCursor::setPos(global);
  const bool isMove = type == QEvent::MouseMove;
  if (type == QEvent::MouseButtonPress && target == view_) pressed_ |= button;
  const Qt::MouseButtons down = type == QEvent::MouseButtonRelease ? pressed_ & ~button : pressed_ | button;
  QMouseEvent event(type, target->mapFromGlobal(QPointF(global)), global, isMove ? Qt::NoButton : button,
                    isMove ? pressed_ : down, held);
  if (type == QEvent::MouseButtonRelease) pressed_ &= ~Qt::MouseButtons(button);
  QApplication::sendEvent(target, &event);
}

void QtDesk::wheel(QPoint client, int delta, Qt::KeyboardModifiers held) {
  const QPoint global = view_->mapToGlobal(client);
  QCursor::setPos(global);
  QWidget* const target = targetAt(client);
  QWheelEvent event(target->mapFromGlobal(QPointF(global)), global, QPoint(), QPoint(0, delta), Qt::NoButton,
                    held, Qt::NoScrollPhase, false);
  QApplication::sendEvent(target, &event);
}

void QtDesk::key(int key, Qt::KeyboardModifiers held, const QString& text) {
  QKeyEvent event(QEvent::KeyPress, key, held, text);
  sendToFocus(event);
}

void QtDesk::tapAlt() {
  QKeyEvent down(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::AltModifier);
  down.ignore();
  sendToFocus(down);
  if (!down.isAccepted()) QApplication::sendEvent(&dialog_, &down);
  key(Qt::Key_Alt, Qt::AltModifier);
  QKeyEvent up(QEvent::KeyRelease, Qt::Key_Alt, {});
  sendToFocus(up);
}

bool QtDesk::claims(int key, Qt::KeyboardModifiers held) {
  QKeyEvent event(QEvent::ShortcutOverride, key, held);
  event.ignore();
  sendToFocus(event);
  return event.isAccepted();
}

void QtDesk::type(const QString& text) {
  for (const QChar character : text) key(Qt::Key_unknown, {}, character);
}

void QtDesk::compose(const QString& preedit, const QString& commit) {
  QInputMethodEvent event(preedit, {});
  event.setCommitString(commit);
  sendToFocus(event);
}

void QtDesk::retype(int from, int length, const QString& commit) {
  QInputMethodEvent event;
  event.setCommitString(commit, from, length);
  sendToFocus(event);
}

void QtDesk::sendToFocus(QEvent& event) {
  QWidget* const target = QApplication::focusWidget();
  if (!target) FAIL() << "nobody has the focus";
  QApplication::sendEvent(target, &event);
}

void QtDesk::settle() {
  for (int i = 0; i < 3; ++i) {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

}  // namespace tessera::test
