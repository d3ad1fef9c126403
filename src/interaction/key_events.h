// The event of a key.

#pragma once

#include "interaction/fire_event.h"
#include "interaction/keys.h"
#include "shared/grid_services.h"

namespace tessera {

// The last thing that the handling of a key does with what it held before.
inline void fireKeyDown(const GridParts& parts, GridServices& services, std::int32_t key) {
  if (!parts.window) return;
  fire<EventId::OnKeyDown>(parts, services, key, keyState(parts.window->modifiers())).last();
}

}  // namespace tessera
