#include "shared/log_font.h"

#include <algorithm>

namespace tessera {

void LogFont::setFace(std::string_view utf8) {
  utf8 = utf8.substr(0, utf8.find('\0'));
  std::size_t bytes = utf8.size();
  if (bytes > faceBytes) {
    bytes = faceBytes;
    while (bytes > 0 && (static_cast<unsigned char>(utf8[bytes]) & 0xC0) == 0x80) --bytes;
  }
  std::fill(std::begin(lfFaceName), std::end(lfFaceName), '\0');
  std::copy_n(utf8.data(), bytes, lfFaceName);
}

}  // namespace tessera
