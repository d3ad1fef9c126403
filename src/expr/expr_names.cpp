#include "expr/expr_names.h"

#include <algorithm>
#include <iterator>

#include "expr/ascii.h"
#include "expr/expression_host.h"
#include "shared/compare.h"

namespace tessera {
namespace {

std::u16string lowered(std::u16string_view name) {
  std::u16string lower(name);
  std::transform(lower.begin(), lower.end(), lower.begin(), lowerUnit);
  return lower;
}

}  // namespace

bool startsWithNoCase(std::u16string_view name, std::u16string_view typed) {
  return typed.size() <= name.size() && equalNoCase(name.substr(0, typed.size()), typed);
}

void ExprNames::addColumnName(const XString& name) { columns_.insert(lowered(name)); }

bool ExprNames::matchColumnName(std::u16string_view typed) const {
  const std::u16string sought = lowered(typed);
  const auto next = columns_.lower_bound(sought);
  return next != columns_.end() && next->starts_with(sought);
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
