// Keeps the grid as it is while it is being read and painted.

#pragma once

#include "interaction/grid_parts.h"
#include "shared/grid_services.h"

namespace tessera {

// A data set may send a notification while it answers a call. Where the grid walks over columns and rows and
// asks for every cell, that must not make them anew: what arrives while such a scope stands is carried out at
// the end of the outermost one, as one refresh.
class ReadingScope {
 public:
  ReadingScope(GridParts& parts, GridServices& services) : parts_(parts), services_(services) {
    ++parts_.readings;
  }
  ~ReadingScope() {
    if (--parts_.readings == 0 && parts_.refreshDue) services_.catchUp();
  }
  ReadingScope(const ReadingScope&) = delete;
  ReadingScope& operator=(const ReadingScope&) = delete;

 private:
  GridParts& parts_;
  GridServices& services_;
};

}  // namespace tessera
