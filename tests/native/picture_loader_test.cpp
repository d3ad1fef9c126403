// Pictures: formats, alpha, and files that are broken or lie.

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

struct TiffTag {
  std::uint32_t tag;
  std::uint32_t type;  // 3 SHORT, 4 LONG
  std::uint32_t value;
};

std::string tiff(const std::vector<TiffTag>& tags, const std::string& pixels) {
  const std::uint32_t place = 8 + 2 + 12 * static_cast<std::uint32_t>(tags.size()) + 4;
  std::string file = "II*\0"s + littleEndian(8, 4) + littleEndian(static_cast<std::uint32_t>(tags.size()), 2);
  for (const TiffTag& each : tags) {
    const bool offset = each.tag == 273 || each.tag == 324;
    file += littleEndian(each.tag, 2) + littleEndian(each.type, 2) + littleEndian(1, 4) +
            littleEndian(offset ? place : each.value, 4);
  }
  return file + littleEndian(0, 4) + pixels;
}

// Run-length coded grey: `count` samples of 0x80, rounded up to 128.
std::string greyRuns(std::uint64_t count) {
  std::string runs;
  for (std::uint64_t done = 0; done < count; done += 128) runs += "\x81\x80";
  return runs;
}

std::string stripTiff(std::uint32_t width, std::uint32_t height) {
  const std::string runs = greyRuns(std::uint64_t{width} * height);
  return tiff({{256, 4, width},
               {257, 4, height},
               {258, 3, 8},
               {259, 3, 32773},
               {262, 3, 1},
               {273, 4, 0},
               {277, 3, 1},
               {278, 4, height},
               {279, 4, static_cast<std::uint32_t>(runs.size())}},
              runs);
}

// One pixel in the corner of a whole tile.
std::string tileTiff(std::uint32_t tileWidth, std::uint32_t tileHeight, std::uint32_t type = 4) {
  const std::string runs = greyRuns(std::uint64_t{tileWidth} * tileHeight);
  return tiff({{256, 4, 1},
               {257, 4, 1},
               {258, 3, 8},
               {259, 3, 32773},
               {262, 3, 1},
               {277, 3, 1},
               {322, type, tileWidth},
               {323, type, tileHeight},
               {324, 4, 0},
               {325, 4, static_cast<std::uint32_t>(runs.size())}},
              runs);
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
  return "BM" + std::string(8, '\0') + littleEndian(62, 4) + bitRows(width, height, 0 - height);
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
  // Half transparent pixels keep their colours: nothing is multiplied in.
  for (const Row& row : {Row{"png", true, 0x80}, Row{"png", true, 0x01}, Row{"png", false, 0xFF},
                         Row{"bmp", false, 0xFF}, Row{"tiff", false, 0xFF}, Row{"ico", true, 0x80}}) {
    const Bitmap expected = sample(37, 21, row.opacity);
    const BitmapRef loaded = load(saved(expected, row.module, row.alpha));
    ASSERT_TRUE(loaded) << row.module;
    EXPECT_EQ(loaded->width, 37) << row.module;
    EXPECT_EQ(loaded->height, 21) << row.module;
    EXPECT_EQ(loaded->pixels, expected.pixels) << row.module;
    EXPECT_EQ(loaded->translucent, row.opacity != 0xFF) << row.module;
  }
  const BitmapRef opaque = load(saved(sample(37, 21, 0xFF), "png", true));
  ASSERT_TRUE(opaque);
  EXPECT_FALSE(opaque->translucent) << "an alpha channel alone does not make it so";
}

TEST(PictureLoader, OtherFormats) {
  const BitmapRef jpeg = load(saved(Bitmap(40, 30, 0xFFC08040), "jpeg", false));
  ASSERT_TRUE(jpeg);
  EXPECT_EQ(jpeg->width, 40);
  EXPECT_EQ(jpeg->height, 30);
  EXPECT_NEAR(static_cast<int>(jpeg->at(20, 15) >> 16 & 0xFF), 0xC0, 4);
  EXPECT_NEAR(static_cast<int>(jpeg->at(20, 15) & 0xFF), 0x40, 4);

  const BitmapRef one = load(gif(1, 1, 1, 1));
  ASSERT_TRUE(one);
  EXPECT_EQ(one->pixels, std::vector<std::uint32_t>{0xFF000000});
  // A frame smaller than the picture leaves the rest transparent.
  const BitmapRef part = load(gif(2, 2, 1, 1));
  ASSERT_TRUE(part);
  EXPECT_EQ(part->at(0, 0), 0xFF000000u);
  EXPECT_EQ(part->at(1, 1) >> 24, 0u);

  for (const std::string& file : {stripTiff(1, 1), tileTiff(16, 16), tileTiff(16, 16, 3)}) {
    const BitmapRef grey = load(file);
    ASSERT_TRUE(grey);
    EXPECT_EQ(grey->pixels, std::vector<std::uint32_t>{0xFF808080});
  }
  for (const std::string& file : {bmp(3, 2), topDownBmp(3, 2), ico(3, 2)}) {
    const BitmapRef black = load(file);
    ASSERT_TRUE(black);
    EXPECT_EQ(black->width, 3);
    EXPECT_EQ(black->pixels, std::vector<std::uint32_t>(6, 0xFF000000));
  }
}

