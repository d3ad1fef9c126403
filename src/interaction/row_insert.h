// A new row, with what the host wants to have in it.

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "interaction/grid_parts.h"
#include "interaction/row_edit.h"
#include "interaction/row_pairs.h"

namespace tessera {

// The numbers are those of the automation.
enum class InsertPlace : std::int32_t { Behind = 0, Before = 1, First = 2, Last = 3, FirstChild = 4 };

// The row of the data set at the end, by what is written into it, is a row of the tree.
class RowInsert {
 public:
  RowInsert(GridParts& parts, RowEdit& edit, const std::vector<RowPair>& pairs)
      : parts_(parts), edit_(edit), pairs_(pairs) {}

  // `beside` is what InsertPlace needs; noRow for the first and the last row. False when nothing was asked.
  bool intoTree(Row beside, InsertPlace place);
  // A whole branch, from the level of `beside` down to one row of data: the data set sums it up when it
  // commits. A data set that does not gets its row taken back.
  bool intoGroups(Row beside, bool behind);

 private:
  struct NewRow {
    Row row;
    std::int32_t level = 1;
  };
  // What stands in the data set after a commit that was not there before.
  struct Came {
    Row first;
    std::int32_t rows = 0;
  };
  // The key of a new group.
  struct Key {
    GroupLevel group;
    XString own;            // of the group beside
    XString neighbour;      // of the one on the other side
    bool isUnlike = false;  // the new row's differs from both
  };

  NewRow placeInTree(Row beside, InsertPlace place) const;
  void takeBranch(const Came& came, bool asWanted, const std::vector<std::int32_t>& levels,
                  const std::optional<Key>& key);
  Key keyBeside(Row beside, bool behind) const;
  void writePair(Row row, const RowPair& pair);
  void writeKeys(Row row, const std::vector<RowPair>& outer, std::optional<Key>& key);
  void writeGroupKey(Row row, Key& key, XString text);
  void tryKey(Row row, Key& key, const XString& text);

  GridParts& parts_;
  RowEdit& edit_;
  const std::vector<RowPair>& pairs_;
};

}  // namespace tessera
