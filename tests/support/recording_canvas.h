// A canvas that writes its calls down as text.

#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/canvas.h"

namespace tessera {

// One line a call: rectangles as "left,top,right,bottom", colours as "rrggbb", bitmaps by name, or by size
// when they have none. Every character is 7 wide and every line 14 high. Calls on memory surfaces go into the
// same list behind "surface ".
class RecordingCanvas : public Canvas {
 public:
  static constexpr std::int32_t characterWidth = 7;
  static constexpr std::int32_t lineHeight = 14;

  explicit RecordingCanvas(Size size) : size_(size), shared_(std::make_shared<Shared>()) {}

  void name(const Bitmap& bitmap, std::string text) { shared_->names[bitmap.id.value()] = std::move(text); }
  const std::vector<std::string>& lines() const { return shared_->lines; }
  // The lines that start with `prefix`.
  std::vector<std::string> linesOf(const std::string& prefix) const;
  void clear() { shared_->lines.clear(); }

  Size size() const override { return size_; }
  void fill(const Rect& area, ColorRef color) override;
  void blend(const Rect& area, ColorRef color, std::uint8_t alpha) override;
  void blit(const Rect& area, const Bitmap& source, std::int32_t sourceX, std::int32_t sourceY) override;
  void stretch(const Rect& area, const Bitmap& source) override;
  void blitKeyed(const Rect& area, const Bitmap& source, const Rect& sourceArea, ColorRef key) override;
  void polyline(std::span<const Point> points, ColorRef color, std::int32_t width) override;
  void edge(const Rect& area, Edge edge) override;
  void focusRect(const Rect& area) override;
  Size textExtent(const LogFont& font, std::u16string_view text) override;
  void text(const Rect& clip, std::int32_t x, std::int32_t y, const LogFont& font, ColorRef color,
            std::u16string_view text) override;
  std::unique_ptr<Canvas> createSurface(Size size) override;
  bool isLike(const Canvas&) const override { return true; }
  void blitSurface(const Rect& area, const Canvas& source, std::int32_t sourceX,
                   std::int32_t sourceY) override;

 private:
  struct Shared {
    std::vector<std::string> lines;
    std::map<std::uint64_t, std::string> names;
  };

  std::string nameOf(const Bitmap& bitmap) const;
  template <class... Arguments>
  void add(const char* pattern, const Arguments&... arguments);

  Size size_;
  std::string prefix_;
  std::shared_ptr<Shared> shared_;
};

}  // namespace tessera
