// Editing in the cells: the edit box, and what Enter, Escape, Space, characters and presses do with a cell.

#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "cells/cell_kinds.h"
#include "interaction/check_cells.h"
#include "interaction/drop_list.h"
#include "interaction/edit_filter.h"
#include "interaction/edit_outcome.h"
#include "interaction/grid_parts.h"
#include "interaction/grid_watch.h"
#include "render/paint_result.h"
#include "shared/grid_services.h"

namespace tessera {

// Owns the rules of an edit, not its state: that is GridParts::editor. The text goes to the cell that the
// edit began in; when that cell is gone the text is dropped.
class EditorController : public EditBoxOwner {
 public:
  EditorController(GridParts& parts, GridServices& services, InfoServices& info)
      : parts_(parts), services_(services), list_(parts, services, info) {}

  // Who takes the keys that the box hands up: the keyboard dispatch of the grid's window.
  void setKeyTarget(std::function<void(std::int32_t key)> target) { keyTarget_ = std::move(target); }

  // Who opens and closes the node of a row that is pressed or gets a blank. Nobody in a grid without a tree.
  void setNodeTarget(std::function<void(Row row)> target) { nodeTarget_ = std::move(target); }
  void toggleNode(Row row) const {
    if (nodeTarget_) nodeTarget_(row);
  }

  // The box and the list, parked; after parts.window was set.
  void windowCreated();
  // Saves an open edit and lets go of box and list; before parts.window is cleared.
  void windowDestroyed();
  // After each paint: the box stands at its cell, or away while the cell is out of view.
  void place(const PaintResult& result);

  bool active() const { return parts_.editor.active; }
  DropListController& list() { return list_; }

  // Asks OnExit and does what the answer says. True: nothing is open any more and the caller may go on.
  // False: the editor stays, OnExit is being asked already, or the grid is no longer the one that the caller
  // knows.
  bool tryCommit(CommitMode mode);
  // For every move of the focus: false when anything is open afterwards. An open list goes without a choice.
  bool commitBeforeMove();
  // What a host asks for while somebody edits would take the cell away: the edit ends as if the focus were
  // lost, an open list without a choice. Nothing is open afterwards but an edit that is being asked about.
  void settle();
  // Closes everything without a question and without writing: the columns or rows are made anew. The text of
  // an edit that is being asked about may still be saved, as long as row numbers hold.
  void abandon();
  // The same, but the row numbers hold no longer, or the data set goes.
  void forgetRows();
  // The data set has taken rows in or out: what is open goes on under its row's new number, or ends with it.
  void renumber(const RowsChanged& change);

  // An edit of the focus cell, whether it is editable or not. `withPopup`: a cell that has only a button
  // fires OnPopup instead. True when either happened.
  bool openEditor(bool withPopup);
  // A press of the left button on a cell: true when it met the cell's button or mark.
  bool activateCell(std::int32_t x, std::int32_t y, ColumnPosition column, Row row);

  // Keys on the grid's window.
  void enterAction();
  void escapeAction();
  void spaceAction();
  void charArrived(char16_t character);
  void imeStarted();
  void imeComposing();

  // Automation.
  void activateEdit();
  XString editText() const;

  // What the box tells, and what its messages are routed to. The box may be destroyed inside each of them.
  bool editKeyDown(std::int32_t key) override;
  void editKeyDone(std::int32_t key) override;
  bool editAllows(char16_t character) override;
  void editCharDone(char16_t character) override;
  bool editAllowsComposition() override;
  void editFocusLost(FocusTarget target) override;

 private:
  // The cell that is edited; its column is good while the structure is the same. Each edit has a number of
  // its own: what an edit was asked or told must not end or change another one.
  struct EditedCell {
    XString colid;
    XString refColumnId;
    std::int32_t row = 0;
    ColumnPosition column = nullptr;
    std::uint64_t structure = 0;
    std::uint64_t serial = 0;
  };
  // A text whose editor went in a rebuild while its OnExit was being asked.
  struct LeftText {
    XString refColumnId;
    std::int32_t row = 0;
    XString text;
  };
  // What an OnPopup came from.
  static constexpr std::int32_t popupByButton = 1, popupByEnter = 0;
  struct Closing {
    bool refocus = false;
    bool save = false;
    bool popup = false;
  };

  // A cell of data with the focus, whose expressions then read its row; null when there is none.
  ColumnRecord* focusColumn();
  bool firePopup(const XString& colid, std::int32_t row, std::int32_t flag);
  void focusGridIfOutside();
  bool cellStands() const;

  EditRules takeRules(const ColumnRecord& column, std::int32_t dataColumn, bool& numeric) const;
  void fillBox(const ColumnRecord& column, std::int32_t row);
  bool focusBox(const GridWatch& watch, std::uint64_t serial);

  bool isOpen(std::uint64_t serial) const { return parts_.editor.active && cell_.serial == serial; }
  std::int32_t askExit();
  bool stay();
  void close(const Closing& closing);
  void drop();
  void finish(bool refocus);
  void leaveText();
  void saveLeftText(EditOutcome outcome);
  void writeText();
  void takeFocusBack();

  // False when the action is none, or cannot be done now. `rule` is how a mark flips.
  // False also when columns or row numbers are others afterwards.
  template <class Question>
  bool stillHolds(Question question);
  // For the row of the expressions.
  bool mayEdit(const ColumnRecord& column);
  bool act(CellAction action, const ColumnRecord& column, std::int32_t row, CheckRule rule);
  bool actByKey(CellAction CellKindRow::*action);

  GridParts& parts_;
  GridServices& services_;
  DropListController list_;
  std::function<void(std::int32_t key)> keyTarget_;
  std::function<void(Row row)> nodeTarget_;
  EditedCell cell_;
  std::optional<LeftText> left_;
  std::uint64_t lastSerial_ = 0;
  std::uint64_t askedSerial_ = 0;  // the edit that OnExit is or was last asked about
  bool closing_ = false;           // the text is on its way: whatever comes back finds the edit settled
};

}  // namespace tessera
