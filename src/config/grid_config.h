// Everything that the Info texts configure.

#pragma once

#include "config/background_record.h"
#include "config/column_record.h"
#include "config/indicator_record.h"
#include "config/menu_item.h"
#include "config/tree_info.h"

namespace tessera {

struct GridConfig {
  tessera::ColumnList columns;
  IndicatorRecord indicator;
  BackgroundRecord background;
  std::int32_t borderStyle = 2;  // of the window: 0 none, 1 line, 2 sunken, 3 raised, 4 frame
  TreeInfo tree;
  XList<MenuItem> menu;
};

}  // namespace tessera
