// Fires events, and tells what has become of the grid.

#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <string_view>

#include "interaction/grid_parts.h"
#include "shared/grid_services.h"

namespace tessera {

// Any handler may call back into the grid, even to rebuild everything or to close the window.
struct [[nodiscard]] Fired {
  bool stands = true;  // the grid's token is the one of before
  XValue answer;       // of the last listener, VT_EMPTY without one

  bool refuses() const { return answer.type() == VT_BOOL && !answer.asBool(); }
  // Nothing that the handlers can have changed is used afterwards.
  void last() const {}
};

namespace fire_event {

inline XValue valueOf(std::int32_t number) { return XValue::ofInt(number); }
inline XValue valueOf(Row row) { return XValue::ofInt(row.number); }
inline XValue valueOf(std::u16string_view text) { return XValue::ofText(text); }
inline XValue valueOf(const XString& text) { return XValue::ofText(text); }
inline XValue valueOf(const XValue& value) { return value; }
// A flag as the two octets that some events pass.
inline XValue valueOf(bool flag) {
  XValue value;
  value.setInteger(VT_I2, flag ? 1 : 0);
  return value;
}

template <class Argument>
constexpr VarType typeOf() {
  if constexpr (std::same_as<Argument, bool>) return VT_I2;
  if constexpr (std::same_as<Argument, std::int32_t> || std::same_as<Argument, Row>) return VT_I4;
  if constexpr (std::same_as<Argument, XValue>) return VT_VARIANT;
  return VT_BSTR;
}

template <class... Arguments>
constexpr bool fits(const EventRow& row) {
  constexpr std::array<VarType, sizeof...(Arguments)> types{typeOf<Arguments>()...};
  if (row.arguments.size() != types.size()) return false;
  for (std::size_t i = 0; i < types.size(); ++i) {
    if (row.arguments[i].type != types[i]) return false;
  }
  return true;
}

}  // namespace fire_event

// What must hold: the arguments belong to nobody who can change them meanwhile.
template <EventId id, class... Arguments>
Fired fire(const GridParts& parts, GridServices& services, const Arguments&... arguments) {
  static_assert(fire_event::fits<Arguments...>(eventRow(id)), "other arguments than the event's");
  const GridToken token = parts.token();
  const std::array<XValue, sizeof...(Arguments)> values{fire_event::valueOf(arguments)...};
  Fired fired;
  fired.answer = services.fire(id, values);
  fired.stands = parts.token() == token;
  return fired;
}

}  // namespace tessera
