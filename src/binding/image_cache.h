// The pictures of image cells.

#pragma once

#include <unordered_map>

#include <tessera/image_set_control.h>

#include "binding/data_link.h"
#include "config/column_record.h"
#include "shared/bitmap.h"

namespace tessera {

// Private copies of the image set's pictures, one for each key that a cell names. Keys compare exactly. A key
// without a picture leaves no entry and is asked for again.
class ImageCache {
 public:
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
  void add(const XString& key, PictureSource& source);

  std::unordered_map<XString, BitmapRef> pictures_;
};

}  // namespace tessera
