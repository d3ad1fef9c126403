#include <array>
#include <gtest/gtest.h>

#include "backends/raster/raster_canvas.h"
#include "shared/counted_memory.h"

namespace tessera {
namespace {

void paint(RasterCanvas& canvas, Canvas& surface, const Bitmap& bitmap, const LogFont& font) {
  constexpr std::array<Point, 3> line = {{{0, 0}, {40, 19}, {0, 19}}};
  canvas.fill({0, 0, 80, 20}, rgb(255, 255, 255));
  canvas.blend({0, 0, 40, 20}, rgb(0, 0, 255), 100);
  canvas.blit({0, 0, 8, 8}, bitmap, 0, 0);
  canvas.stretch({8, 0, 30, 9}, bitmap);
  canvas.blitKeyed({30, 0, 60, 9}, bitmap, {0, 0, 8, 8}, rgb(1, 2, 3));
  canvas.polyline(line, rgb(9, 9, 9), 3);
  canvas.edge({0, 0, 80, 20}, Edge::SunkenOuter);
  canvas.focusRect({1, 1, 79, 19});
  canvas.blitSurface({5, 5, 9, 9}, surface, 0, 0);
  for (const std::u16string_view text :
       {u"Simple 텍스트 12", u"shaped e\u0301 אבג 12", u"missing \U000F0000"}) {
    canvas.text({0, 0, 80, 20}, 2, 2, font, rgb(0, 0, 0), text);
    EXPECT_GT(canvas.textExtent(font, text).width, 0);
  }
}

TEST(WarmCanvas, AllocatesNothing) {
  RasterCanvas canvas({80, 20});
  const std::unique_ptr<Canvas> surface = canvas.createSurface({10, 10});
  const Bitmap bitmap(8, 8);
  LogFont plain, styled;
  styled.lfWeight = 700;
  styled.lfUnderline = 1;
  for (int round = 0; round < 2; ++round) {
    paint(canvas, *surface, bitmap, plain);
    paint(canvas, *surface, bitmap, styled);
  }
  const std::int64_t before = test::allocationCount();
  paint(canvas, *surface, bitmap, plain);
  paint(canvas, *surface, bitmap, styled);
  EXPECT_EQ(test::allocationCount(), before);
}

}  // namespace
}  // namespace tessera
