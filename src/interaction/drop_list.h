// The drop-down list of combo and lookup cells.

#pragma once

#include <cstdint>
#include <vector>

#include "config/info_services.h"
#include "interaction/grid_parts.h"
#include "shared/grid_services.h"

namespace tessera {

// One list window serves all cells. What it chooses goes to the cell that it was opened for, wherever the
// focus has gone meanwhile.
class DropListController : public ListBoxOwner {
 public:
  DropListController(GridParts& parts, GridServices& services, InfoServices& info)
      : parts_(parts), services_(services), info_(info) {}

  void windowCreated();
  void windowDestroyed();

  bool isOpen() const { return open_; }
  // The data set has taken rows in or out: the choice is still for the row that the list was opened for. When
  // that one is gone the list goes, too.
  void renumber(const RowsChanged& change);
  // At the focus cell, when it has such a list and may be edited.
  bool open();
  // With `accept` the chosen item goes to the cell; false when there is none to choose: then the list stays
  // up.
  bool close(bool accept);

  // What the list tells, and what its messages are routed to. The list may be destroyed inside each of them.
  void listKeyDown(std::int32_t key) override;
  void listKeyDone(std::int32_t key) override;
  void listCharDone(char16_t character) override;
  void listClicked() override;
  void listFocusLost() override;

 private:
  // The cell that the list stands at; its column is good while the structure is the same.
  struct Target {
    XString colid;
    std::int32_t row = 0;
    ColumnPosition column = nullptr;
    std::uint64_t structure = 0;
  };
  struct Content {
    std::vector<XString> items;
    std::int32_t chosen = -1;
  };

  bool canOpen() const;
  bool fill(ColumnRecord& column, std::int32_t row, Content& content);
  bool findLookup(ColumnRecord& column);
  Content comboContent(const ColumnRecord& column, const XString& code) const;
  Content lookupContent(const ColumnRecord& column, const XString& code) const;
  void showCell(const ColumnRecord& column);
  void show(const ColumnRecord& column, std::vector<XString> items);
  Rect placeFor(const ColumnRecord& column, std::int32_t itemCount) const;
  bool chosenCode(XString& code) const;
  void write(const XString& code);
  bool hasLeftControl() const;
  void hide();

  GridParts& parts_;
  GridServices& services_;
  InfoServices& info_;
  bool open_ = false;
  Target target_;
};

}  // namespace tessera
