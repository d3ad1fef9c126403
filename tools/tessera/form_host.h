// A form in the headless host.

#pragma once

#include <memory>

#include "backends/headless/headless_input.h"
#include "backends/headless/headless_site.h"
#include "backends/headless/headless_window.h"
#include "backends/native/http_clients.h"
#include "backends/native/iconv_code_pages.h"
#include "backends/native/pixbuf_picture_loader.h"
#include "backends/native/xml_document_reader.h"
#include "control/tessera.h"
#include "tools/tessera/open_form.h"

namespace tessera {

// The page with its components, the grid on it and the grid's window, which exists at the start.
class FormHost {
 public:
  // `events` is borrowed and hears of everything from the loading of the properties on; it may be null.
  explicit FormHost(OpenedForm opened, ITesseraEvents* events = nullptr);
  ~FormHost();
  FormHost(const FormHost&) = delete;
  FormHost& operator=(const FormHost&) = delete;

  Tessera& control() { return *control_; }
  // What outlives every window, and the hands of the person before it.
  HeadlessDesktop& desktop() { return *desktop_; }
  HeadlessInput& input() { return input_; }
  // Null while there is none.
  HeadlessWindow* window() { return window_.get(); }
  // Nothing when it is there already, or not there. A destroyed window may still be in the middle of a call,
  // since handlers of events may destroy it: it is kept until forgetWindows().
  void createWindow();
  void destroyWindow();
  // What must hold: no call of the control is under way.
  void forgetWindows() { destroyed_.clear(); }
  // The client size, of the present window or of the next one.
  void resize(Size client);
  // Ids compare without ASCII case, the first in the form counts; null when there is none.
  DataSetControl* findDataSet(std::u16string_view id);

 private:
  std::unique_ptr<Container> buildPage() const;
  std::shared_ptr<Component> componentAt(const Form::Place& place) const;
  XString idAt(const Form::Place& place) const;
  void loadProperties();
  bool filterKey(std::int32_t& key);

  OpenedForm opened_;
  Size client_;
  std::shared_ptr<HeadlessDesktop> desktop_ = std::make_shared<HeadlessDesktop>();
  HeadlessInput input_{*desktop_, [this](std::int32_t& key) { return filterKey(key); }};
  XmlDocumentReader documents_;
  PixbufPictureLoader pictures_{desktop_->dispatcher};
  WaitingHttpClient http_{desktop_->dispatcher};
  IconvCodePages codePages_;
  std::unique_ptr<Container> page_;
  HeadlessSite site_;
  std::unique_ptr<Tessera> control_;
  std::unique_ptr<HeadlessWindow> window_;
  std::vector<std::unique_ptr<HeadlessWindow>> destroyed_;
};

}  // namespace tessera
