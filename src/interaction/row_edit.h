// One operation of the grid's own on the rows of the data set.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "interaction/editor_controller.h"
#include "interaction/grid_parts.h"
#include "interaction/grid_token.h"
#include "rows/followed_rows.h"
#include "rows/group_states.h"
#include "shared/grid_services.h"

namespace tessera {

// The data set is asked first; what it did is told to the edit, and tree, page, focus and whoever else holds
// rows follow at once. What the data set tells meanwhile is the grid's own doing. At the end the tree is the
// one that the data set's rows make: where something else came of a call than was told, it is built anew,
// with what was open and closed.
class RowEdit {
 public:
  RowEdit(GridParts& parts, GridServices& services, EditorController& editors);
  RowEdit(const RowEdit&) = delete;
  RowEdit& operator=(const RowEdit&) = delete;

  // False when the host changed the grid or the data set in the middle of a call. Nothing may be asked then.
  bool holds() const { return parts_.token() == token_; }
  // Asks the data set for a row with this number; gives the one that came, noRow when it refused.
  Row insert(Row row);
  // Asks the data set to delete a row; gives how many went, 0 when it refused or marked the row.
  std::int32_t erase(Row row);

  // Rows stand from `first` on, which the tree takes in with these levels.
  void arrived(Row first, std::span<const std::int32_t> levels);
  // `count` rows from `first` on, whole subtrees, went, the first of them in the tree being `top`.
  void left(Row top, Row first, std::int32_t count);
  // What happened fits no arrangement that was expected: settle() makes the tree follow.
  void happened(const RowsChanged& change);
  // The same where the data set gives the row another level than the tree.
  void checkLevel(Row row);
  void settle() {
    if (doubtful_) rebuild();
  }

  // To be renumbered while the edit lasts.
  void follow(FollowedRows& rows) { followed_.push_back(&rows); }
  void unfollow() { followed_.pop_back(); }

  // The end, also of an edit that asked nothing: page and bars show what came of it. False when the grid is
  // another one meanwhile.
  bool finish();

 private:
  void note(const RowsChanged& change);
  void renumberPage(const RowsChanged& change);
  bool isAsTold() const;
  void rebuild();
  void dropPlaceless();
  void refillPage();

  GridParts& parts_;
  GridServices& services_;
  EditorController& editors_;
  std::optional<DataLink::SelfMoveScope> selfMove_;
  std::optional<GroupStates> groupStates_;
  std::vector<FollowedRows*> followed_;
  std::optional<ErrorCode> error_;
  GridToken token_;
  RowEchoes heard_;        // before the first call
  RowEchoes expected_;     // by what the calls did
  bool doubtful_ = false;  // some row is not what it was to be
  bool rebuilt_ = false;
  std::int32_t emptiedAt_ = 1;  // what the page shows when its last row went
};

}  // namespace tessera
