// Pictures: formats, alpha, and files that are broken or lie.

#include <array>
#include <cstdint>
#include <gdk-pixbuf/gdk-pixbuf.h>
#include <gtest/gtest.h>
#include <memory>
#include <span>
#include <string>
#include <sys/resource.h>
#include <vector>

#include "backends/native/pixbuf_picture_loader.h"

namespace tessera {
namespace {

using namespace std::string_literals;

BitmapRef load(const std::string& file) { return decodePicture(std::as_bytes(std::span(file))); }

// Saves rows of 0xAARRGGBB pixels; `module` may carry an alpha channel or drop it.
std::string saved(const Bitmap& bitmap, const char* module, bool alpha) {
  const std::unique_ptr<GdkPixbuf, decltype(&g_object_unref)> source(
      gdk_pixbuf_new(GDK_COLORSPACE_RGB, alpha, 8, bitmap.width, bitmap.height), g_object_unref);
  for (int y = 0; y < bitmap.height; ++y) {
    guchar* to = gdk_pixbuf_get_pixels(source.get()) + y * gdk_pixbuf_get_rowstride(source.get());
    for (int x = 0; x < bitmap.width; ++x) {
      const std::uint32_t pixel = bitmap.at(x, y);
      *to++ = static_cast<guchar>(pixel >> 16);
      *to++ = static_cast<guchar>(pixel >> 8);
      *to++ = static_cast<guchar>(pixel);
      if (alpha) *to++ = static_cast<guchar>(pixel >> 24);
    }
  }
  gchar* data = nullptr;
  gsize size = 0;
  const bool quick = bitmap.pixels.size() > 1'000'000;  // only PNG is saved in such sizes
  gdk_pixbuf_save_to_buffer(source.get(), &data, &size, module, nullptr, quick ? "compression" : nullptr, "1",
                            nullptr);
  std::string file(data, size);
  g_free(data);
  return file;
}

// Wide enough that rows are padded, with every channel different in every pixel.
Bitmap sample(std::int32_t width, std::int32_t height, std::uint32_t opacity) {
  Bitmap bitmap(width, height);
  std::uint32_t seed = 1;
  for (std::uint32_t& pixel : bitmap.pixels) {
    seed = seed * 1664525 + 1013904223;
    pixel = opacity << 24 | seed >> 8;
  }
  return bitmap;
}

std::string littleEndian(std::uint32_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
  return text;
}

std::string bigEndian(std::uint32_t value) {
  const std::string text = littleEndian(value, 4);
  return {text.rbegin(), text.rend()};
}

std::string replaced(std::string file, std::size_t at, const std::string& bytes) {
  return file.replace(at, bytes.size(), bytes);
}

// One frame of one black pixel's data, whatever size it states.
std::string gif(std::uint32_t width, std::uint32_t height, std::uint32_t frameWidth,
                std::uint32_t frameHeight) {
  return "GIF89a" + littleEndian(width, 2) + littleEndian(height, 2) + "\x80\0\0"s + "\0\0\0\xFF\xFF\xFF"s +
         "!\xF9\x04\0\0\0\0\0"s + "," + littleEndian(0, 4) + littleEndian(frameWidth, 2) +
         littleEndian(frameHeight, 2) + "\0\2\2\x44\1\0;"s;
}

// Its 273 or 324 says where the pixels are, its 279 or 325 how many bytes.
std::string tiff(const std::vector<std::array<std::uint32_t, 3>>& tags, std::uint64_t samples) {
  // Run-length coded grey: samples of 0x80, rounded up to 128.
  std::string runs;
  for (std::uint64_t done = 0; done < samples; done += 128) runs += "\x81\x80";
  const auto count = static_cast<std::uint32_t>(tags.size()), size = static_cast<std::uint32_t>(runs.size());
  std::string file = "II*\0"s + littleEndian(8, 4) + littleEndian(count, 2);
  for (const auto& [tag, type, value] : tags) {
    const bool isPlace = tag == 273 || tag == 324, isSize = tag == 279 || tag == 325;
    file += littleEndian(tag, 2) + littleEndian(type, 2) + littleEndian(1, 4) +
            littleEndian(isPlace  ? 8 + 2 + 12 * count + 4
                         : isSize ? size
                                  : value,
                         4);
  }
  return file + littleEndian(0, 4) + runs;
}

std::string stripTiff(std::uint32_t width, std::uint32_t height) {
  return tiff({{256, 4, width},
               {257, 4, height},
               {258, 3, 8},
               {259, 3, 32773},
               {262, 3, 1},
               {273, 4, 0},
               {277, 3, 1},
               {278, 4, height},
               {279, 4, 0}},
              std::uint64_t{width} * height);
}

// One pixel in the corner of a whole tile.
std::string tileTiff(std::uint32_t width, std::uint32_t height, std::uint32_t type = 4) {
  return tiff({{256, 4, 1},
               {257, 4, 1},
               {258, 3, 8},
               {259, 3, 32773},
               {262, 3, 1},
               {277, 3, 1},
               {322, type, width},
               {323, type, height},
               {324, 4, 0},
               {325, 4, 0}},
              std::uint64_t{width} * height);
}

// Black pixels of one bit under a header of 40 bytes.
std::string bitRows(std::uint32_t width, std::uint32_t height, std::uint32_t statedHeight) {
  const std::size_t row = (width + 31) / 32 * 4;
  return littleEndian(40, 4) + littleEndian(width, 4) + littleEndian(statedHeight, 4) + littleEndian(1, 2) +
         littleEndian(1, 2) + std::string(24, '\0') + "\0\0\0\0\xFF\xFF\xFF\0"s +
         std::string(row * height, '\0');
}

std::string bmp(std::uint32_t width, std::uint32_t height) {
  return "BM" + std::string(8, '\0') + littleEndian(62, 4) + bitRows(width, height, height);
}

std::string topDownBmp(std::uint32_t width, std::uint32_t height) {
  return replaced(bmp(width, height), 22, littleEndian(0 - height, 4));
}

// The pixels and, of the same size, the mask. The directory states at most 255, and 0 for 256.
std::string ico(std::uint32_t width, std::uint32_t height) {
  const std::string image = bitRows(width, 2 * height, 2 * height);
  return "\0\0\1\0\1\0"s + littleEndian(width, 1) + littleEndian(height, 1) + "\2\0\1\0\1\0"s +
         littleEndian(static_cast<std::uint32_t>(image.size()), 4) + littleEndian(22, 4) + image;
}

// Blocks that are missing are filled with grey.
std::string jpeg(std::uint32_t width, std::uint32_t height) {
  const std::string file = saved(Bitmap(1, 1), "jpeg", false);
  const std::string size = bigEndian(height << 16 | width);
  return replaced(file, file.find("\xFF\xC0"s) + 5, size);
}

long residentMegabytes() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

TEST(PictureLoader, LosslessFormats) {
  struct Row {
    const char* module;
    bool alpha;
    std::uint32_t opacity;
  };
  // Half transparent pixels keep their colours: nothing is multiplied in. An alpha channel alone does not
  // make a picture translucent.
  for (const Row& row : {Row{"png", true, 0x80}, Row{"png", true, 0xFF}, Row{"png", false, 0xFF},
                         Row{"bmp", false, 0xFF}, Row{"tiff", false, 0xFF}, Row{"ico", true, 0x80}}) {
    const Bitmap expected = sample(37, 21, row.opacity);
    const BitmapRef loaded = load(saved(expected, row.module, row.alpha));
    ASSERT_TRUE(loaded) << row.module;
    EXPECT_EQ(loaded->width, 37) << row.module;
    EXPECT_EQ(loaded->pixels, expected.pixels) << row.module;
    EXPECT_EQ(loaded->translucent, row.opacity != 0xFF) << row.module;
  }
}

TEST(PictureLoader, OtherFormats) {
  const BitmapRef jpeg = load(saved(Bitmap(40, 30, 0xFFC08040), "jpeg", false));
  ASSERT_TRUE(jpeg);
  EXPECT_EQ(jpeg->height, 30);
  EXPECT_NEAR(static_cast<int>(jpeg->at(20, 15) >> 16 & 0xFF), 0xC0, 4);
  EXPECT_NEAR(static_cast<int>(jpeg->at(20, 15) & 0xFF), 0x40, 4);
  // A frame smaller than the picture leaves the rest transparent.
  const BitmapRef part = load(gif(2, 2, 1, 1));
  ASSERT_TRUE(part);
  EXPECT_EQ(part->at(0, 0), 0xFF000000u);
  EXPECT_EQ(part->at(1, 1) >> 24, 0u);
  struct Row {
    std::string file;
    std::vector<std::uint32_t> pixels;
  };
  const std::vector<std::uint32_t> grey(1, 0xFF808080), black(6, 0xFF000000);
  for (const Row& row :
       {Row{stripTiff(1, 1), grey}, Row{tileTiff(16, 16), grey}, Row{tileTiff(16, 16, 3), grey},
        Row{bmp(3, 2), black}, Row{topDownBmp(3, 2), black}, Row{ico(3, 2), black}}) {
    const BitmapRef loaded = load(row.file);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->pixels, row.pixels);
  }
}

TEST(PictureLoader, NoPictureAndBrokenOnes) {
  const std::string svg = "<svg xmlns='http://www.w3.org/2000/svg' width='2' height='2'/>";
  const std::string xpm = "/* XPM */\nstatic char* x[] = {\"1 1 1 1\", \"a c #000000\", \"a\"};\n";
  const std::string png = saved(sample(64, 64, 0xFF), "png", false), frame = gif(1, 1, 1, 1);
  std::string corrupt = png;
  corrupt[corrupt.size() / 2] ^= 1;
  std::vector<std::string> files = {"",
                                    "x",
                                    "BM",
                                    "GIF89a",
                                    "MM\0*\xFF\xFF\xFF\xFF"s,
                                    "\0\0\1\0"s,
                                    svg,
                                    xpm,
                                    "P6 1 1 255\n\1\2\3",
                                    corrupt,
                                    png.substr(0, png.size() - 12),
                                    frame.substr(0, frame.size() - 4)};
  for (const char* module : {"png", "bmp", "ico", "tiff"}) {
    const std::string whole = saved(sample(64, 64, 0xFF), module, false);
    ASSERT_TRUE(load(whole)) << module;
    for (const std::size_t part : {1u, 3u, 6u}) files.push_back(whole.substr(0, whole.size() * part / 8));
  }
  for (const std::string& file : files)
    EXPECT_FALSE(load(file)) << testing::PrintToString(file.substr(0, 20));
}

// Files that would load but for their size, which their headers state: 8000 by 8000 is the limit.
TEST(PictureLoader, StatedSizes) {
  using Maker = std::string (*)(std::uint32_t width, std::uint32_t height);
  const std::pair<const char*, Maker> rows[] = {
      {"bmp", bmp},
      {"top-down bmp", topDownBmp},
      {"jpeg", jpeg},
      {"gif", [](std::uint32_t width, std::uint32_t height) { return gif(width, height, 1, 1); }},
      {"gif frame", [](std::uint32_t width, std::uint32_t height) { return gif(1, 1, width, height); }},
      {"tiff", stripTiff},
      {"tile", [](std::uint32_t width, std::uint32_t height) { return tileTiff(width * 2, height * 2); }}};
  for (const auto& [name, make] : rows) {
    EXPECT_TRUE(load(make(16, 16))) << name;
    const std::string bomb = make(8008, 8000);
    const long before = residentMegabytes();
    EXPECT_FALSE(load(bomb)) << name;
    EXPECT_LT(residentMegabytes() - before, 64) << name << " took memory for its pixels";
  }
}

TEST(PictureLoader, StatedParts) {
  EXPECT_TRUE(load(tileTiff(1600, 1600)));
  EXPECT_FALSE(load(tileTiff(16, 16, 1)));  // a type that could hide a size
  const std::string png = saved(Bitmap(1, 1), "png", false);
  EXPECT_FALSE(load(replaced(png, 16, bigEndian(0x7FFFFFFF) + bigEndian(0x7FFFFFFF))));
  EXPECT_FALSE(load(replaced(bmp(2, 2), 18, littleEndian(0x80000000, 4) + littleEndian(0x80000000, 4))));
  EXPECT_FALSE(load(replaced(tileTiff(16, 16), 10 + 8, littleEndian(0xFFFFFFFF, 4))));
  // Exactly at the limit.
  const BitmapRef loaded = load(saved(Bitmap(8000, 8000), "png", false));
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->pixels.size(), 64'000'000u);
  EXPECT_FALSE(load(saved(Bitmap(8001, 8000), "png", false)));
}

}  // namespace
}  // namespace tessera
