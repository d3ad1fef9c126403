// Pictures of the image set.

#include "cells/cell_kinds.h"

namespace tessera {
namespace {

// False when the cell's value can name no picture; an empty cell names none.
bool findPicture(const TextSource& texts, const ImageCache& images, const ColumnRecord& column,
                 std::int32_t row, BitmapRef& picture) {
  XValue& key = texts.scratch.value;
  texts.link.valueByName(row, column.refColumnId, key);
  const bool isMissing = key.type() == VT_EMPTY || key.type() == VT_NULL;
  if (key.type() != VT_BSTR && !isMissing) return false;
  picture = images.FindImage(key.asText());
  return true;
}

bool paintImage(const CellTools& tools, const CellJob& job) {
  const ColumnRecord& column = job.place.column;
  BitmapRef picture;
  if (!findPicture(tools.texts, tools.images, column, job.place.row.row.number, picture)) return false;
  DrawStyle style(column.view);
  style.image = picture.get();
  // Without a picture the ground shows, which a stretched one would not paint.
  style.imageMode = picture && style.align == align::full ? image_mode::stretched : image_mode::placed;
  drawCell(tools.target(), style, job.place.cell, {}, job.place.clipLeft);
  return true;
}

std::optional<std::int32_t> imageWidth(const WidthJob& job) {
  BitmapRef picture;
  if (!findPicture(job.texts, job.images, job.column, job.row, picture)) return std::nullopt;
  return picture ? picture->width : 0;
}

}  // namespace

const CellFace imageFace{nullptr, paintImage, imageWidth};

}  // namespace tessera
