// The control's properties as persistence sees them.

#pragma once

#include <tessera/itessera.h>

#include "hosting/persistence.h"

namespace tessera {

// Goes through the automation members by name, so a loaded value takes the way of a host's put.
class ControlProperties : public PropertyTarget {
 public:
  explicit ControlProperties(ITessera& control) : control_(control) {}

  Size& extent() override { return extent_; }
  HResult getProperty(std::u16string_view name, XValue& value) override;
  HResult putProperty(std::u16string_view name, const XValue& value) override;

 private:
  ITessera& control_;
  Size extent_{10583, 6350};  // 400 by 240 pixels at 96 dots per inch
};

}  // namespace tessera
