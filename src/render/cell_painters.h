// The painters of data cells, one for each kind of cell.

#pragma once

#include "render/paint_context.h"

namespace tessera {

// The focus cell keeps this free on its right for its button.
inline constexpr std::int32_t buttonRoom = 20;
// Between a check mark and the cell's side, and between the mark and its label.
inline constexpr std::int32_t glyphGap = 3;

void paintPlainCell(const PaintContext& context, const CellJob& job);
void paintEditCell(const PaintContext& context, const CellJob& job);
void paintDropCell(const PaintContext& context, const CellJob& job);
void paintCheckCell(const PaintContext& context, const CellJob& job);
void paintRadioCell(const PaintContext& context, const CellJob& job);
void paintBarCell(const PaintContext& context, const CellJob& job);
// False when the cell's value is no text: then the column paints no further row.
bool paintImageCell(const PaintContext& context, const CellJob& job);
// The cell of a tree column on a row of any level, with its lines and its box.
void paintTreeCell(const PaintContext& context, const CellJob& job, std::int32_t level);

// The value test of check and radio cells: "F" in any case and texts that start with "0" are off.
bool isOff(std::u16string_view value);

}  // namespace tessera
