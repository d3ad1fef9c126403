#include "interaction/row_insert.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "shared/compare.h"

namespace tessera {
namespace {

constexpr std::u16string_view newGroup = u"New Group";

// Longer or shorter than both, by marks at the end.
XString unlike(const XString& text, const XString& own, const XString& neighbour) {
  const std::int32_t longest = std::max(own.length(), neighbour.length());
  const auto marks = static_cast<std::size_t>(std::abs(longest - text.length()) + 1);
  return XString(std::u16string(text.view()) + std::u16string(marks, u'!'));
}

XString decimalText(std::int32_t number) {
  XString text;
  text.format("%d", number);
  return text;
}

}  // namespace

RowInsert::NewRow RowInsert::placeInTree(Row beside, InsertPlace place) const {
  const RowTree& rows = parts_.rows;
  const RowTree::Span span = beside ? rows.subtree(beside) : RowTree::Span{};
  const std::int32_t level = beside ? rows.level(beside) : 1;
  switch (place) {
    case InsertPlace::Behind:
      return {{span.first.number + span.count}, level};
    case InsertPlace::Before:
      return {beside, level};
    case InsertPlace::First:
      break;
    case InsertPlace::Last:
      return {{parts_.link.rowCount() + 1}, level};
    case InsertPlace::FirstChild:
      return {{beside.number + 1}, level + 1};
  }
  return {{1}, level};
}

bool RowInsert::intoTree(Row beside, InsertPlace place) {
  const NewRow wanted = placeInTree(beside, place);
  const Row row = edit_.insert(wanted.row);
  if (!row) return false;
  if (row == wanted.row) {
    edit_.arrived(row, {&wanted.level, 1});
  } else {
    edit_.happened(RowsChanged::inserted(row.number));
  }
  parts_.link.setTextByName(row.number, parts_.config.tree.levelColumn, decimalText(wanted.level));
  for (const RowPair& pair : pairs_) writePair(row, pair);
  if (edit_.holds()) edit_.checkLevel(row);
  return true;
}

// The level column is not the host's to write.
void RowInsert::writePair(Row row, const RowPair& pair) {
  const std::int32_t levelColumn = parts_.link.columnIndex(parts_.config.tree.levelColumn);
  if (levelColumn > 0 && parts_.link.columnIndex(pair.name) == levelColumn) return;
  if (edit_.holds()) parts_.link.setTextByName(row.number, pair.name, pair.text);
}

bool RowInsert::intoGroups(Row beside, bool behind) {
  const GroupLevels groups = parts_.rows.groups();
  const std::int32_t level = parts_.rows.level(beside);
  const Row first{behind ? beside.number + 1 : parts_.rows.subtree(beside).first.number};
  std::vector<std::int32_t> levels;
  for (std::size_t each = groups.size() + 1; each >= static_cast<std::size_t>(level); --each) {
    levels.push_back(static_cast<std::int32_t>(each));
  }
  std::optional<Key> key;
  if (levels.size() > 1) key = keyBeside(beside, behind);
  std::vector<RowPair> outer;
  for (std::int32_t index = 0; index + 1 < level; ++index) {
    const XString& name = groups[static_cast<std::size_t>(index)].columnName;
    outer.push_back({name, parts_.link.textByName(beside.number, name)});
  }
  const std::int32_t before = parts_.link.rowCount();
  const Row row = edit_.holds() ? edit_.insert(first) : noRow;
  if (!row) return false;
  writeKeys(row, outer, key);
  if (edit_.holds()) parts_.link.commitRows();
  if (edit_.holds()) takeBranch({row, parts_.link.rowCount() - before}, row == first, levels, key);
  return true;
}

void RowInsert::takeBranch(const Came& came, bool asWanted, const std::vector<std::int32_t>& levels,
                           const std::optional<Key>& key) {
  if (key && came.rows == 1 && key->isUnlike) {
    edit_.erase(came.first);
  } else if (asWanted && came.rows == static_cast<std::int32_t>(levels.size())) {
    edit_.arrived(came.first, levels);
    for (std::int32_t each = 0; each < came.rows; ++each) edit_.checkLevel({came.first.number + each});
  } else {
    edit_.happened({came.first.number, std::max(came.rows, 0), 0});
  }
}

RowInsert::Key RowInsert::keyBeside(Row beside, bool behind) const {
  const RowTree& rows = parts_.rows;
  Key key;
  key.group = rows.groups()[static_cast<std::size_t>(rows.level(beside)) - 1];
  const Row neighbour = behind ? rows.nextSibling(beside) : rows.previousSibling(beside);
  parts_.link.text(beside.number, key.group.columnIndex, key.own);
  if (neighbour) parts_.link.text(neighbour.number, key.group.columnIndex, key.neighbour);
  return key;
}

// The keys of the outer groups are those of the row beside.
void RowInsert::writeKeys(Row row, const std::vector<RowPair>& outer, std::optional<Key>& key) {
  for (const RowPair& pair : outer) {
    if (edit_.holds()) parts_.link.setTextByName(row.number, pair.name, pair.text);
  }
  XString text;
  for (const RowPair& pair : pairs_) {
    const bool isOuter = std::any_of(outer.begin(), outer.end(),
                                     [&pair](const RowPair& each) { return each.name == pair.name; });
    if (isOuter) continue;
    if (key && pair.name == key->group.columnName) text = pair.text;
    writePair(row, pair);
  }
  if (key) writeGroupKey(row, *key, text);
}

// What the column can't hold makes room for the numbers that come after the key beside.
void RowInsert::writeGroupKey(Row row, Key& key, XString text) {
  constexpr std::int32_t enough = 3;  // one of them differs from two others
  if (text.empty()) text = XString(newGroup);
  if (text == key.own || text == key.neighbour) text = unlike(text, key.own, key.neighbour);
  const std::int32_t number = parseInt(key.own);
  tryKey(row, key, text);
  for (std::int32_t next = 1; next <= enough && !key.isUnlike; ++next) {
    tryKey(row, key, decimalText(addClamped(number, next)));
  }
}

void RowInsert::tryKey(Row row, Key& key, const XString& text) {
  if (!edit_.holds()) return;
  parts_.link.setText(row.number, key.group.columnIndex, text);
  XString stored;
  if (edit_.holds()) parts_.link.text(row.number, key.group.columnIndex, stored);
  key.isUnlike =
      key.group.columnIndex <= 0 || (!stored.empty() && stored != key.own && stored != key.neighbour);
}

}  // namespace tessera
