// Painting a page of cells with the software canvas: the budget is 4 ms for 1000 cells.

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "backends/raster/raster_canvas.h"

namespace tessera {
namespace {

constexpr std::int32_t columns = 20;
constexpr std::int32_t rows = 50;
constexpr std::int32_t cellWidth = 80;
constexpr std::int32_t cellHeight = 20;
constexpr std::size_t frames = 64;
constexpr std::size_t cellLength = 10;

using Page = std::vector<std::u16string>;

std::vector<Page> pagesOf(std::u16string_view alphabet) {
  std::vector<Page> pages(frames);
  std::uint32_t seed = 1;
  const auto unit = [&] {
    seed = seed * 1664525 + 1013904223;
    return alphabet[(seed >> 16) % alphabet.size()];
  };
  for (Page& page : pages) {
    for (std::int32_t cell = 0; cell < rows * columns; ++cell) {
      std::u16string text(cellLength, u' ');
      for (char16_t& c : text) c = unit();
      page.push_back(text);
    }
  }
  return pages;
}

constexpr std::u16string_view latin = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789.,-";
constexpr std::u16string_view korean = u"가나다라마바사아자차카타파하한글표행열칸값";
constexpr std::u16string_view arabic = u"ابتثجحخدذرزسشصضطظعغفقكلمنهوي";

void drawCell(Canvas& canvas, std::int32_t left, std::int32_t top, const LogFont& font,
              std::u16string_view text) {
  const Rect cell{left, top, left + cellWidth, top + cellHeight};
  canvas.fill(cell, top / cellHeight % 2 ? rgb(245, 245, 250) : rgb(255, 255, 255));
  const Point border[] = {
      {cell.right - 1, cell.top}, {cell.right - 1, cell.bottom - 1}, {cell.left, cell.bottom - 1}};
  canvas.polyline(border, rgb(200, 200, 200), 1);
  const Size extent = canvas.textExtent(font, text);
  canvas.text(cell, left + 2, top + (cellHeight - extent.height) / 2, font, rgb(0, 0, 0), text);
}

void paintPages(benchmark::State& state, std::u16string_view alphabet) {
  const std::vector<Page> pages = pagesOf(alphabet);
  RasterCanvas canvas({columns * cellWidth, rows * cellHeight});
  const LogFont font;
  std::size_t frame = 0;
  for (auto _ : state) {
    const Page& page = pages[frame++ % frames];
    for (std::int32_t cell = 0; cell < rows * columns; ++cell) {
      drawCell(canvas, cell % columns * cellWidth, cell / columns * cellHeight, font,
               page[static_cast<std::size_t>(cell)]);
    }
    benchmark::DoNotOptimize(canvas.pixels().bits);
    benchmark::ClobberMemory();
  }
}

void Cells_Latin(benchmark::State& state) { paintPages(state, latin); }
void Cells_Korean(benchmark::State& state) { paintPages(state, korean); }
// Texts that have to be shaped, each new when it comes: the cache forgets a page before it comes back.
void Cells_Arabic(benchmark::State& state) { paintPages(state, arabic); }
BENCHMARK(Cells_Latin)->Unit(benchmark::kMicrosecond);
BENCHMARK(Cells_Korean)->Unit(benchmark::kMicrosecond);
BENCHMARK(Cells_Arabic)->Unit(benchmark::kMicrosecond);

void drawLong(benchmark::State& state, std::u16string_view pattern) {
  std::u16string text;
  while (text.size() < 1'000'000) text += pattern;
  RasterCanvas canvas({cellWidth, cellHeight});
  for (auto _ : state) canvas.text({0, 0, cellWidth, cellHeight}, 2, 2, {}, rgb(0, 0, 0), text);
}
void LongText_Latin(benchmark::State& state) { drawLong(state, u"one megabyte of text "); }
void LongText_Arabic(benchmark::State& state) { drawLong(state, u"نص طويل جدا "); }
BENCHMARK(LongText_Latin);
BENCHMARK(LongText_Arabic);

void LongExtent_Latin(benchmark::State& state) {
  const std::u16string text(1'000'000, u'm');
  RasterCanvas canvas({1, 1});
  for (auto _ : state) benchmark::DoNotOptimize(canvas.textExtent({}, text));
}
BENCHMARK(LongExtent_Latin)->Unit(benchmark::kMicrosecond);

void Blend_Page(benchmark::State& state) {
  RasterCanvas canvas({columns * cellWidth, rows * cellHeight});
  for (auto _ : state) canvas.blend({0, 0, columns * cellWidth, rows * cellHeight}, rgb(0, 0, 255), 64);
}
BENCHMARK(Blend_Page)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tessera
