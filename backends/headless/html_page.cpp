#include "backends/headless/html_page.h"

namespace tessera {

namespace {

class PageElement : public HtmlElement {
 public:
  PageElement(const XString& id, std::shared_ptr<Component> object) : id_(id), object_(std::move(object)) {}

  XString id() const override { return id_; }
  std::shared_ptr<Component> object() const override { return object_; }

 private:
  XString id_;
  std::shared_ptr<Component> object_;
};

}  // namespace

void HtmlPage::addElement(const XString& id, std::shared_ptr<Component> object) {
  items_.push_back(std::make_shared<PageElement>(id, std::move(object)));
}

std::shared_ptr<Component> HtmlPage::item(std::int32_t index) const {
  if (index < 0 || index >= length()) return nullptr;
  return items_[static_cast<std::size_t>(index)];
}

}  // namespace tessera
