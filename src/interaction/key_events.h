// The event of a key.

#pragma once

#include <array>

#include "interaction/grid_parts.h"
#include "interaction/keys.h"
#include "shared/grid_services.h"

namespace tessera {

inline void fireKeyDown(const GridParts& parts, GridServices& services, std::int32_t key) {
  if (!parts.window) return;
  const std::array arguments = {XValue::ofInt(key), XValue::ofInt(keyState(parts.window->modifiers()))};
  services.fire(EventId::OnKeyDown, arguments);
}

}  // namespace tessera
