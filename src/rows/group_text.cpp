#include "rows/group_text.h"

#include <algorithm>

#include "config/format_value.h"
#include "shared/compare.h"

namespace tessera {
namespace {

// The nearest detail row above gives the text, with its own row for the expressions in it.
void inheritedText(const TextSource& source, const ColumnRecord& column, std::int32_t row,
                   std::int32_t columnIndex, std::int32_t& level, XString& text) {
  text.assign({});
  for (std::int32_t above = row - 1; above >= 1; --above) {
    level = source.link.level(above);
    if (level > 0) continue;
    if (level < 0) break;
    const std::int32_t present = source.eval.ExprRow;
    source.eval.ExprRow = above;
    cellText(source, column, above, columnIndex, text);
    source.eval.ExprRow = present;
    return;
  }
  level = std::max(level, 0);
}

}  // namespace

void GroupText(const TextSource& source, const ColumnRecord& column, std::int32_t row,
               std::int32_t columnIndex, std::int32_t& level, XString& text) {
  const GroupCell* group = column.groupOfLevel(level);
  if (!group) return text.assign({});
  const bool isKeyword = !group->isDynamic(DynamicSlot::Text);
  if (isKeyword && equalNoCase(group->text, u"bind")) {
    source.link.value(row, columnIndex, source.scratch.value);
    return formatValue(*group, source.scratch.value, source.eval, text);
  }
  if (isKeyword && equalNoCase(group->text, u"inherit")) {
    return inheritedText(source, column, row, columnIndex, level, text);
  }
  displayText(*group, source.eval, text);
}

}  // namespace tessera
