#include "backends/qt/qt_window.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include "backends/qt/key_codes.h"
#include "backends/qt/qt_edit_box.h"
#include "backends/qt/qt_list_box.h"
#include "backends/qt/qt_menu.h"
#include "backends/qt/scaled_canvas.h"
#include "platform/messages.h"
#include "shared/scoped_flag.h"

namespace tessera {

namespace {

struct CursorRow {
  Cursor cursor;
  Qt::CursorShape shape;
};
constexpr CursorRow cursors[] = {
    {Cursor::Arrow, Qt::ArrowCursor},    {Cursor::Beam, Qt::IBeamCursor},
    {Cursor::Wait, Qt::WaitCursor},      {Cursor::Cross, Qt::CrossCursor},
    {Cursor::SizeWE, Qt::SizeHorCursor}, {Cursor::SizeAll, Qt::SizeAllCursor},
    {Cursor::No, Qt::ForbiddenCursor},   {Cursor::Hand, Qt::PointingHandCursor},
    {Cursor::Starting, Qt::BusyCursor},  {Cursor::Help, Qt::WhatsThisCursor},
};

struct BarAction {
  int action;
  std::uint64_t code;
};
constexpr BarAction barActions[] = {
    {QAbstractSlider::SliderSingleStepSub, scroll_code::lineBack},
    {QAbstractSlider::SliderSingleStepAdd, scroll_code::lineOn},
    {QAbstractSlider::SliderPageStepSub, scroll_code::pageBack},
    {QAbstractSlider::SliderPageStepAdd, scroll_code::pageOn},
    {QAbstractSlider::SliderMove, scroll_code::thumbTrack},
    {QAbstractSlider::SliderToMinimum, scroll_code::thumbTrack},
    {QAbstractSlider::SliderToMaximum, scroll_code::thumbTrack},
};

std::uint32_t messageOf(Bar bar) { return bar == Bar::Horizontal ? message::hscroll : message::vscroll; }

// The place of the thumb goes into the high word and above.
std::uint64_t thumbWord(std::uint64_t code, int position) {
  return code | static_cast<std::uint64_t>(static_cast<std::uint32_t>(position)) << 16;
}

Modifiers modifiersOf(Qt::KeyboardModifiers modifiers) {
  return {(modifiers & Qt::ControlModifier) != 0, (modifiers & Qt::ShiftModifier) != 0};
}

// With Ctrl a key is a command, unless Alt makes it the third level of the keyboard.
bool entersText(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  const bool isCommand = held == Qt::ControlModifier || held == Qt::AltModifier;
  return !isCommand && !event.text().isEmpty() && !key::isControl(event.text().front().unicode());
}

}  // namespace

// One input: what it changed is drawn at its end.
class QtWindow::Turn {
 public:
  explicit Turn(QtWindow& window) : window_(window), call_(window.calls_) { ++window_.turns_; }
  Turn(QtWindow& window, Modifiers modifiers) : Turn(window) {
    saved_ = window_.modifiers_;
    window_.modifiers_ = modifiers;
    held_ = true;
  }
  ~Turn() {
    if (held_) window_.modifiers_ = saved_;
    if (--window_.turns_ == 0) window_.draw();
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

 private:
  QtWindow& window_;
  CallDepth::Scope call_;
  std::optional<Modifiers> saved_;
  bool held_ = false;
};

QtWindow::QtWindow(GridPane& pane, WindowOwner& owner, CallDepth& calls)
    : pane_(pane), owner_(owner), calls_(calls) {
  listenTo(Bar::Horizontal);
  listenTo(Bar::Vertical);
  view().setWindow(this);
}

QtWindow::~QtWindow() { close(); }

void QtWindow::close() {
  if (closed_) return;
  closed_ = true;
  for (const int timer : timers_) view().killTimer(timer);
  timers_.clear();
  view().setWindow(nullptr);
  closeMenus(view());
  for (const Bar bar : {Bar::Horizontal, Bar::Vertical}) pane_.bar(bar).disconnect(&pane_);
}

void QtWindow::send(std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
  if (closed_) return;
  const Turn turn(*this);
  owner_.message(message, wParam, lParam);
}

void QtWindow::abandon(const QtEditBox* box) {
  if (box_ == box) box_ = nullptr;
}

void QtWindow::abandon(const QtListBox* list) {
  if (list_ == list) list_ = nullptr;
}

// A press outside the grid closes the list, but the focus comes back to the grid first; whoever was pressed
// takes it from there. So the pointer's place tells nothing, and what counts is who has the focus now.
void QtWindow::leaveList(ListBoxOwner& owner) {
  const CallDepth::Scope call(calls_);
  const ScopedFlag leaves(leavesList_);
  owner.listFocusLost();
}

// Drawing.

Size QtWindow::clientSize() const { return {pane_.view().width(), pane_.view().height()}; }

const std::shared_ptr<QtWindow::Surface>& QtWindow::surface() {
  const double ratio = pane_.view().devicePixelRatioF();
  const Size size = clientSize();
  if (surface_ && surface_->ratio == ratio && surface_->size == size) return surface_;
  auto made = std::make_shared<Surface>();
  made->ratio = ratio;
  made->size = size;
  if (ratio == 1.0) {
    auto canvas = std::make_unique<RasterCanvas>(size);
    made->device = canvas.get();
    made->canvas = std::move(canvas);
  } else {
    auto canvas = std::make_unique<ScaledCanvas>(size, ratio);
    made->device = &canvas->device();
    made->canvas = std::move(canvas);
  }
  dirty_ = true;
  surface_ = std::move(made);
  return surface_;
}

Canvas& QtWindow::canvas() { return *surface()->canvas; }

// What the painting itself asks for waits for the next occasion: served at once it could go on for ever.
void QtWindow::repaint(const Rect*) {
  dirty_ = true;
  if (painting_ || requested_ || closed_) return;
  requested_ = true;
  view().requestDraw();
}

void QtWindow::drawRequested() {
  requested_ = false;
  draw();
}

void QtWindow::draw() {
  if (dirty_ && !closed_ && view().isVisible()) drawNow();
}

void QtWindow::drawNow() {
  if (painting_) return;
  const CallDepth::Scope call(calls_);
  const std::shared_ptr<Surface> target = surface();
  dirty_ = false;
  {
    const ScopedFlag painting(painting_);
    owner_.draw(*target->canvas);
  }
  if (!closed_) view().update();
}

// On whole device pixels, wherever a fractional ratio puts the view.
void QtWindow::show(QPainter& painter) {
  const CallDepth::Scope call(calls_);
  surface();
  if (dirty_) drawNow();
  if (closed_) return;
  const Pixels& pixels = surface_->device->pixels();
  if (pixels.bounds().empty()) return;
  const QImage image(reinterpret_cast<const uchar*>(pixels.bits), pixels.width, pixels.height,
                     pixels.stride * static_cast<std::ptrdiff_t>(sizeof(*pixels.bits)), QImage::Format_RGB32);
  if (painter.device()->devicePixelRatioF() != surface_->ratio) {
    painter.drawImage(view().rect(), image);
    return;
  }
  const QTransform toDevice = painter.deviceTransform();
  const QTransform whole = QTransform::fromTranslate(std::round(toDevice.dx()), std::round(toDevice.dy()));
  painter.setWorldTransform(whole * toDevice.inverted());
  painter.drawImage(0, 0, image);
}

void QtWindow::resized() {
  if (closed_) return;
  const Turn turn(*this);
  dirty_ = true;
  owner_.resized();
}

// Input.

void QtWindow::mouse(std::uint32_t message, std::uint64_t held, Point client,
                     Qt::KeyboardModifiers modifiers) {
  const Turn turn(*this, modifiersOf(modifiers));
  if (!captured_) {
    constexpr std::int64_t overClient = 1;
    send(message::setCursor, 0, static_cast<std::int64_t>(message) << 16 | overClient);
  }
  send(message, held, packedPoint(client));
}

void QtWindow::wheel(int across, int along, Point screen, Qt::KeyboardModifiers modifiers) {
  const Turn turn(*this, modifiersOf(modifiers));
  const std::int32_t delta = along > 0 ? wheelNotch : -wheelNotch;
  const auto word = static_cast<std::uint64_t>(static_cast<std::uint32_t>(delta) << 16);
  for (int i = std::abs(along); i > 0; --i) send(message::wheel, word, packedPoint(screen));
  const std::uint64_t code = across > 0 ? scroll_code::lineBack : scroll_code::lineOn;
  for (int i = std::abs(across); i > 0; --i) send(message::hscroll, code, 0);
}

// The key of a modifier counts as held, whatever the platform says at its press.
void QtWindow::keyPressed(QKeyEvent& event) {
  event.accept();
  std::int32_t key = keyCode(event);
  Modifiers held = modifiersOf(event.modifiers());
  held.shift = held.shift || key == key::shift || event.key() == Qt::Key_Backtab;
  held.control = held.control || key == key::control;
  const Turn turn(*this, held);
  if (endsComposition(key)) return;
  const KeyRoute route = key == 0 ? KeyRoute::Host : owner_.translateKey(key);
  if (closed_ || route == KeyRoute::Done) return;
  if (route == KeyRoute::Host && key == key::tab) return leave(!held.shift);
  const bool ours = route == KeyRoute::Window || !hasFocus() || key == key::enter || entersText(event);
  deliverKey(key, event);
  event.setAccepted(ours);
}

// Nowhere to go: the focus stays at its cell, where an edit has ended all the same.
void QtWindow::leave(bool forward) {
  if (!view().leave(forward) && !closed_) owner_.endEdit();
}

// The key that accepts or drops a composition is no answer to the grid.
bool QtWindow::endsComposition(std::int32_t key) {
  if (!box_ || !box_->hasFocus() || !box_->isComposing()) return false;
  if (key == key::enter) QGuiApplication::inputMethod()->commit();
  if (key == key::escape) box_->dropComposition();
  return key == key::enter || key == key::escape;
}

void QtWindow::deliverKey(std::int32_t key, QKeyEvent& event) {
  if (box_ && box_->hasFocus()) return box_->pressKey(key, event, entersText(event));
  if (list_ && list_->hasFocus()) return list_->pressKey(key, event, entersText(event));
  if (key != 0) {
    const bool system = event.modifiers() & Qt::AltModifier;
    send(system ? message::systemKeyDown : message::keyDown, static_cast<std::uint32_t>(key), 0);
  }
  if (entersText(event)) typed(event.text());
}

// The focus may move with every character.
void QtWindow::typed(QStringView text) {
  for (qsizetype i = 0; i < text.size() && !closed_; ++i) {
    if (box_ && box_->hasFocus()) return box_->type(text.mid(i));
    send(message::character, text[i].unicode(), 0);
  }
}

// Finished characters are as good as typed ones. Of the others the first opens the editor and goes on there;
// without an editor for them the input method starts afresh.
void QtWindow::composed(const QInputMethodEvent& event) {
  if (handingOver_) return replaceComposition(event);
  const Turn turn(*this);
  typed(event.commitString());
  if (closed_ || event.preeditString().isEmpty()) return;
  handingOver_ = true;
  composition_ = std::make_unique<QInputMethodEvent>(event.preeditString(), event.attributes());
  send(message::startComposition, 0, 0);
  if (composition_) send(message::composition, 0, 0);
  handingOver_ = false;
  if (composition_) QGuiApplication::inputMethod()->reset();
  composition_.reset();
}

std::unique_ptr<QInputMethodEvent> QtWindow::takeComposition() {
  handingOver_ = false;
  return std::move(composition_);
}

void QtWindow::setNative(bool native) {
  const Qt::InputMethodHints hints = native ? Qt::ImhNone : Qt::ImhLatinOnly | Qt::ImhPreferLatin;
  view().setInputMethodHints(hints);
  if (box_) box_->setHints(hints);
}

void QtWindow::giveFocus(QWidget& widget) {
  const CallDepth::Scope call(calls_);
  widget.setFocus(Qt::OtherFocusReason);
}

// Scroll bars.

void QtWindow::listenTo(Bar bar) {
  QScrollBar& widget = pane_.bar(bar);
  QObject::connect(&widget, &QScrollBar::actionTriggered, &pane_,
                   [this, bar](int action) { barActed(bar, action); });
  QObject::connect(&widget, &QScrollBar::sliderReleased, &pane_, [this, bar] { barReleased(bar); });
}

// A step is the grid's to make: the bar follows it, not the other way round.
void QtWindow::barActed(Bar bar, int action) {
  const CallDepth::Scope call(calls_);
  QScrollBar& widget = pane_.bar(bar);
  for (const BarAction& row : barActions) {
    if (row.action != action) continue;
    send(messageOf(bar), thumbWord(row.code, widget.sliderPosition()), 0);
    if (row.code != scroll_code::thumbTrack) {
      widget.setSliderPosition(positions_[static_cast<std::size_t>(bar)]);
    }
  }
}

void QtWindow::barReleased(Bar bar) {
  const Turn turn(*this);
  send(messageOf(bar), thumbWord(scroll_code::thumbPosition, pane_.bar(bar).sliderPosition()), 0);
  send(messageOf(bar), scroll_code::end, 0);
}

void QtWindow::setBarRange(Bar bar, const BarRange& range) {
  QScrollBar& widget = pane_.bar(bar);
  widget.setRange(range.minimum,
                  std::max(range.minimum, subClamped(range.maximum, std::max(range.page - 1, 0))));
  widget.setPageStep(range.page);
  setBarPosition(bar, range.position);
}

void QtWindow::setBarPosition(Bar bar, std::int32_t position) {
  positions_[static_cast<std::size_t>(bar)] = position;
  pane_.bar(bar).setValue(position);
}

// The desktop.

void QtWindow::setCursor(Cursor cursor) {
  for (const CursorRow& row : cursors) {
    if (row.cursor == cursor) view().setCursor(row.shape);
  }
}

Modifiers QtWindow::modifiers() const {
  return modifiers_.value_or(modifiersOf(QGuiApplication::keyboardModifiers()));
}

Point QtWindow::pointer() const { return leavesList_ ? clientOrigin() : toPoint(QCursor::pos()); }

Point QtWindow::clientOrigin() const { return toPoint(pane_.view().mapToGlobal(QPoint(0, 0))); }

Rect QtWindow::screenRect() const {
  const Point origin = toPoint(pane_.mapToGlobal(QPoint(0, 0)));
  return {origin.x, origin.y, origin.x + pane_.width(), origin.y + pane_.height()};
}

// Where the screen ends that the window is on, counted from the desktop's corner.
Size QtWindow::screenSize() const {
  const QRect area = pane_.screen()->geometry();
  return {area.x() + area.width(), area.y() + area.height()};
}

std::int32_t QtWindow::wheelLines() const { return QApplication::wheelScrollLines(); }

void QtWindow::startTimer(std::int32_t id, std::int32_t milliseconds) {
  stopTimer(id);
  if (!closed_) timers_.insert(id, view().startTimer(milliseconds));
}

void QtWindow::stopTimer(std::int32_t id) {
  const auto found = timers_.constFind(id);
  if (found == timers_.cend()) return;
  view().killTimer(*found);
  timers_.erase(found);
}

void QtWindow::timerFired(int timer) {
  const auto found = std::find(timers_.cbegin(), timers_.cend(), timer);
  if (found != timers_.cend()) send(message::timer, static_cast<std::uint32_t>(found.key()), 0);
}

std::unique_ptr<EditBox> QtWindow::createEditBox(EditBoxOwner& owner) {
  return std::make_unique<QtEditBox>(*this, owner);
}

std::unique_ptr<ListBox> QtWindow::createListBox(ListBoxOwner& owner) {
  return std::make_unique<QtListBox>(*this, owner);
}

void QtWindow::trackPopupMenu(std::span<const PopupMenuItem> items, Point screen, MenuAnswer chosen) {
  const CallDepth::Scope call(calls_);
  const std::int32_t code = execMenu(view(), items, {screen.x, screen.y});
  if (!closed_) chosen(code);
}

}  // namespace tessera