TEST(PictureLoader, NoPicture) {
  const std::string svg = "<svg xmlns='http://www.w3.org/2000/svg' width='2' height='2'/>";
  const std::string xpm = "/* XPM */\nstatic char* x[] = {\"1 1 1 1\", \"a c #000000\", \"a\"};\n";
  for (const std::string& file : {""s, "x"s, "\x89PNG\r\n\x1A\n"s, "BM"s, "GIF89a"s, "\xFF\xD8\xFF"s,
                                  "II*\0"s, "MM\0*\xFF\xFF\xFF\xFF"s, "\0\0\1\0"s, "<html></html>"s,
                                  std::string(1000, '\0'), svg, xpm, "P6 1 1 255\n\1\2\3"s}) {
    EXPECT_FALSE(load(file)) << testing::PrintToString(file.substr(0, 20));
  }
}

TEST(PictureLoader, BrokenOff) {
  for (const char* module : {"png", "bmp", "ico", "tiff"}) {
    const std::string whole = saved(sample(64, 64, 0xFF), module, false);
    ASSERT_TRUE(load(whole)) << module;
    for (const std::size_t part : {std::size_t{1}, std::size_t{3}, std::size_t{6}}) {
      EXPECT_FALSE(load(whole.substr(0, whole.size() * part / 8))) << module << " " << part << "/8";
    }
  }
  // All rows, but not the last block.
  const std::string png = saved(sample(64, 64, 0xFF), "png", false);
  EXPECT_FALSE(load(png.substr(0, png.size() - 12)));
  std::string corrupt = png;
  corrupt[corrupt.size() / 2] ^= 1;
  EXPECT_FALSE(load(corrupt));
  const std::string frame = gif(1, 1, 1, 1);
  EXPECT_FALSE(load(frame.substr(0, frame.size() - 4)));
}

// Files that would load but for their size, which their headers state: 8000 by 8000 is the limit.
TEST(PictureLoader, StatedSizes) {
  using Maker = std::string (*)(std::uint32_t width, std::uint32_t height);
  struct Row {
    const char* name;
    Maker make;
  };
  const std::vector<Row> rows = {
      {"bmp", bmp},
      {"top-down bmp", topDownBmp},
      {"jpeg", jpeg},
      {"gif", [](std::uint32_t width, std::uint32_t height) { return gif(width, height, 1, 1); }},
      {"gif frame", [](std::uint32_t width, std::uint32_t height) { return gif(1, 1, width, height); }},
      {"tiff", stripTiff},
  };
  for (const Row& row : rows) {
    EXPECT_TRUE(load(row.make(2, 2))) << row.name;
    const std::string bomb = row.make(8001, 8000);
    const long before = residentMegabytes();
    EXPECT_FALSE(load(bomb)) << row.name;
    EXPECT_LT(residentMegabytes() - before, 64) << row.name << " took memory for its pixels";
  }
}

TEST(PictureLoader, StatedParts) {
  EXPECT_TRUE(load(tileTiff(1600, 1600)));
  const std::string bomb = tileTiff(16'016, 16'000);
  const long before = residentMegabytes();
  EXPECT_FALSE(load(bomb));
  EXPECT_LT(residentMegabytes() - before, 64);
  EXPECT_FALSE(load(tileTiff(16, 16, 1)));  // a type that could hide a size

  const std::string png = saved(Bitmap(1, 1), "png", false);
  EXPECT_FALSE(load(replaced(png, 16, bigEndian(0x7FFFFFFF) + bigEndian(0x7FFFFFFF))));
  EXPECT_FALSE(load(replaced(bmp(2, 2), 18, littleEndian(0x80000000, 4) + littleEndian(0x80000000, 4))));
  EXPECT_FALSE(load(replaced(tileTiff(16, 16), 10 + 8, littleEndian(0xFFFFFFFF, 4))));
}

TEST(PictureLoader, ExactlyAtTheLimit) {
  const std::string fits = saved(Bitmap(8000, 8000), "png", false);
  const BitmapRef loaded = load(fits);
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->pixels.size(), 64'000'000u);
  EXPECT_EQ(loaded->pixels.back(), 0xFF000000u);
  const std::string bomb = saved(Bitmap(8001, 8000), "png", false);
  EXPECT_LT(bomb.size(), 1'000'000u);
  EXPECT_FALSE(load(bomb));
}

}  // namespace
}  // namespace tessera
