// The page of a grid that has a single data set.

#pragma once

#include <memory>
#include <optional>
#include <utility>

#include <tessera/hosting.h>

namespace tessera {

// Every id means that data set.
class OneDataSetPage : public ClientSite, public Container, public ItemContainer {
 public:
  explicit OneDataSetPage(std::shared_ptr<Component> data) : data_(std::move(data)) {}
  Container* container() override { return this; }
  std::optional<AmbientFont> ambientFont() override {
    return AmbientFont{u"DejaVu Sans", 9, 400, false, false};
  }
  XValue ambientCodePage() override { return {}; }
  std::shared_ptr<Component> getObject(const XString&) const override { return data_; }

 private:
  std::shared_ptr<Component> data_;
};

}  // namespace tessera
