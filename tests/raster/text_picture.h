// Texts as pictures, for comparing one way of drawing with another.

#pragma once

#include <string_view>

#include "raster/picture.h"
#include "shared/log_font.h"

namespace tessera {

inline LogFont fontOf(std::string_view face, std::int32_t height = -16, std::int32_t weight = 0,
                      bool italic = false, bool underline = false) {
  LogFont font;
  font.setFace(face);
  font.lfHeight = height;
  font.lfWeight = weight;
  font.lfItalic = italic;
  font.lfUnderline = underline;
  return font;
}

inline std::int32_t widthOf(std::u16string_view text, const LogFont& font = {}) {
  return RasterCanvas({1, 1}).textExtent(font, text).width;
}

inline constexpr Rect textBounds{0, 0, 200, 40};

inline Bitmap textPicture(std::u16string_view text, const LogFont& font = {}, std::int32_t x = 5) {
  WhiteCanvas canvas(textBounds.right, textBounds.bottom);
  canvas.text(textBounds, x, 8, font, black, text);
  return canvas.snapshot();
}

// The pieces drawn one after the other from left to right.
inline Bitmap piecesPicture(const std::vector<std::u16string>& pieces, const LogFont& font = {}) {
  WhiteCanvas canvas(textBounds.right, textBounds.bottom);
  std::int32_t x = 5;
  for (const std::u16string& piece : pieces) {
    canvas.text(textBounds, x, 8, font, black, piece);
    x += canvas.textExtent(font, piece).width;
  }
  return canvas.snapshot();
}

inline bool operator==(const Bitmap& a, const Bitmap& b) {
  return a.width == b.width && a.height == b.height && a.pixels == b.pixels;
}

}  // namespace tessera
