// The rebuild of everything that shows.

#pragma once

#include <tessera/hosting.h>

#include "config/info_services.h"
#include "interaction/grid_parts.h"
#include "shared/grid_services.h"

namespace tessera {

// From the configuration texts and the bound data set to columns, rows and page. Nothing happens without a
// data set. When ColumnInfo cannot be read, the columns before the fault stay and the rest is left undone.
class RefreshSequence {
 public:
  RefreshSequence(GridParts& parts, GridServices& services, InfoServices& info, ClientSite* site)
      : parts_(parts), services_(services), info_(info), site_(site) {}

  void run();

 private:
  void clear();
  // The expressions of the records that outlive a Refresh. False when a listener refreshed the grid
  // meanwhile.
  bool compileKept();
  // False when the text could not be read, or when a listener refreshed the grid meanwhile.
  bool readColumns();
  void measure();
  void fillDecimals();
  void fillFonts();
  void handOutSortMarks();
  void show();

  GridParts& parts_;
  GridServices& services_;
  InfoServices& info_;
  ClientSite* site_;
};

// What a style computes is what it has without its expressions.
inline void dropPrograms(CellStyle& style) {
  style.dynamicFlags = 0;
  style.expressions = {};
}

// The expressions of a record that outlives a Refresh, which frees all programs. Gives the number of those
// that do not compile.
template <class Record>
std::int32_t recompileKept(Record& record, ExpressionEngine& expressions) {
  dropPrograms(record);
  return record.kept.compileInto(record,
                                 [&expressions](const XString& text) { return expressions.compile(text); });
}

// One RowTree for the present arrangement of the rows; the page and the focus hold none of them. What is
// wrong with the arrangement is reported at the end. What must hold: the grid is being read.
void BuildRows(GridParts& parts, GridServices& services);

}  // namespace tessera
