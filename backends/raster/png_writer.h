// Pictures as PNG files.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "shared/bitmap.h"

namespace tessera {

// The bytes of a PNG file, with the bitmap's alpha; nothing for a bitmap without pixels.
std::vector<std::byte> encodePng(const Bitmap& bitmap);

// Writes encodePng() to `path`, a UTF-8 file name; false when there is nothing to write or it cannot be
// written.
bool writePng(const std::string& path, const Bitmap& bitmap);

}  // namespace tessera
