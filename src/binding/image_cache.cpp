#include "binding/image_cache.h"

#include <algorithm>
#include <vector>

#include "config/child_words.h"
#include "shared/compare.h"

namespace tessera {

std::shared_ptr<PictureSource> ImageCache::sourceOf(const DataLink& link) {
  if (!link.dataSet()) return nullptr;
  return std::dynamic_pointer_cast<PictureSource>(link.holdImageSet());
}

// The components may call back into the grid, even to rebuild the columns: what is needed of them is copied
// first.
void ImageCache::ReloadImages(const ColumnList& columns, const DataLink& link) {
  const auto source = sourceOf(link);
  if (!source) return;
  clear();
  std::vector<XString> names;
  for (const ColumnRecord& column : columns) {
    if (valueOfKind(column.child.type) == CellValue::PictureKey) names.push_back(column.refColumnId);
  }
  for (const XString& name : names) addColumn(name, link, *source);
}

void ImageCache::addColumn(const XString& name, const DataLink& link, PictureSource& source) {
  const std::int32_t count = link.rowCount();
  XValue key;
  for (std::int32_t before = 0; before < count; ++before) {
    const std::int32_t row = before + 1;
    if (link.level(row) >= 1) continue;
    link.valueByName(row, name, key);
    if (key.type() == VT_BSTR) add(key.asText(), source);
  }
}

void ImageCache::ReloadCellImage(const ColumnList& columns, const DataLink& link, std::int32_t column,
                                 std::int32_t row) {
  const auto source = sourceOf(link);
  if (!source || link.level(row) >= 1) return;
  const auto dataSet = link.holdDataSet();
  if (!dataSet) return;
  XString name;
  dataSet->GetColumnName(column, name);
  const bool isImageColumn = std::any_of(columns.begin(), columns.end(), [&name](const ColumnRecord& record) {
    return valueOfKind(record.child.type) == CellValue::PictureKey && equalNoCase(record.refColumnId, name);
  });
  if (!isImageColumn) return;
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
  const std::string narrow = codePages_ ? codePages_->toNarrow(codePage_, key) : key.toUtf8();
  if (!source.GetImage(narrow, picture) || picture.width <= 0 || picture.height <= 0) return;
  const auto expected = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  if (picture.pixels.size() != expected) return;
  auto bitmap = std::make_shared<Bitmap>();
  bitmap->width = picture.width;
  bitmap->height = picture.height;
  bitmap->pixels = std::move(picture.pixels);
  bitmap->findTranslucent();
  pictures_.emplace(key, std::move(bitmap));
}

}  // namespace tessera
