#include "config/child_words.h"

#include <algorithm>
#include <string>

#include "shared/compare.h"

namespace tessera {

std::int32_t parseInputType(std::u16string_view list) {
  std::u16string items(list);
  std::erase_if(items, [](char16_t unit) { return unit == u' ' || unit == u'\t'; });
  std::int32_t flags = 0;
  for (std::u16string_view rest = items;;) {
    const std::size_t comma = std::min(rest.find(u','), rest.size());
    flags |= valueOfWord(inputTypeWords, rest.substr(0, comma), 0);
    if (comma == rest.size()) return flags;
    rest.remove_prefix(comma + 1);
  }
}

XString columnNameOrNone(const XString& value) { return equalNoCase(value, u"none") ? XString() : value; }

}  // namespace tessera
