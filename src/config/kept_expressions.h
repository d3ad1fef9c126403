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

  void keep(DynamicSlot slot, const XString& text);
  // The text is tried when the columns have names. Until it compiles, what the slot has stays in force.
  void await(DynamicSlot slot, const XString& text);
  void forget(DynamicSlot slot);
  // Puts the programs into the style's slots. The result is how many texts failed for the first time since
  // they last compiled: a failure is to be reported once. Awaiting texts that fail are dropped.
  std::int32_t compileInto(CellStyle& style, const Compile& compile);

 private:
  struct Kept {
    DynamicSlot slot;
    XString text;
    bool isReported = false;
  };
  std::vector<Kept> list_;
  std::vector<Kept> awaiting_;
};

}  // namespace tessera
