#include "tools/tessera/form_host.h"

#include "backends/headless/enumeration_page.h"
#include "backends/headless/html_page.h"
#include "backends/headless/item_page.h"
#include "hosting/persistence.h"
#include "interaction/keys.h"
#include "shared/compare.h"
#include "shared/utf.h"
#include "tools/tessera/form_property_bag.h"

namespace tessera {

FormHost::FormHost(OpenedForm opened, ITesseraEvents* events)
    : opened_(std::move(opened)),
      client_(opened_.form.client),
      page_(buildPage()),
      site_(page_.get(), opened_.form.ambientFont(), opened_.form.codePage),
      control_(std::make_unique<Tessera>(
          Ports{documents_, &pictures_, &http_, &codePages_, nullptr, &desktop_->clock})) {
  control_->setClientSite(&site_);
  control_->quickActivate();
  if (events) control_->events().connect(events);
  loadProperties();
  createWindow();
  desktop_->dispatcher.run();
}

FormHost::~FormHost() { destroyWindow(); }

// A document has elements around its components; the other containers hold the components alone.
std::unique_ptr<Container> FormHost::buildPage() const {
  const Form& form = opened_.form;
  if (form.container == ContainerKind::Item) {
    auto page = std::make_unique<ItemPage>();
    for (const Form::Place& place : form.order) page->addItem(idAt(place), componentAt(place));
    return page;
  }
  if (form.container == ContainerKind::Enumerate) {
    auto page = std::make_unique<EnumerationPage>();
    for (const Form::Place& place : form.order) page->addObject(componentAt(place));
    return page;
  }
  auto page = std::make_unique<HtmlPage>();
  page->addOther();
  for (int plain = 0; plain < 3; ++plain) page->addElement({}, nullptr);  // html, head, body
  for (const Form::Place& place : form.order) page->addElement(idAt(place), componentAt(place));
  return page;
}

// The grid itself is nothing that a grid could find.
std::shared_ptr<Component> FormHost::componentAt(const Form::Place& place) const {
  const FormComponents& components = opened_.components;
  if (place.kind == Form::Kind::DataSet) return components.dataSets[place.index].rows;
  if (place.kind == Form::Kind::ImageSet) return components.imageSets[place.index];
  return std::make_shared<Component>();
}

XString FormHost::idAt(const Form::Place& place) const {
  const Form& form = opened_.form;
  if (place.kind == Form::Kind::DataSet) return XString::fromNarrow(form.dataSets[place.index].options.id);
  if (place.kind == Form::Kind::ImageSet) return XString::fromNarrow(form.imageSets[place.index].id);
  return XString::fromNarrow(form.gridId);
}

void FormHost::loadProperties() {
  FormPropertyBag bag(opened_.form.properties);
  loadFromBag(control_->properties(), bag);
}

void FormHost::createWindow() {
  if (window_) return;
  window_ = std::make_unique<HeadlessWindow>(
      client_, [this](Canvas& canvas) { control_->onDraw(canvas); }, desktop_);
  window_->setMessageTarget([this](std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
    return control_->HandleMessage(message, wParam, lParam);
  });
  control_->windowCreated(*window_);
  if (window_) window_->update();
}

void FormHost::destroyWindow() {
  if (!window_) return;
  control_->windowDestroyed();
  if (!window_) return;
  window_->close();
  destroyed_.push_back(std::move(window_));
}

// A Tab that leads out of the grid is the page's, where nothing else can take the focus.
bool FormHost::filterKey(std::int32_t& key) {
  const KeyRoute route = control_->translateKey(key);
  return route == KeyRoute::Window || (route == KeyRoute::Host && key != key::tab);
}

void FormHost::resize(Size client) {
  client_ = client;
  if (!window_) return;
  window_->resize(client);
  control_->windowResized();
  if (window_) window_->update();
}

DataSetControl* FormHost::findDataSet(std::u16string_view id) {
  const auto& forms = opened_.form.dataSets;
  for (std::size_t i = 0; i < forms.size(); ++i) {
    if (equalNoCase(utf16FromUtf8(forms[i].options.id), id)) return opened_.components.dataSets[i].rows.get();
  }
  return nullptr;
}

}  // namespace tessera
