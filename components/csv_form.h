// How a file of delimited text is written beside its cells.

#pragma once

#include <string>
#include <vector>

namespace tessera {

struct CsvForm {
  char delimiter = ',';          // comma, semicolon or tab
  bool byteOrderMark = false;    // at the start
  bool carriageReturns = false;  // before the line feeds that end lines
  std::vector<std::string>
      names{};  // of the header line; other than the columns' where it had none or doubles
};

}  // namespace tessera
