// Tries an expression on the rows of a grid.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <tessera/xvalue.h>

#include "binding/data_link.h"
#include "expr/xexpr_error.h"
#include "platform/clock.h"
#include "platform/locale.h"

namespace tessera {

struct Evaluation {
  XValue value;
  // What is wrong with the text, or why its run gave no value; empty when there is a value.
  std::vector<XExprError> errors;

  // A line each: "error 5 Variable 'X' is not found."
  std::vector<std::string> errorLines() const;
};

// Compiles and runs `text` for a row, with the names of the columns that the data set has at the moment.
// Without a data set there are no columns.
Evaluation evaluateExpression(const DataLink& link, const Locale* locale, const Clock* clock,
                              std::int32_t row, std::u16string_view text);

}  // namespace tessera
