// The pictures of image cells.

#pragma once

#include <functional>
#include <memory>
#include <unordered_map>

#include <tessera/image_set_control.h>

#include "binding/data_link.h"
#include "config/column_record.h"
#include "platform/code_pages.h"
#include "shared/bitmap.h"

namespace tessera {

// Private copies of the image set's pictures, one for each key that a cell names. Keys compare exactly. A key
// is asked for when somebody looks for its picture the first time, so only those of cells that are shown or
// measured are; it is asked for once, whatever the answer.
class ImageCache {
 public:
  // Keys are handed over as narrow text of this code page; as UTF-8 without `codePages`, which is borrowed.
  void setCodePage(CodePages* codePages, std::int32_t codePage) {
    codePages_ = codePages;
    codePage_ = codePage;
  }
  // Runs when a picture came that somebody looked for in vain.
  void onArrival(std::function<void()> arrived) { arrived_ = std::move(arrived); }
  // From now on the pictures are those of the link's image set. Nothing without a data set or an image set.
  void ReloadImages(const DataLink& link);
  // A key that had no picture is asked for again, if `column` (a dataset column number) belongs to an image
  // column. A picture that is there is never replaced.
  void ReloadCellImage(const ColumnList& columns, const DataLink& link, std::int32_t column,
                       std::int32_t row);
  // What is still to come is not waited for any more.
  void clear();

  // Null when there is none, or not yet. The image set is asked inside of the call.
  BitmapRef FindImage(const XString& key) const;

 private:
  struct Entry {
    enum class State : std::uint8_t { Asked, Awaited, Answered };
    State state = State::Asked;
    BitmapRef bitmap;
  };
  // Late answers find it, or nothing if the cache has been cleared.
  struct Shelf {
    std::unordered_map<XString, Entry> entries;
    std::weak_ptr<PictureSource> source;
  };

  void ask(const std::shared_ptr<Shelf>& shelf, const XString& key) const;
  void take(Entry& entry, Picture picture) const;

  CodePages* codePages_ = nullptr;
  std::int32_t codePage_ = 0;
  std::function<void()> arrived_;
  std::shared_ptr<Shelf> shelf_ = std::make_shared<Shelf>();
};

}  // namespace tessera
