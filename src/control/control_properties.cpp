#include "control/control_properties.h"

#include "control/dispatch_table.h"

namespace tessera {

HResult ControlProperties::getProperty(std::u16string_view name, XValue& value) {
  return invokeMember(control_, name, MemberUse::Get, {}, value);
}

HResult ControlProperties::putProperty(std::u16string_view name, const XValue& value) {
  XValue ignored;
  return invokeMember(control_, name, MemberUse::Put, {&value, 1}, ignored);
}

}  // namespace tessera
