// The automation interface of the grid control.

#pragma once

#include <cstdint>

#include <tessera/status.h>
#include <tessera/xstring.h>
#include <tessera/xvalue.h>

namespace tessera {

// Members in the order of their dispids, each getter before its setter. Every member returns S_OK, also when
// it does nothing; a getter that has nothing to say leaves its out argument alone. Faults in configuration
// texts are reported by the event OnError, never by a status. Row numbers are 1-based dataset rows; positions
// are client pixels. All calls come on the thread of the control's window, and may come from inside an event.
class ITessera {
 public:
  virtual ~ITessera() = default;

  // 1: id of the data set on the host.
  virtual HResult get_DataID(XString& value) = 0;
  virtual HResult put_DataID(const XString& value) = 0;
  // 2: painting on or off.
  virtual HResult get_Draw(VariantBool& value) = 0;
  virtual HResult put_Draw(VariantBool value) = 0;
  // 3 to 5: the configuration texts of columns, indicator and background.
  virtual HResult get_ColumnInfo(XString& value) = 0;
  virtual HResult put_ColumnInfo(const XString& value) = 0;
  virtual HResult get_IndicatorInfo(XString& value) = 0;
  virtual HResult put_IndicatorInfo(const XString& value) = 0;
  virtual HResult get_BackgroundInfo(XString& value) = 0;
  virtual HResult put_BackgroundInfo(const XString& value) = 0;
  // 6: summary band: 0 none, 1 at the bottom, 2 at the top; other values are ignored.
  virtual HResult get_ViewSummary(std::int32_t& value) = 0;
  virtual HResult put_ViewSummary(std::int32_t value) = 0;
  // 7: tint of selected cells: a colour name or "#rrggbb"; read back as "#rrggbb".
  virtual HResult get_SelectedColor(XString& value) = 0;
  virtual HResult put_SelectedColor(const XString& value) = 0;
  // 8: strength of that tint, 0 to 100 per cent; other values are ignored.
  virtual HResult get_SelectedColorRate(std::int32_t& value) = 0;
  virtual HResult put_SelectedColorRate(std::int32_t value) = 0;
  // 9, 10: accepted and ignored.
  virtual HResult get_ExtProp(const XString& propertyName, XString& value) = 0;
  virtual HResult put_ExtProp(const XString& propertyName, const XString& value) = 0;
  virtual HResult Do(const XString& methodName, const XString& parameter) = 0;
  // 11: input method default: 0 leave alone, 1 native, 2 English.
  virtual HResult get_IME(std::int32_t& value) = 0;
  virtual HResult put_IME(std::int32_t value) = 0;
  // 12: id of the image set on the host.
  virtual HResult get_ImageDataID(XString& value) = 0;
  virtual HResult put_ImageDataID(const XString& value) = 0;
  // 13: the popup menu's text.
  virtual HResult get_MenuInfo(XString& value) = 0;
  virtual HResult put_MenuInfo(const XString& value) = 0;
  // 14: single configuration items by path.
  virtual HResult get_LayoutInfo(const XString& infoType, const XString& item, XValue& value) = 0;
  virtual HResult put_LayoutInfo(const XString& infoType, const XString& item, const XValue& value) = 0;
  // 15: "major,minor,build,private".
  virtual HResult get_Version(XString& value) = 0;
  // 16: the window takes input.
  virtual HResult get_Enable(VariantBool& value) = 0;
  virtual HResult put_Enable(VariantBool value) = 0;
  // 17: text of a cell: type 2 header, 3 data cell, 4 group row, 5 summary band.
  virtual HResult get_GetText(const XString& colid, std::int32_t index, std::int32_t type, XString& text) = 0;
  // 18: keyboard focus to the grid.
  virtual HResult Focus() = 0;
  // 19: the popup menu at a client point.
  virtual HResult TrackPopupMenu(std::int32_t x, std::int32_t y) = 0;
  // 20: the present text of an open editor, else the empty text.
  virtual HResult get_GetEditText(XString& text) = 0;
  // 21: row of the focus cell or of the last selection step; -1 without one.
  virtual HResult get_RowPosition(std::int32_t& row) = 0;
  virtual HResult put_RowPosition(std::int32_t row) = 0;
  // 22: id of the focus cell's column; the empty text means whole-row selection.
  virtual HResult get_ColumnPosition(XString& colid) = 0;
  virtual HResult put_ColumnPosition(const XString& colid) = 0;
  // 23: a value that the host parks here.
  virtual HResult get_Temp(XValue& value) = 0;
  virtual HResult put_Temp(const XValue& value) = 0;
  // 24: opens the editor of the focus cell.
  virtual HResult ActivateEdit() = 0;
  // 25: fits the columns' widths to their contents.
  virtual HResult FitArrange() = 0;
  // 26 to 29: tree and group nodes.
  virtual HResult Expand(std::int32_t row) = 0;
  virtual HResult ExpandAll() = 0;
  virtual HResult Collapse(std::int32_t row) = 0;
  virtual HResult CollapseAll() = 0;
  // 30, 31: rows.
  virtual HResult Insert(std::int32_t index, std::int32_t option, const XString& value) = 0;
  virtual HResult Delete(std::int32_t index) = 0;
  // 32: a click on a header sorts.
  virtual HResult get_Sort(VariantBool& value) = 0;
  virtual HResult put_Sort(VariantBool value) = 0;
  // 33: moves a row.
  virtual HResult Move(std::int32_t sourceIndex, std::int32_t targetIndex, std::int32_t option) = 0;
  // 34: bit 1 drag and drop, bit 2 block selection.
  virtual HResult get_DragDrop(std::int32_t& value) = 0;
  virtual HResult put_DragDrop(std::int32_t value) = 0;
  // 35: dataset column name of a column.
  virtual HResult get_GetRefColumnID(const XString& colid, XString& name) = 0;
  // 36: bit 1 columns can be resized by the mouse.
  virtual HResult get_Resize(std::int32_t& value) = 0;
  virtual HResult put_Resize(std::int32_t value) = 0;
  // 37 to 40: export. Title and footer lists: option 0 empties, 1 appends.
  virtual HResult ExportTitle(std::int32_t option, const XString& value) = 0;
  virtual HResult GridToExcel(const XString& sheetName, const XString& path, std::int32_t option) = 0;
  virtual HResult ExportFooter(std::int32_t option, const XString& value) = 0;
  virtual HResult GridToHtml(const XString& path, std::int32_t option) = 0;
  // 41: id of the first column whose index attribute is `index`.
  virtual HResult get_GetColumnID(std::int32_t index, XString& colid) = 0;
  // 42: number of columns: type 1 all, 2 with view on, 3 with an index.
  virtual HResult get_CountColumn(std::int32_t type, std::int32_t& count) = 0;
  // 43: the block selection.
  virtual HResult get_BlockSelect(const XString& subProperty, XValue& value) = 0;
  virtual HResult put_BlockSelect(const XString& subProperty, const XValue& value) = 0;
  // 44: the selected rows, ascending, joined by commas.
  virtual HResult get_SelectedRows(XString& rows) = 0;
  // 45, 46: a bar that is not needed stays visible, disabled. Only VARIANT_TRUE itself sets them.
  virtual HResult get_FixVScroll(VariantBool& value) = 0;
  virtual HResult put_FixVScroll(VariantBool value) = 0;
  virtual HResult get_FixHScroll(VariantBool& value) = 0;
  virtual HResult put_FixHScroll(VariantBool value) = 0;
  // 47: the focus rectangle is drawn.
  virtual HResult get_FocusRect(VariantBool& value) = 0;
  virtual HResult put_FocusRect(VariantBool value) = 0;
  // 48: fetches the pictures of rows startRow up to but not including endRow again.
  virtual HResult UpdateImageSet(const XString& refColID, std::int32_t startRow, std::int32_t endRow) = 0;
  // 49: the header band is shown.
  virtual HResult get_ViewHeader(VariantBool& value) = 0;
  virtual HResult put_ViewHeader(VariantBool value) = 0;
};

}  // namespace tessera
