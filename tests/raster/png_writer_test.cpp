#include "backends/raster/png_writer.h"

#include <filesystem>
#include <gdk-pixbuf/gdk-pixbuf.h>
#include <memory>

#include "raster/picture.h"

namespace tessera {
namespace {

struct Release {
  void operator()(void* object) const { g_object_unref(object); }
};

Bitmap pixelsOf(GdkPixbuf* pixbuf) {
  Bitmap bitmap(gdk_pixbuf_get_width(pixbuf), gdk_pixbuf_get_height(pixbuf));
  const std::ptrdiff_t channels = gdk_pixbuf_get_n_channels(pixbuf);
  std::size_t place = 0;
  for (std::int32_t y = 0; y < bitmap.height; ++y) {
    const guint8* from =
        gdk_pixbuf_read_pixels(pixbuf) + static_cast<std::ptrdiff_t>(y) * gdk_pixbuf_get_rowstride(pixbuf);
    for (std::int32_t x = 0; x < bitmap.width; ++x, from += channels) {
      const std::uint32_t alpha = channels == 4 ? from[3] : 255;
      bitmap.pixels[place++] = alpha << 24 | static_cast<std::uint32_t>(from[0]) << 16 |
                               static_cast<std::uint32_t>(from[1]) << 8 | from[2];
    }
  }
  return bitmap;
}

Bitmap manyColours() {
  Bitmap bitmap(37, 11);
  for (std::size_t i = 0; i < bitmap.pixels.size(); ++i) {
    bitmap.pixels[i] = static_cast<std::uint32_t>(i * 2654435761u) | 0x01000000;
  }
  return bitmap;
}

TEST(Snapshot, IsOpaque) {
  RasterCanvas canvas({2, 1});
  canvas.blit({1, 0, 2, 1}, bitmapOf({"r"}), 0, 0);
  EXPECT_EQ(canvas.snapshot().pixels, (std::vector<std::uint32_t>{pixelOf(black), pixelOf(red)}));
}

TEST(Png, IsWrittenToAFile) {
  const std::string path = ::testing::TempDir() + "tessera-png-격자.png";
  const Bitmap bitmap = manyColours();
  ASSERT_TRUE(writePng(path, bitmap));
  const std::unique_ptr<GdkPixbuf, Release> pixbuf(gdk_pixbuf_new_from_file(path.c_str(), nullptr));
  std::filesystem::remove(path);
  ASSERT_TRUE(pixbuf);
  EXPECT_EQ(pixelsOf(pixbuf.get()).pixels, bitmap.pixels);
}

TEST(Png, RefusesWhatCannotBeWritten) {
  EXPECT_TRUE(encodePng(Bitmap()).empty());
  EXPECT_FALSE(writePng(::testing::TempDir() + "tessera-empty.png", Bitmap()));
  EXPECT_FALSE(std::filesystem::exists(::testing::TempDir() + "tessera-empty.png"));
  EXPECT_FALSE(writePng(::testing::TempDir() + "no/such/folder/x.png", manyColours()));
}

}  // namespace
}  // namespace tessera
