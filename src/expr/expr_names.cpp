#include "expr/expr_names.h"

#include <algorithm>
#include <iterator>

#include "expr/expression_host.h"
#include "shared/compare.h"

namespace tessera {

bool startsWithNoCase(std::u16string_view name, std::u16string_view typed) {
  return typed.size() <= name.size() && equalNoCase(name.substr(0, typed.size()), typed);
}

void ExprNames::addColumnName(const XString& name) {
  if (std::find(columns_.begin(), columns_.end(), name) == columns_.end()) columns_.push_back(name);
}

bool ExprNames::matchColumnName(std::u16string_view typed) const {
  return std::any_of(columns_.begin(), columns_.end(),
                     [typed](const XString& name) { return startsWithNoCase(name, typed); });
}

bool ExprNames::matchKeyword(std::u16string_view typed) {
  return std::any_of(std::begin(exprKeywords), std::end(exprKeywords),
                     [typed](const char16_t* name) { return startsWithNoCase(name, typed); });
}

std::int32_t ExprNames::keywordIndex(std::u16string_view typed) {
  const auto found = std::find_if(std::begin(exprKeywords), std::end(exprKeywords),
                                  [typed](const char16_t* name) { return equalNoCase(name, typed); });
  return found == std::end(exprKeywords) ? -1 : static_cast<std::int32_t>(found - std::begin(exprKeywords));
}

}  // namespace tessera
