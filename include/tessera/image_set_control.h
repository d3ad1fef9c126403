// The interface of an image set: the pictures that image cells name.

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <tessera/component.h>
#include <tessera/status.h>
#include <tessera/xstring.h>
#include <tessera/xvalue.h>

namespace tessera {

class ImageSetNotifications {
 public:
  virtual ~ImageSetNotifications() = default;
  virtual HResult SortReset() = 0;
  virtual HResult DataChanged(std::int32_t value) = 0;
  // The image set is closing: let go of it.
  virtual HResult SourceClosing(VariantBool flag) = 0;
};

class ImageSetControl : public Component {
 public:
  // The subscriber is borrowed until Unadvise.
  virtual HResult Advise(ImageSetNotifications* sink) = 0;
  virtual void Unadvise(ImageSetNotifications* sink) = 0;
  virtual void GetID(XString& id) = 0;
};

// A picture as an image set hands it out: rows of 0xAARRGGBB pixels, top row first.
struct Picture {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::vector<std::uint32_t> pixels;  // width * height of them
};

// The second interface of an image set, reached by a cast from the first.
class PictureSource {
 public:
  virtual ~PictureSource() = default;
  // The picture of `key` (narrow text); a picture without pixels when there is none.
  using Answer = std::function<void(Picture picture)>;
  // The answer is due once, on the grid's thread: before GetImage returns, or later, when it does no harm if
  // the grid has gone meanwhile. Until then the grid shows the cell without its picture.
  virtual void GetImage(const std::string& key, Answer answer) = 0;
};

}  // namespace tessera
