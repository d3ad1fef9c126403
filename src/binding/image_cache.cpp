#include "binding/image_cache.h"

#include <algorithm>

#include "shared/compare.h"

namespace tessera {

void ImageCache::ReloadImages(const ColumnList& columns, const DataLink& link) {
  if (!link.dataSet() || !link.imageSet()) return;
  clear();
  auto* source = dynamic_cast<PictureSource*>(link.imageSet());
  if (!source) return;
  const std::int32_t count = link.rowCount();
  XValue key;
  for (const ColumnRecord& column : columns) {
    if (column.child.type != CellKind::Image) continue;
    for (std::int32_t row = 1; row <= count; ++row) {
      if (link.level(row) >= 1) continue;
      link.valueByName(row, column.refColumnId, key);
      if (key.type() == VT_BSTR) add(key.asText(), *source);
    }
  }
}

void ImageCache::ReloadCellImage(const ColumnList& columns, const DataLink& link, std::int32_t column,
                                 std::int32_t row) {
  if (!link.dataSet() || !link.imageSet() || link.level(row) >= 1) return;
  XString name;
  link.dataSet()->GetColumnName(column, name);
  const bool isImageColumn = std::any_of(columns.begin(), columns.end(), [&name](const ColumnRecord& record) {
    return record.child.type == CellKind::Image && equalNoCase(record.refColumnId, name);
  });
  auto* source = dynamic_cast<PictureSource*>(link.imageSet());
  if (!isImageColumn || !source) return;
  XString key;
  link.text(row, column, key);
  add(key, *source);
}

BitmapRef ImageCache::FindImage(const XString& key) const {
  const auto found = pictures_.find(key);
  return found == pictures_.end() ? nullptr : found->second;
}

void ImageCache::add(const XString& key, PictureSource& source) {
  if (pictures_.contains(key)) return;
  Picture picture;
  if (!source.GetImage(key.toUtf8(), picture) || picture.width <= 0 || picture.height <= 0) return;
  const auto expected = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  if (picture.pixels.size() != expected) return;
  auto bitmap = std::make_shared<Bitmap>();
  bitmap->width = picture.width;
  bitmap->height = picture.height;
  bitmap->pixels = std::move(picture.pixels);
  pictures_.emplace(key, std::move(bitmap));
}

}  // namespace tessera
