// The names that an expression can use beside functions.

#pragma once

#include <set>
#include <string>
#include <string_view>

#include <tessera/xstring.h>

namespace tessera {

// Whether `name` starts with `typed`, without regard to ASCII case.
bool startsWithNoCase(std::u16string_view name, std::u16string_view typed);

// A name counts when one of these starts with it, without regard to ASCII case.
class ExprNames {
 public:
  void clearColumnNames() { columns_.clear(); }
  void addColumnName(const XString& name);
  bool matchColumnName(std::u16string_view typed) const;

  static bool matchKeyword(std::u16string_view typed);
  // The keyword's number by its whole name, -1 when only a part was typed.
  static std::int32_t keywordIndex(std::u16string_view typed);

 private:
  std::set<std::u16string, std::less<>> columns_;  // in lower case
};

}  // namespace tessera
