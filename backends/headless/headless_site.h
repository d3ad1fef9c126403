// The client site of a headless host.

#pragma once

#include <tessera/hosting.h>

namespace tessera {

class HeadlessSite : public ClientSite {
 public:
  // The container is borrowed; null for a site that stands on no page.
  HeadlessSite(Container* container, std::optional<AmbientFont> font, std::uint32_t codePage)
      : container_(container), font_(std::move(font)), codePage_(codePage) {}

  Container* container() override { return container_; }
  std::optional<AmbientFont> ambientFont() override { return font_; }
  XValue ambientCodePage() override {
    XValue value;
    value.setInteger(VT_UI4, codePage_);
    return value;
  }

 private:
  Container* container_;
  std::optional<AmbientFont> font_;
  std::uint32_t codePage_;
};

}  // namespace tessera
