// The texts of OnError.

#pragma once

#include <array>
#include <string_view>

#include "shared/grid_services.h"

namespace tessera {

// In the order of ErrorCode.
inline constexpr std::array<std::u16string_view, 14> errorTexts = {
    u"Parsing Error, ColumnInfo",
    u"Parsing Error, BackgroundInfo",
    u"Parsing Error, IndicatorInfo",
    u"Parsing Error, MenuInfo",
    u"Expression Error",
    u"Too Many Tree Columns",
    u"Tree Column is not Exist",
    u"Tree Level Column Type is not INT",
    u"Tree Level Column is not Exist",
    u"Tree Level Value is not Proper",
    u"SubsumExpr Property of the Dataset is not Proper",
    u"Can not create Excel",
    u"Excel, Invoke failed",
    u"Excel, Internal error",
};
static_assert(errorTexts.size() == static_cast<std::size_t>(ErrorCode::ExcelInternal) + 1);

constexpr std::u16string_view errorText(ErrorCode code) { return errorTexts[static_cast<std::size_t>(code)]; }

}  // namespace tessera
