// How rows are arranged.

#pragma once

#include <cstdint>

#include <tessera/xstring.h>

namespace tessera {

enum class RowMode : std::int32_t { Plain = 0, Group = 1, Tree = 2 };

struct TreeInfo {
  RowMode rowMode = RowMode::Plain;
  bool expand = true;            // new nodes start expanded
  bool hasLine = true;           // tree lines are drawn
  std::int32_t indentWidth = 5;  // pixels a level
  std::int32_t thumbSize = 9;    // side of the plus/minus box
  std::int32_t iconSize = 16;    // side of the node icon
  XString imageCColumn;          // dataset column with the icon of a collapsed node
  XString imageEColumn;          // and of an expanded one
  XString levelColumn;
};

}  // namespace tessera
