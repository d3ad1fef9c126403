// Pictures by gdk-pixbuf.

#pragma once

#include <span>

#include "platform/dispatcher.h"
#include "platform/picture_loader.h"

namespace tessera {

// PNG, JPEG, GIF (its first frame), BMP, ICO and TIFF, as far as gdk-pixbuf has a module for them; the first
// bytes decide which. Other modules that may be installed are never used. The size that a picture states is
// checked before anything is decoded. Null for what is no picture.
BitmapRef decodePicture(std::span<const std::byte> bytes);

// Decodes when the posted work runs.
class PixbufPictureLoader final : public PictureLoader {
 public:
  // The dispatcher is borrowed.
  explicit PixbufPictureLoader(Dispatcher& dispatcher) : dispatcher_(dispatcher) {}
  void load(std::vector<std::byte> bytes, Answer answer) override;

 private:
  Dispatcher& dispatcher_;
};

}  // namespace tessera
