// The words of a CHILD element.

#pragma once

#include <string_view>

#include "config/child_spec.h"
#include "config/value_words.h"

namespace tessera {

constexpr std::int32_t numberOf(CellKind kind) { return static_cast<std::int32_t>(kind); }
constexpr std::int32_t numberOf(EditKind kind) { return static_cast<std::int32_t>(kind); }

inline constexpr ValueWord cellKindWords[] = {
    {u"none", numberOf(CellKind::None)},   {u"edit", numberOf(CellKind::Edit)},
    {u"combo", numberOf(CellKind::Combo)}, {u"lookup", numberOf(CellKind::Lookup)},
    {u"check", numberOf(CellKind::Check)}, {u"image", numberOf(CellKind::Image)},
    {u"radio", numberOf(CellKind::Radio)}, {u"bar", numberOf(CellKind::Bar)},
};
static_assert(std::size(cellKindWords) == 8);

inline constexpr ValueWord editKindWords[] = {
    {u"popup", numberOf(EditKind::Popup)},
    {u"popupfix", numberOf(EditKind::PopupFix)},
};

inline constexpr ValueWord imeWords[] = {{u"none", 0}, {u"native", 1}, {u"english", 2}};

// The first word of a flag is the one that is written; this is also the order of writing.
inline constexpr ValueWord inputTypeWords[] = {
    {u"numeric", input_type::numeric}, {u"num", input_type::numeric}, {u"password", input_type::password},
    {u"pass", input_type::password},   {u"upper", input_type::upper}, {u"lower", input_type::lower},
};

inline constexpr ValueWord barAlignWords[] = {
    {u"none", 0},         {u"left", align::left},     {u"right", align::right},
    {u"top", align::top}, {u"bottom", align::bottom},
};

// The flags of a list separated by commas; blanks, tabs and unknown words do not count.
std::int32_t parseInputType(std::u16string_view list);

// Sets the kind and, for check and radio cells, their glyphs.
void setCellKind(ChildSpec& child, CellKind kind);

// Column names where the word "none" means no column.
XString columnNameOrNone(const XString& value);

}  // namespace tessera
