// Rows that are inserted, deleted and moved by the host's program.

#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "interaction/editor_controller.h"
#include "interaction/grid_parts.h"
#include "interaction/row_edit.h"
#include "interaction/row_insert.h"
#include "shared/grid_services.h"

namespace tessera {

// A call whose conditions fail does nothing. An open edit is saved before anything moves, and may refuse. The
// data set's current row tells where the focus goes.
class RowOperations {
 public:
  // Puts the focus on the data set's current row and shows it.
  using ShowCurrentRow = std::function<void(std::int32_t row)>;

  RowOperations(GridParts& parts, GridServices& services, EditorController& editors, ShowCurrentRow show)
      : parts_(parts), services_(services), editors_(editors), showCurrentRow_(std::move(show)) {}

  // `option` as InsertPlace; `value` as parseRowPairs().
  void Insert(std::int32_t index, std::int32_t option, const XString& value);
  // 0: what is selected.
  void Delete(std::int32_t index);
  // 0: what is selected. `option` 0: behind the target, 4: its first child.
  void Move(std::int32_t source, std::int32_t target, std::int32_t option);

 private:
  RowMode mode() const { return parts_.config.tree.rowMode; }
  // Rows that could not be arranged may be those of another data set.
  bool hasRows() const { return parts_.link.dataSet() && (parts_.rowsFit || mode() == RowMode::Plain); }
  bool hasRow(std::int32_t number) const;
  bool mayInsert(std::int32_t index, std::int32_t option) const;
  bool mayMove(std::int32_t source, std::int32_t target, std::int32_t option) const;
  bool endEdit();
  void insertPlain(std::int32_t index, InsertPlace place, const std::vector<RowPair>& pairs);
  bool isSelection(std::int32_t index) const { return index == 0 && !parts_.focus.CellMode; }
  std::vector<Row> candidates(std::int32_t index) const;
  bool isWithin(Row row, Row target) const;
  Row moveAll(RowEdit& edit, const std::vector<Row>& rows, Row target, std::int32_t option);
  void takeCurrentRow();
  void showMoved(Row row);

  GridParts& parts_;
  GridServices& services_;
  EditorController& editors_;
  ShowCurrentRow showCurrentRow_;
};

}  // namespace tessera
