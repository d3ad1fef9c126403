// The grid control.

#pragma once

#include <tessera/hosting.h>
#include <tessera/itessera.h>
#include <tessera/persistence.h>

#include "control/control_properties.h"
#include "control/controllers.h"
#include "control/data_notifications.h"
#include "control/event_source.h"
#include "control/grid_expression_host.h"
#include "control/info_host.h"
#include "interaction/grid_parts.h"
#include "platform/canvas.h"
#include "platform/ports.h"
#include "render/paint_pipeline.h"

namespace tessera {

// Composes the parts, holds the properties and runs Refresh. Everything happens on the thread of its window.
// The host gives the site first, then the properties, then a window; the control can live without a window
// and can get one again after it lost one.
class Tessera : public ITessera, public GridServices {
 public:
  explicit Tessera(const Ports& ports);
  ~Tessera() override;
  Tessera(const Tessera&) = delete;
  Tessera& operator=(const Tessera&) = delete;

  // Hosting. The site is borrowed; null before it goes.
  void setClientSite(ClientSite* site);
  // Reads what the host offers at quick activation: its code page.
  void quickActivate();
  EventSource& events() { return events_; }
  Connections<PropertyNotifySink>& propertyNotifySinks() { return propertySinks_; }
  PropertyTarget& properties() { return properties_; }
  std::int32_t codePage() const { return codePage_; }

  // What the window tells. `window` is borrowed from windowCreated() to windowDestroyed(). All else comes as
  // messages: true when the message is one of the grid's.
  void windowCreated(Window& window);
  void windowDestroyed();
  void windowResized();
  bool HandleMessage(std::uint32_t message, std::uint64_t wParam, std::int64_t lParam);
  // The host asks before it takes a key that went down in the grid or one of its windows; `key` may be
  // replaced.
  KeyRoute translateKey(std::int32_t& key) { return controllers_.keyFilter.translate(key); }
  // The window wants its client area on `canvas`.
  void onDraw(Canvas& canvas);

  // Rebuilds columns, rows and page from the configuration and the data set; nothing without a data set.
  void Refresh();
  Controllers& controllers() { return controllers_; }
  // The row that the next evaluation of an expression reads.
  void setExprRow(std::int32_t row) { parts_.eval.ExprRow = row; }
  // For hosts and tools that show the grid's state; valid until the control is called again.
  const GridParts& parts() const { return parts_; }

  void Repaint(const Rect* area) override;
  void ReportError(ErrorCode code) override;
  XValue fire(EventId id, std::span<const XValue> arguments) override { return events_.fire(id, arguments); }
  void catchUp() override;

  HResult get_DataID(XString& value) override;
  HResult put_DataID(const XString& value) override;
  HResult get_Draw(VariantBool& value) override;
  HResult put_Draw(VariantBool value) override;
  HResult get_ColumnInfo(XString& value) override;
  HResult put_ColumnInfo(const XString& value) override;
  HResult get_IndicatorInfo(XString& value) override;
  HResult put_IndicatorInfo(const XString& value) override;
  HResult get_BackgroundInfo(XString& value) override;
  HResult put_BackgroundInfo(const XString& value) override;
  HResult get_ViewSummary(std::int32_t& value) override;
  HResult put_ViewSummary(std::int32_t value) override;
  HResult get_SelectedColor(XString& value) override;
  HResult put_SelectedColor(const XString& value) override;
  HResult get_SelectedColorRate(std::int32_t& value) override;
  HResult put_SelectedColorRate(std::int32_t value) override;
  HResult get_ExtProp(const XString& propertyName, XString& value) override;
  HResult put_ExtProp(const XString& propertyName, const XString& value) override;
  HResult Do(const XString& methodName, const XString& parameter) override;
  HResult get_IME(std::int32_t& value) override;
  HResult put_IME(std::int32_t value) override;
  HResult get_ImageDataID(XString& value) override;
  HResult put_ImageDataID(const XString& value) override;
  HResult get_MenuInfo(XString& value) override;
  HResult put_MenuInfo(const XString& value) override;
  HResult get_LayoutInfo(const XString& infoType, const XString& item, XValue& value) override;
  HResult put_LayoutInfo(const XString& infoType, const XString& item, const XValue& value) override;
  HResult get_Version(XString& value) override;
  HResult get_Enable(VariantBool& value) override;
  HResult put_Enable(VariantBool value) override;
  HResult get_GetText(const XString& colid, std::int32_t index, std::int32_t type, XString& text) override;
  HResult Focus() override;
  HResult TrackPopupMenu(std::int32_t x, std::int32_t y) override;
  HResult get_GetEditText(XString& text) override;
  HResult get_RowPosition(std::int32_t& row) override;
  HResult put_RowPosition(std::int32_t row) override;
  HResult get_ColumnPosition(XString& colid) override;
  HResult put_ColumnPosition(const XString& colid) override;
  HResult get_Temp(XValue& value) override;
  HResult put_Temp(const XValue& value) override;
  HResult ActivateEdit() override;
  HResult FitArrange() override;
  HResult Expand(std::int32_t row) override;
  HResult ExpandAll() override;
  HResult Collapse(std::int32_t row) override;
  HResult CollapseAll() override;
  HResult Insert(std::int32_t index, std::int32_t option, const XString& value) override;
  HResult Delete(std::int32_t index) override;
  HResult get_Sort(VariantBool& value) override;
  HResult put_Sort(VariantBool value) override;
  HResult Move(std::int32_t sourceIndex, std::int32_t targetIndex, std::int32_t option) override;
  HResult get_DragDrop(std::int32_t& value) override;
  HResult put_DragDrop(std::int32_t value) override;
  HResult get_GetRefColumnID(const XString& colid, XString& name) override;
  HResult get_Resize(std::int32_t& value) override;
  HResult put_Resize(std::int32_t value) override;
  HResult ExportTitle(std::int32_t option, const XString& value) override;
  HResult GridToExcel(const XString& sheetName, const XString& path, std::int32_t option) override;
  HResult ExportFooter(std::int32_t option, const XString& value) override;
  HResult GridToHtml(const XString& path, std::int32_t option) override;
  HResult get_GetColumnID(std::int32_t index, XString& colid) override;
  HResult get_CountColumn(std::int32_t type, std::int32_t& count) override;
  HResult get_BlockSelect(const XString& subProperty, XValue& value) override;
  HResult put_BlockSelect(const XString& subProperty, const XValue& value) override;
  HResult get_SelectedRows(XString& rows) override;
  HResult get_FixVScroll(VariantBool& value) override;
  HResult put_FixVScroll(VariantBool value) override;
  HResult get_FixHScroll(VariantBool& value) override;
  HResult put_FixHScroll(VariantBool value) override;
  HResult get_FocusRect(VariantBool& value) override;
  HResult put_FocusRect(VariantBool value) override;
  HResult UpdateImageSet(const XString& refColID, std::int32_t startRow, std::int32_t endRow) override;
  HResult get_ViewHeader(VariantBool& value) override;
  HResult put_ViewHeader(VariantBool value) override;

 private:
  void refillPage();
  void pictureArrived();

  Ports ports_;
  ClientSite* site_ = nullptr;
  GridParts parts_;
  GridExpressionHost expressionHost_{parts_.link};
  InfoHost info_;
  Controllers controllers_;
  DataNotifications notifications_;
  EventSource events_;
  Connections<PropertyNotifySink> propertySinks_;
  ControlProperties properties_;
  PaintPipeline pipeline_;
  std::int32_t codePage_ = 0;
  bool catchingUp_ = false;
};

}  // namespace tessera
