// The functions in words.

#pragma once

#include <string>

#include "expr/function_table.h"

namespace tessera {

// "AT(search: text, text: text, [n: number = 1]): number"
std::string functionSignature(const XExprFunction& function);

// The signature, the summary and the example, a line each.
std::string functionHelp(const XExprFunction& function);

// All functions as tables in Markdown, by family, in the order of the table.
std::string functionReference();

}  // namespace tessera
