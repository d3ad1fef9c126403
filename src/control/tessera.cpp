#include "control/tessera.h"

#include <array>

#include "binding/ambient_code_page.h"
#include "config/background_flags.h"
#include "control/error_table.h"
#include "control/message_table.h"
#include "control/refresh.h"
#include "interaction/reading_scope.h"
#include "shared/scoped_flag.h"

namespace tessera {

namespace {

constexpr std::int32_t defaultIndicatorWidth = 16;

}  // namespace

Tessera::Tessera(const Ports& ports)
    : ports_(ports),
      info_(ports_, parts_.expressions, *this, [this] { pictureArrived(); }),
      controllers_(parts_, *this, info_,
                   [this](std::int32_t row) { notifications_.CurrentRowChanged(ownCallCookie, row); }),
      notifications_(parts_, *this, controllers_.editors, [this] { Refresh(); }),
      properties_(*this) {
  parts_.expressions.setHost(expressionHost_);
  parts_.expressions.setPlace(ports_.locale, ports_.clock);
  parts_.images.onArrival([this] { Repaint(nullptr); });
}

Tessera::~Tessera() { parts_.link.unbind(); }

bool Tessera::HandleMessage(std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
  const MessageRow* row = findMessage(message);
  if (row) row->handle(*this, {wParam, lParam});
  return row != nullptr;
}

void Tessera::setClientSite(ClientSite* site) {
  site_ = site;
  info_.setSite(site);
}

void Tessera::quickActivate() {
  if (!site_) return;
  codePage_ = codePageOf(site_->ambientCodePage());
  parts_.images.setCodePage(ports_.codePages, codePage_);
}

void Tessera::windowCreated(Window& window) {
  parts_.window = &window;
  parts_.applyBorder();
  IndicatorRecord& indicator = parts_.config.indicator;
  if (indicator.width == IndicatorRecord::unset) {
    indicator.width = defaultIndicatorWidth;
    parts_.makeRoomForIndicator();
  }
  if (!parts_.settings.ColumnInfo.empty()) Refresh();
  if (parts_.window != &window) return;  // a listener has closed it again
  controllers_.editors.windowCreated();
  if (!parts_.settings.Enable) window.setEnabled(false);
}

void Tessera::windowDestroyed() {
  controllers_.mouse.windowDestroyed();
  controllers_.editors.windowDestroyed();
  parts_.window = nullptr;
}

void Tessera::windowResized() {
  if (!parts_.window) return;
  const Size client = parts_.window->clientSize();
  if (client.width == 0 || client.height == 0) return;
  controllers_.editors.list().close(false);
  if (!parts_.window) return;
  const ReadingScope reading(parts_, *this);
  parts_.updateBars(bar_bit::both);
  const GridFrame frame = parts_.frame();
  if (parts_.page.VisibleRows.empty()) parts_.loader(frame).LoadVisibleRows(false);
  if (const Row top = parts_.page.VisibleAt(0)) {
    parts_.page.RefillFrom(parts_.rows, frame.rowCapacity(), top);
  }
  Repaint(nullptr);
}

void Tessera::onDraw(Canvas& canvas) {
  const ReadingScope reading(parts_, *this);
  const GridExpressionHost::OnePass sums(expressionHost_);
  const GridFrame frame = parts_.frame();
  const PaintModel model{parts_.config, parts_.settings, frame,         parts_.page, parts_.focus,
                         parts_.rows,   parts_.link,     parts_.images, parts_.eval, parts_.editor.active};
  if (parts_.drawHolds > 0) return fillWindowColor(canvas);
  const PaintResult result = pipeline_.paint(canvas, model);
  if (!result.painted) return fillWindowColor(canvas);
  controllers_.editors.place(result);
  if (parts_.window) SetBarPositions(parts_.page, *parts_.window);
}

void Tessera::Refresh() {
  if (!parts_.link.dataSet()) return;
  if (parts_.readings > 0) {
    parts_.refreshDue = true;
    return;
  }
  controllers_.editors.abandon();
  if (!parts_.link.dataSet()) return;
  ++parts_.structure;
  RefreshSequence(parts_, *this, info_, site_).run();
}

// A data set with news in every answer would never come to an end: what it tells while the grid catches up is
// dropped.
void Tessera::catchUp() {
  if (catchingUp_ || !parts_.refreshDue) return;
  const ScopedFlag catchingUp(catchingUp_);
  parts_.refreshDue = false;
  notifications_.DataChanged(0, 0);
  parts_.refreshDue = false;
}

void Tessera::Repaint(const Rect* area) {
  if (parts_.settings.Draw && parts_.drawHolds == 0 && parts_.window) parts_.window->repaint(area);
}

// A background is in force only with its picture.
void Tessera::pictureArrived() {
  if (parts_.window) applyBackgroundFlags(parts_.config);
  Repaint(nullptr);
}

void Tessera::ReportError(ErrorCode code) {
  const std::array arguments = {XValue::ofInt(static_cast<std::int32_t>(code)),
                                XValue::ofText(errorText(code))};
  events_.fire(EventId::OnError, arguments);
}

}  // namespace tessera
