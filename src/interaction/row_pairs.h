// What a host writes into the cells of a new row.

#pragma once

#include <vector>

#include <tessera/xstring.h>

namespace tessera {

struct RowPair {
  XString name;  // of the data set's column
  XString text;
};

// "name::text,name::text". Blanks, tabs and line ends around an item do not count; an item that is no pair is
// left out.
std::vector<RowPair> parseRowPairs(const XString& value);

}  // namespace tessera
