#include "binding/image_cache.h"

#include <algorithm>

#include "config/child_words.h"
#include "shared/compare.h"

namespace tessera {
namespace {

// Null for a picture that is none.
BitmapRef bitmapOf(Picture picture) {
  if (picture.width <= 0 || picture.height <= 0) return nullptr;
  const auto expected = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  if (picture.pixels.size() != expected) return nullptr;
  auto bitmap = std::make_shared<Bitmap>();
  bitmap->width = picture.width;
  bitmap->height = picture.height;
  bitmap->pixels = std::move(picture.pixels);
  bitmap->findTranslucent();
  return bitmap;
}

}  // namespace

void ImageCache::clear() { shelf_ = std::make_shared<Shelf>(); }

void ImageCache::ReloadImages(const DataLink& link) {
  const auto source = std::dynamic_pointer_cast<PictureSource>(link.holdImageSet());
  if (!source || !link.dataSet()) return;
  clear();
  shelf_->source = source;
}

void ImageCache::ReloadCellImage(const ColumnList& columns, const DataLink& link, std::int32_t column,
                                 std::int32_t row) {
  const auto dataSet = link.holdDataSet();
  if (!dataSet || link.level(row) >= 1) return;
  XString name;
  dataSet->GetColumnName(column, name);
  const bool isImageColumn = std::any_of(columns.begin(), columns.end(), [&name](const ColumnRecord& record) {
    return valueOfKind(record.child.type) == CellValue::PictureKey && equalNoCase(record.refColumnId, name);
  });
  if (!isImageColumn) return;
  XString key;
  link.text(row, column, key);
  const auto found = shelf_->entries.find(key);
  if (found == shelf_->entries.end()) return;
  const Entry& entry = found->second;
  if (entry.state == Entry::State::Answered && !entry.bitmap) shelf_->entries.erase(found);
}

// The image set may call back into the grid, even to let go of the pictures.
BitmapRef ImageCache::FindImage(const XString& key) const {
  const auto found = shelf_->entries.find(key);
  if (found != shelf_->entries.end()) return found->second.bitmap;
  if (key.empty() || shelf_->source.expired()) return nullptr;
  const XString wanted = key;
  const auto asked = shelf_;
  ask(asked, wanted);
  Entry& entry = asked->entries[wanted];
  if (entry.state == Entry::State::Asked) entry.state = Entry::State::Awaited;
  return entry.bitmap;
}

void ImageCache::ask(const std::shared_ptr<Shelf>& shelf, const XString& key) const {
  const auto source = shelf->source.lock();
  shelf->entries.try_emplace(key);
  const std::string narrow = codePages_ ? codePages_->toNarrow(codePage_, key) : key.toUtf8();
  source->GetImage(narrow, [this, key, waiting = std::weak_ptr<Shelf>(shelf)](Picture picture) {
    if (const auto present = waiting.lock()) take(present->entries[key], std::move(picture));
  });
}

void ImageCache::take(Entry& entry, Picture picture) const {
  const bool wasAwaited = entry.state == Entry::State::Awaited;
  if (entry.state == Entry::State::Answered) return;
  entry.bitmap = bitmapOf(std::move(picture));
  entry.state = Entry::State::Answered;
  if (wasAwaited && entry.bitmap && arrived_) arrived_();
}

}  // namespace tessera
