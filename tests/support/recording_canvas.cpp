#include "support/recording_canvas.h"

#include <fmt/format.h>

#include <tessera/xstring.h>

namespace tessera {
namespace {

std::string textOf(const Rect& rect) {
  return fmt::format("{},{},{},{}", rect.left, rect.top, rect.right, rect.bottom);
}

std::string textOf(ColorRef color) {
  if (color == noColor) return "none";
  return fmt::format("{:02x}{:02x}{:02x}", redOf(color), greenOf(color), blueOf(color));
}

const char* textOf(Edge edge) {
  switch (edge) {
    case Edge::RaisedInner:
      return "raised inner";
    case Edge::SunkenInner:
      return "sunken inner";
    case Edge::RaisedOuter:
      return "raised outer";
    case Edge::SunkenOuter:
      return "sunken outer";
  }
  return "unknown";
}

// Nothing for the font of a record that sets none.
std::string textOf(const LogFont& font) {
  std::string text;
  if (!font.face().empty()) text += fmt::format(" {}", font.face());
  if (font.lfHeight != 0) text += fmt::format(" {}", font.lfHeight);
  if (font.lfWeight != 0) text += " bold";
  if (font.lfItalic != 0) text += " italic";
  if (font.lfUnderline != 0) text += " underline";
  return text;
}

}  // namespace

template <class... Arguments>
void RecordingCanvas::add(const char* pattern, const Arguments&... arguments) {
  shared_->lines.push_back(prefix_ + fmt::format(fmt::runtime(pattern), arguments...));
}

std::string RecordingCanvas::nameOf(const Bitmap& bitmap) const {
  const auto found = shared_->names.find(bitmap.id.value());
  return found != shared_->names.end() ? found->second : fmt::format("{}x{}", bitmap.width, bitmap.height);
}

std::vector<std::string> RecordingCanvas::linesOf(const std::string& prefix) const {
  std::vector<std::string> found;
  for (const std::string& line : shared_->lines) {
    if (line.starts_with(prefix)) found.push_back(line);
  }
  return found;
}

void RecordingCanvas::fill(const Rect& area, ColorRef color) {
  add("fill {} {}", textOf(area), textOf(color));
}

void RecordingCanvas::blend(const Rect& area, ColorRef color, std::uint8_t alpha) {
  add("blend {} {} {}", textOf(area), textOf(color), alpha);
}

void RecordingCanvas::blit(const Rect& area, const Bitmap& source, std::int32_t sourceX,
                           std::int32_t sourceY) {
  add("blit {} {} {},{}", textOf(area), nameOf(source), sourceX, sourceY);
}

void RecordingCanvas::stretch(const Rect& area, const Bitmap& source) {
  add("stretch {} {}", textOf(area), nameOf(source));
}

void RecordingCanvas::blitKeyed(const Rect& area, const Bitmap& source, const Rect& sourceArea,
                                ColorRef key) {
  add("keyed {} {} {} {}", textOf(area), nameOf(source), textOf(sourceArea), textOf(key));
}

void RecordingCanvas::polyline(std::span<const Point> points, ColorRef color, std::int32_t width) {
  std::string path;
  for (const Point& point : points) path += fmt::format(" {},{}", point.x, point.y);
  add("line{} {} {}", path, textOf(color), width);
}

void RecordingCanvas::edge(const Rect& area, Edge edge) { add("edge {} {}", textOf(area), textOf(edge)); }

void RecordingCanvas::focusRect(const Rect& area) { add("focus {}", textOf(area)); }

Size RecordingCanvas::textExtent(const LogFont&, std::u16string_view text) {
  return {characterWidth * static_cast<std::int32_t>(text.size()), lineHeight};
}

void RecordingCanvas::text(const Rect& clip, std::int32_t x, std::int32_t y, const LogFont& font,
                           ColorRef color, std::u16string_view text) {
  add("text {} at {},{} {}{} \"{}\"", textOf(clip), x, y, textOf(color), textOf(font),
      XString(text).toUtf8());
}

std::unique_ptr<Canvas> RecordingCanvas::createSurface(Size size) {
  auto surface = std::make_unique<RecordingCanvas>(size);
  surface->shared_ = shared_;
  surface->prefix_ = prefix_ + "surface ";
  return surface;
}

void RecordingCanvas::blitSurface(const Rect& area, const Canvas& source, std::int32_t sourceX,
                                  std::int32_t sourceY) {
  add("copy {} from {}x{} {},{}", textOf(area), source.size().width, source.size().height, sourceX, sourceY);
}

}  // namespace tessera
