// The properties of a form's grid as the control reads them.

#pragma once

#include <vector>

#include <tessera/persistence.h>

#include "shared/utf.h"
#include "tools/tessera/form.h"

namespace tessera {

class FormPropertyBag : public PropertyBag {
 public:
  // Borrowed.
  explicit FormPropertyBag(const std::vector<GridProperty>& properties) : properties_(properties) {}

  bool read(const XString& name, XValue& value) override {
    for (const GridProperty& property : properties_) {
      if (utf16FromUtf8(property.name) != name.view()) continue;
      value.setText(property.text);
      return true;
    }
    return false;
  }

 private:
  const std::vector<GridProperty>& properties_;
};

}  // namespace tessera
