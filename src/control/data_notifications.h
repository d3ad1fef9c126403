// What the bound components' notifications do to the grid.

#pragma once

#include <functional>

#include "binding/data_client.h"
#include "interaction/editor_controller.h"
#include "interaction/grid_parts.h"
#include "interaction/row_select.h"
#include "shared/grid_services.h"

namespace tessera {

// Notifications are dropped without a window, and those of row moves and changes while the grid itself makes
// them.
class DataNotifications : public DataClient, public ImageClient {
 public:
  DataNotifications(GridParts& parts, GridServices& services, EditorController& editors,
                    std::function<void()> refresh)
      : parts_(parts), services_(services), editors_(editors), refresh_(std::move(refresh)) {}

  HResult SortReset(std::int32_t cookie) override;
  HResult StructureChanged(std::int32_t cookie, std::int32_t value) override;
  HResult RowsAdded(std::int32_t cookie, std::int32_t rowCount) override;
  HResult DataChanged(std::int32_t cookie, std::int32_t value) override;
  HResult CanChange(std::int32_t cookie, std::int32_t value, VariantBool& allowed) override;
  HResult CurrentRowChanged(std::int32_t cookie, std::int32_t row) override;
  HResult RowsReset(std::int32_t cookie) override;
  HResult Reserved(std::int32_t cookie, std::int32_t value) override;
  HResult RowInserted(std::int32_t cookie, std::int32_t row) override;
  HResult RowDeleted(std::int32_t cookie, std::int32_t row) override;
  HResult CellChanged(std::int32_t cookie, std::int32_t row, std::int32_t column) override;
  HResult SourceClosing(std::int32_t cookie, VariantBool flag) override;

  HResult ImageSortReset(std::int32_t cookie) override;
  HResult ImageDataChanged(std::int32_t cookie, std::int32_t value) override;
  HResult ImageSourceClosing(std::int32_t cookie) override;

 private:
  // False when nothing may come of a notification now.
  bool listening() { return !parts_.link.SelfMove() && mayChange(); }
  // Counts what comes of the grid's own changes.
  bool listening(std::uint64_t& echoes);
  bool mayChange();
  void clearSortMarks();
  RowSelection selection() const { return {parts_, services_}; }
  void changeRowCount(std::int32_t row, std::int32_t delta);
  bool isPlain() const { return parts_.config.tree.rowMode == RowMode::Plain; }
  void addPlainRows(std::int32_t rowCount);
  void addTreeRows(std::int32_t rowCount);
  void showCount();
  void loadPage();
  void cutRows(std::int32_t count);
  // Ends an edit; false while rows are still to come or to go, or without a window.
  bool settleRows();
  void followCurrentRow();
  void showOpened();
  void refillFromTop(std::int32_t capacity);
  bool endEdit(std::int32_t row, bool ownCall);
  bool takeCurrentRow(Row row, bool ownCall);
  void needColumn();

  GridParts& parts_;
  GridServices& services_;
  EditorController& editors_;
  std::function<void()> refresh_;
};

}  // namespace tessera
