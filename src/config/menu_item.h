// An item of the popup menu.

#pragma once

#include <cstdint>
#include <vector>

#include <tessera/xstring.h>

namespace tessera {

// A text "separator" makes a separator and nothing else counts.
struct MenuItem {
  bool enabled = true;
  std::vector<MenuItem> children;
  XString text;
  std::int32_t code = 0;  // what OnMenuSelected fires
};

}  // namespace tessera
