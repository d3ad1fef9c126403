// What a popup menu shows.

#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include <tessera/xstring.h>

namespace tessera {

struct PopupMenuItem {
  bool separator = false;
  bool enabled = true;
  XString text;
  std::int32_t code = 0;
  std::vector<PopupMenuItem> children;
};

using MenuAnswer = std::function<void(std::int32_t code)>;

}  // namespace tessera
