// Which properties a host keeps, in which order and with which types.

#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include <tessera/xvalue.h>

namespace tessera {

struct PersistedProperty {
  std::u16string_view name;
  VarType type;
};

// The order of the puts on load. It starts behind the extent, which streams hold as two raw 32-bit values.
inline constexpr std::array<PersistedProperty, 19> propertyMap = {{
    {u"DataID", VT_BSTR},
    {u"Draw", VT_BOOL},
    {u"ColumnInfo", VT_BSTR},
    {u"IndicatorInfo", VT_BSTR},
    {u"BackgroundInfo", VT_BSTR},
    {u"ViewSummary", VT_I4},
    {u"SelectedColor", VT_BSTR},
    {u"SelectedColorRate", VT_I4},
    {u"IME", VT_I4},
    {u"ImageDataID", VT_BSTR},
    {u"MenuInfo", VT_BSTR},
    {u"Enable", VT_BOOL},
    {u"Sort", VT_BOOL},
    {u"DragDrop", VT_I4},
    {u"Resize", VT_I4},
    {u"FixVScroll", VT_BOOL},
    {u"FixHScroll", VT_BOOL},
    {u"FocusRect", VT_BOOL},
    {u"ViewHeader", VT_BOOL},
}};

}  // namespace tessera
