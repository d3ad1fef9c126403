// What a TesseraWidget is made of behind its face.

#pragma once

#include <QPointer>
#include <array>
#include <functional>
#include <memory>

#include <tessera/tessera_widget.h>

#include "backends/native/http_clients.h"
#include "backends/native/iconv_code_pages.h"
#include "backends/native/native_clock.h"
#include "backends/native/native_locale.h"
#include "backends/native/pixbuf_picture_loader.h"
#include "backends/native/xml_document_reader.h"
#include "backends/qt/call_depth.h"
#include "backends/qt/qt_dispatcher.h"
#include "backends/qt/qt_page.h"
#include "backends/qt/qt_window.h"
#include "backends/qt/window_owner.h"
#include "control/tessera.h"

namespace tessera {

// The control with its page, its ports and its window; outlives the widget while calls are under way.
class WidgetCore : public WindowOwner, public ITesseraEvents {
 public:
  explicit WidgetCore(TesseraWidget& widget);
  ~WidgetCore() override;
  WidgetCore(const WidgetCore&) = delete;
  WidgetCore& operator=(const WidgetCore&) = delete;

  Tessera& control() { return control_; }
  QtPage& page() { return page_; }
  CallDepth& calls() { return calls_; }
  void setHandler(EventId event, TesseraWidget::Handler handler);

  bool hasWindow() const { return window_ != nullptr; }
  // The pane is borrowed until closeWindow().
  void openWindow(GridPane& pane);
  // The widget goes away: an open edit is saved, and nobody hears of it.
  void closeWindow();
  // Of another font or other system colours. An open edit is saved.
  void rebuild();

  void draw(Canvas& canvas) override { control_.onDraw(canvas); }
  void message(std::uint32_t number, std::uint64_t wParam, std::int64_t lParam) override;
  void resized() override { control_.windowResized(); }
  KeyRoute translateKey(std::int32_t& key) override { return control_.translateKey(key); }
  void endEdit() override { control_.controllers().editors.commitBeforeMove(); }
  HResult Invoke(EventId id, std::span<const XValue> arguments, XValue& result) override;

 private:
  QPointer<TesseraWidget> widget_;
  CallDepth calls_;
  std::array<TesseraWidget::Handler, eventTable.size()> handlers_;
  XmlDocumentReader documents_;
  QtDispatcher dispatcher_;
  PixbufPictureLoader pictures_{dispatcher_};
  ThreadedHttpClient http_{dispatcher_};
  IconvCodePages codePages_;
  NativeLocale locale_;
  NativeClock clock_;
  QtPage page_;
  Tessera control_;
  std::unique_ptr<QtWindow> window_;  // stays after its end: it may be in the midst of a call
  bool open_ = false;
};

}  // namespace tessera
