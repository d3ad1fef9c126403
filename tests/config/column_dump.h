// Configuration records as text, for comparison.

#pragma once

#include <string>

#include "config/grid_config.h"

namespace tessera {

// A line for each column and one for each of its parts that is not as a new record has it; a line names the
// fields that differ. Colours are written as hexadecimal 0xBBGGRR.
std::string dumpColumns(const ColumnList& columns);
std::string dumpTree(const TreeInfo& tree);
std::string dumpIndicator(const IndicatorRecord& record);
std::string dumpBackground(const BackgroundRecord& record);
std::string dumpMenu(const XList<MenuItem>& menu);

}  // namespace tessera
