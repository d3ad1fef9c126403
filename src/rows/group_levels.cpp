#include "rows/group_levels.h"

#include <algorithm>

#include "rows/outline_sequence.h"
#include "shared/compare.h"

namespace tessera {
namespace {

// Without blanks and tabs.
XString packed(const XString& text) {
  std::u16string units(text.view());
  std::erase_if(units, [](char16_t unit) { return unit == u' ' || unit == u'\t'; });
  return XString(units);
}

bool holdsTotal(std::u16string_view text) {
  constexpr std::u16string_view word = u"total";
  const auto sameNoCase = [](char16_t unit, char16_t lower) {
    return unit == lower || (unit >= u'A' && unit <= u'Z' && unit + (u'a' - u'A') == lower);
  };
  return std::search(text.begin(), text.end(), word.begin(), word.end(), sameNoCase) != text.end();
}

}  // namespace

std::optional<GroupLevels> parseSubsumExpr(const XString& text, const DataLink& link) {
  const XString list = packed(text);
  std::u16string_view rest = list;
  if (rest.empty() || holdsTotal(rest)) return std::nullopt;
  GroupLevels groups;
  for (std::size_t comma = 0; comma != rest.npos; rest.remove_prefix(std::min(comma, rest.size() - 1) + 1)) {
    comma = rest.find(u',');
    const std::u16string_view item = rest.substr(0, comma);
    const std::size_t colon = item.find(u':');
    if (colon == item.npos) return std::nullopt;
    const XString name(item.substr(colon + 1));
    groups.push_back({parseInt(item.substr(0, colon)), link.columnIndex(name), name});
  }
  return groups;
}

std::int32_t groupLevelOf(const DataLink& link, const GroupLevels& groups, std::int32_t row) {
  const std::int32_t key = link.level(row);
  const auto group = std::find_if(groups.begin(), groups.end(),
                                  [key](const GroupLevel& each) { return key != 0 && each.key == key; });
  return static_cast<std::int32_t>(group - groups.begin()) + 1;
}

std::vector<std::int32_t> readGroupLevels(const DataLink& link, const GroupLevels& groups) {
  std::vector<std::int32_t> levels(static_cast<std::size_t>(std::max(link.rowCount(), 0)));
  std::int32_t current = 0;
  for (std::size_t index = levels.size(); index-- > 0;) {
    const std::int32_t level = groupLevelOf(link, groups, static_cast<std::int32_t>(index) + 1);
    const bool fits = level <= current + 1;
    levels[index] = fits ? level : OutlineEntry::noLevel;
    if (fits) current = level;
  }
  return levels;
}

}  // namespace tessera
