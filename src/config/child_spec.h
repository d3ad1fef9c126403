// What kind of cell a column's view is.

#pragma once

#include <memory>

#include <tessera/data_set_control.h>

#include "config/cell_style.h"
#include "shared/xlist.h"

namespace tessera {

enum class CellKind : std::int32_t { None, Edit, Combo, Lookup, Check, Image, Radio, Bar };
enum class EditKind : std::int32_t { Plain, Popup, PopupFix };

namespace input_type {
inline constexpr std::int32_t numeric = 1, upper = 2, lower = 4, password = 8;
}

struct ComboItem {
  XString text;
  XString code;
};

struct ChildSpec : CellStyle {
  XList<ComboItem> comboItems;
  XString editable = u"true";  // "false" makes the cell read-only; an expression stands in the text slot
  CellKind type = CellKind::None;
  EditKind subType = EditKind::Plain;
  std::int32_t limitLength = -1;   // longest editor text; -1 no limit
  std::int32_t inputType = 0;      // input_type bits
  std::int32_t ime = 0;            // 0 none, 1 native, 2 English
  std::int32_t decimal = -1;       // digits after the point in a numeric editor; -1 no rule
  bool select = true;              // the text is selected when the editor opens
  std::int32_t showItemCount = 5;  // lines of a dropped-down list
  XString comboItemList;
  XString lookupDataId;
  XString lookupCode;
  XString lookupText;
  std::shared_ptr<DataSetControl> lookupDataset;
  XString checkText;  // column whose value labels the check mark
  XString radioText;
  std::int32_t barMin = 1;
  std::int32_t barMax = 100;
  std::int32_t barAlign = 0;                  // side that the bar grows from: 0 none or an align bit
  ColorRef barColor = rgb(0xFF, 0xFF, 0xFF);  // text inside the filled part
  ColorRef barBackColor = rgb(0xFF, 0, 0);    // the filled part
  XString barText;                            // column whose value is the bar's text

  // Only the word "false", in any case, says no.
  bool isEditable(EvalState& state) const;
  bool isPopupEdit() const { return type == CellKind::Edit && subType != EditKind::PopupFix; }
};

}  // namespace tessera
