#include "expr/expression_engine.h"

#include <algorithm>

namespace tessera {

void ExpressionEngine::clearVariables() { variables_.clear(); }

void ExpressionEngine::addVariable(const XString& name) {
  if (std::find(variables_.begin(), variables_.end(), name) == variables_.end()) variables_.push_back(name);
}

const XExprProgram* ExpressionEngine::compile(std::u16string_view) { return nullptr; }

void ExpressionEngine::freePrograms() { programs_.clear(); }

}  // namespace tessera
