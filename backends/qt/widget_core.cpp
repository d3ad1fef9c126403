#include "backends/qt/widget_core.h"

#include "backends/qt/event_signals.h"
#include "backends/qt/qt_text.h"

namespace tessera {

WidgetCore::WidgetCore(TesseraWidget& widget)
    : widget_(&widget),
      page_([this] { return widget_ ? toAmbientFont(widget_->font()) : AmbientFont(); }),
      control_(Ports{documents_, &pictures_, &http_, &codePages_, &locale_, &clock_}) {
  control_.setClientSite(&page_);
  control_.quickActivate();
  control_.events().connect(this);
}

WidgetCore::~WidgetCore() { closeWindow(); }

void WidgetCore::setHandler(EventId event, TesseraWidget::Handler handler) {
  handlers_[static_cast<std::size_t>(event) - 1] = std::move(handler);
}

void WidgetCore::openWindow(GridPane& pane) {
  if (window_) return;
  const CallDepth::Scope call(calls_);
  window_ = std::make_unique<QtWindow>(pane, *this, calls_);
  open_ = true;
  control_.windowCreated(*window_);
}

void WidgetCore::closeWindow() {
  widget_.clear();
  if (!open_) return;
  open_ = false;
  const CallDepth::Scope call(calls_);
  control_.windowDestroyed();
  window_->close();
}

void WidgetCore::rebuild() {
  const CallDepth::Scope call(calls_);
  if (open_) control_.controllers().editors.settle();
  if (open_) control_.Refresh();
}

void WidgetCore::message(std::uint32_t number, std::uint64_t wParam, std::int64_t lParam) {
  control_.HandleMessage(number, wParam, lParam);
}

// The signal first. Either may destroy the widget.
HResult WidgetCore::Invoke(EventId id, std::span<const XValue> arguments, XValue& result) {
  const CallDepth::Scope call(calls_);
  if (!widget_) return S_OK;
  QVariantList list;
  for (const XValue& argument : arguments) list.append(toVariant(argument));
  emitSignal(*widget_, id, list);
  if (!widget_) return S_OK;
  const TesseraWidget::Handler handler = handlers_[static_cast<std::size_t>(id) - 1];
  if (!handler) return S_OK;
  const QVariant answer = handler(list);
  if (answer.isValid()) result = toXValue(answer);
  return S_OK;
}

}  // namespace tessera
