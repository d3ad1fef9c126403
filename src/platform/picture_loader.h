// Ports for pictures and for fetching them.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "shared/bitmap.h"

namespace tessera {

// Reads the picture formats of the platform; null for anything that is no picture, or one of more than
// 64 million pixels.
class PictureLoader {
 public:
  virtual ~PictureLoader() = default;
  virtual BitmapRef load(std::span<const std::byte> bytes) = 0;
};

// A GET of an http or https address with "Accept: */*". Nothing for any other scheme, any status but 200, an
// answer over 64 MiB, or none within 30 seconds.
class HttpClient {
 public:
  virtual ~HttpClient() = default;
  virtual bool get(const std::string& url, std::vector<std::byte>& body) = 0;
};

}  // namespace tessera
