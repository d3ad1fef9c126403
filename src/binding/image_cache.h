// The pictures of image cells.

#pragma once

#include <unordered_map>

#include <tessera/image_set_control.h>

#include "binding/data_link.h"
#include "config/column_record.h"
#include "platform/code_pages.h"
#include "shared/bitmap.h"

namespace tessera {

// Private copies of the image set's pictures, one for each key that a cell names. Keys compare exactly. A key
// without a picture leaves no entry and is asked for again.
class ImageCache {
 public:
  // Keys are handed over as narrow text of this code page; as UTF-8 without `codePages`, which is borrowed.
  void setCodePage(CodePages* codePages, std::int32_t codePage) {
    codePages_ = codePages;
    codePage_ = codePage;
  }
  // Empties the cache and fetches the pictures of all data rows of all image columns. Nothing without a data
  // set or an image set.
  void ReloadImages(const ColumnList& columns, const DataLink& link);
  // Adds the picture of one cell, if `column` (a dataset column number) belongs to an image column. A picture
  // that is there is never replaced.
  void ReloadCellImage(const ColumnList& columns, const DataLink& link, std::int32_t column,
                       std::int32_t row);
  void clear() { pictures_.clear(); }

  // Null when there is none.
  BitmapRef FindImage(const XString& key) const;

 private:
  // The picture source of the link's image set, kept alive; null without both components.
  static std::shared_ptr<PictureSource> sourceOf(const DataLink& link);
  void addColumn(const XString& name, const DataLink& link, PictureSource& source);
  void add(const XString& key, PictureSource& source);

  CodePages* codePages_ = nullptr;
  std::int32_t codePage_ = 0;
  std::unordered_map<XString, BitmapRef> pictures_;
};

}  // namespace tessera
