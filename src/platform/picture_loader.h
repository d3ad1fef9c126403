// Ports for pictures and for fetching them.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "shared/bitmap.h"

namespace tessera {

// Both answer once, on the grid's thread and after the call has returned; an implementer that goes before its
// answer never gives it. Whoever asks sees to it that the answer does no harm when they have gone.

// Reads the picture formats of the platform; null for anything that is no picture, or one of more than
// 64 million pixels.
class PictureLoader {
 public:
  using Answer = std::function<void(BitmapRef picture)>;
  virtual ~PictureLoader() = default;
  virtual void load(std::vector<std::byte> bytes, Answer answer) = 0;
};

// A GET of an http or https address with "Accept: */*". No bytes for any other scheme, any status but 200, an
// answer over 64 MiB, or none within 30 seconds.
class HttpClient {
 public:
  using Answer = std::function<void(std::vector<std::byte> body)>;
  virtual ~HttpClient() = default;
  virtual void get(const std::string& url, Answer answer) = 0;
};

}  // namespace tessera
