#include "render/cell_painters.h"

namespace tessera {

bool paintImageCell(const PaintContext& context, const CellJob& job) {
  XValue& key = context.scratch.text.value;
  context.model.link.valueByName(job.row.row.number, job.column.refColumnId, key);
  const bool isMissing = key.type() == VT_EMPTY || key.type() == VT_NULL;
  if (key.type() != VT_BSTR && !isMissing) return false;
  const BitmapRef picture = context.model.images.FindImage(key.asText());
  DrawStyle style(job.column.view);
  style.image = picture.get();
  // Without a picture the ground shows, which a stretched one would not paint.
  style.imageMode = picture && style.align == align::full ? image_mode::stretched : image_mode::placed;
  drawCell(context.target(), style, job.rect, {}, job.clipLeft);
  return true;
}

}  // namespace tessera
