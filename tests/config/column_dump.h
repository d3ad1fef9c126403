// Configuration records as text, for comparison.

#pragma once

#include <string>

#include "config/grid_config.h"

namespace tessera {

// Each record names the fields that are not as a new one has them. Colours are written as hexadecimal
// 0xBBGGRR.
std::string dumpColumns(const ColumnList& columns);
std::string dumpTree(const TreeInfo& tree);
std::string dumpIndicator(const IndicatorRecord& record);
std::string dumpBackground(const BackgroundRecord& record);
// A bracket in front of an item for each level above it.
std::string dumpMenu(const XList<MenuItem>& menu);
// A dump as a table of a test has it, behind "refused" if the text was.
std::string answer(bool read, const std::string& dump);

}  // namespace tessera
