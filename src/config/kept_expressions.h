// Expressions of records that outlive their programs.

#pragma once

#include <functional>
#include <vector>

#include "config/cell_style.h"

namespace tessera {

// A Refresh frees all programs, and the names of the columns may be others afterwards: a record that stays
// keeps the texts of its expressions and gets them compiled again.
class KeptExpressions {
 public:
  using Compile = std::function<const XExprProgram*(const XString& text)>;

  // `isReported`: the text did not compile, which has been reported.
  void keep(DynamicSlot slot, const XString& text, bool isReported);
  void forget(DynamicSlot slot);
  // Puts the programs into the style's slots. The result is how many texts failed for the first time since
  // they last compiled: a failure is to be reported once.
  std::int32_t compileInto(CellStyle& style, const Compile& compile);

 private:
  struct Kept {
    DynamicSlot slot;
    XString text;
    bool isReported;
  };
  std::vector<Kept> list_;
};

}  // namespace tessera
