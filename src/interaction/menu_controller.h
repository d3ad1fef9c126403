// The popup menu of the host's own commands.

#pragma once

#include <span>

#include "interaction/grid_parts.h"
#include "shared/grid_services.h"

namespace tessera {

class MenuController {
 public:
  MenuController(GridParts& parts, GridServices& services) : parts_(parts), services_(services) {}

  // Shows the configured menu at a client point and fires OnMenuSelected for the item chosen. The menu is a
  // copy, so the configuration may change meanwhile. A code of 0 cannot be told from no choice. Each item is
  // enabled or not by itself, whatever other items have its code.
  void trackPopupMenu(std::int32_t x, std::int32_t y);

 private:
  void report(std::span<const PopupMenuItem> items, std::int32_t code);

  GridParts& parts_;
  GridServices& services_;
};

}  // namespace tessera
