#include "interaction/row_pairs.h"

#include <algorithm>
#include <string_view>

namespace tessera {
namespace {

std::u16string_view trimmed(std::u16string_view item) {
  constexpr std::u16string_view blanks = u" \t\r\n";
  const std::size_t first = item.find_first_not_of(blanks);
  return first == item.npos ? item.substr(0, 0)
                            : item.substr(first, item.find_last_not_of(blanks) - first + 1);
}

}  // namespace

std::vector<RowPair> parseRowPairs(const XString& value) {
  constexpr std::u16string_view separator = u"::";
  std::vector<RowPair> pairs;
  std::u16string_view rest = value;
  while (!rest.empty()) {
    const std::size_t comma = std::min(rest.find(u','), rest.size());
    const std::u16string_view item = trimmed(rest.substr(0, comma));
    rest.remove_prefix(std::min(comma + 1, rest.size()));
    const std::size_t split = item.find(separator);
    if (split == item.npos) continue;
    const std::u16string_view text = item.substr(split + separator.size());
    if (text.find(separator) == text.npos) pairs.push_back({XString(item.substr(0, split)), XString(text)});
  }
  return pairs;
}

}  // namespace tessera
