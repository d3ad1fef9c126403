#include "backends/raster/text_painter.h"

#include <limits>

#include "backends/raster/script_class.h"
#include "backends/raster/text_segments.h"

namespace tessera {
namespace {

// One line on its way from left to right.
class LinePainter {
 public:
  LinePainter(FontCache& cache, const Pixels& target, const Rect& clip, Font& font, ColorRef color,
              std::int64_t x, std::int64_t baseline)
      : cache_(cache),
        target_(target),
        clip_(clip),
        font_(font),
        color_(color),
        pen_(x),
        baseline_(baseline) {}

  // How far the pen may go before nothing can reach back into the clip any more.
  std::int64_t room() const { return clip_.right + static_cast<std::int64_t>(font_.em()) - pen_; }
  std::int64_t pen() const { return pen_; }

  void draw(const TextSegment& segment) {
    if (segment.shaped) {
      drawShaped(cache_.shaper().shape(font_, segment.text));
    } else if (pen_ + segment.width + font_.em() < clip_.left) {
      pen_ += segment.width;
    } else {
      drawSimple(segment.text);
    }
  }

 private:
  void drawSimple(std::u16string_view text) {
    for (std::size_t place = 0; place < text.size();) {
      Glyph& glyph = font_.glyph(nextCodePoint(text, place));
      drawGlyph(glyph, pen_, baseline_);
      pen_ += glyph.advance;
    }
  }

  void drawShaped(const ShapedText& shaped) {
    for (const PlacedGlyph& placed : shaped.glyphs) {
      drawGlyph(*placed.glyph, pen_ + placed.x, baseline_ + placed.y);
    }
    pen_ += shaped.width;
  }

  // Glyphs that cannot reach the clip are not even looked up, so that their pixels are never made.
  void drawGlyph(Glyph& glyph, std::int64_t x, std::int64_t y) {
    if (!glyph.face || x + glyph.advance + font_.em() < clip_.left || x - font_.em() > clip_.right) return;
    const CoverageMask mask = cache_.glyphs().mask(glyph);
    if (mask.width != 0) blendMask(target_, clip_, x + glyph.left, y - glyph.top, mask, color_);
  }

  FontCache& cache_;
  const Pixels& target_;
  Rect clip_;
  Font& font_;
  ColorRef color_;
  std::int64_t pen_;
  std::int64_t baseline_;
};

// Accents and faces that stand in may reach over the line, but not by more than its height.
bool reaches(const Rect& clip, std::int64_t top, std::int64_t height) {
  return top - height < clip.bottom && top + 2 * height > clip.top;
}

void drawUnderline(const Pixels& target, const Rect& clip, std::int32_t left, std::int64_t right,
                   std::int64_t baseline, const Font& font, ColorRef color) {
  const std::int64_t top = baseline + font.underlineTop();
  const Rect line{left, clampToInt(top), clampToInt(right), clampToInt(top + font.underlineHeight())};
  fillPixels(target, intersect(line, clip), color);
}

std::int32_t widthOf(FontCache& cache, Font& font, std::u16string_view text) {
  TextSegments segments(font, text);
  std::int64_t width = 0;
  for (TextSegment segment; segments.next(std::numeric_limits<std::int64_t>::max(), segment);) {
    width += segment.shaped ? cache.shaper().shape(font, segment.text).width : segment.width;
  }
  return clampToInt(width);
}

}  // namespace

Size measureText(FontCache& cache, const LogFont& description, std::u16string_view text) {
  Font& font = cache.font(description);
  if (text.size() < WidthCache::longText) return {widthOf(cache, font, text), font.height()};
  const auto measure = [&] { return widthOf(cache, font, text); };
  return {cache.widths().find(font, text, measure), font.height()};
}

void drawText(FontCache& cache, const Pixels& target, const Rect& clip, std::int32_t x, std::int32_t y,
              const LogFont& description, ColorRef color, std::u16string_view text) {
  const Rect visible = intersect(clip, target.bounds());
  if (visible.empty()) return;
  Font& font = cache.font(description);
  if (!reaches(visible, y, font.height())) return;
  const std::int64_t baseline = static_cast<std::int64_t>(y) + font.ascent();
  LinePainter line(cache, target, visible, font, color, x, baseline);
  TextSegments segments(font, text);
  for (TextSegment segment; line.room() >= 0 && segments.next(line.room(), segment);) line.draw(segment);
  if (description.lfUnderline) drawUnderline(target, visible, x, line.pen(), baseline, font, color);
}

}  // namespace tessera
