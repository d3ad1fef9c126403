// Pictures by gdk-pixbuf.

#pragma once

#include "platform/picture_loader.h"

namespace tessera {

// PNG, JPEG, GIF (its first frame), BMP, ICO and TIFF, as far as gdk-pixbuf has a module for them; the first
// bytes decide which. Other modules that may be installed are never used. The size that a picture states is
// checked before anything is decoded.
class PixbufPictureLoader final : public PictureLoader {
 public:
  BitmapRef load(std::span<const std::byte> bytes) override;
};

}  // namespace tessera
