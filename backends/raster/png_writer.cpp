#include "backends/raster/png_writer.h"

#include <cstdio>
#include <cstring>
#include <gdk-pixbuf/gdk-pixbuf.h>
#include <memory>

namespace tessera {
namespace {

struct Release {
  void operator()(GdkPixbuf* pixbuf) const { g_object_unref(pixbuf); }
  void operator()(gchar* bytes) const { g_free(bytes); }
  void operator()(std::FILE* file) const { std::fclose(file); }
};

void writeRow(guchar* to, const std::uint32_t* from, std::int32_t width) {
  for (std::int32_t x = 0; x < width; ++x, to += 4) {
    to[0] = static_cast<guchar>(from[x] >> 16);
    to[1] = static_cast<guchar>(from[x] >> 8);
    to[2] = static_cast<guchar>(from[x]);
    to[3] = static_cast<guchar>(from[x] >> 24);
  }
}

std::unique_ptr<GdkPixbuf, Release> pixbufOf(const Bitmap& bitmap) {
  if (bitmap.width <= 0 || bitmap.height <= 0) return nullptr;
  std::unique_ptr<GdkPixbuf, Release> pixbuf(
      gdk_pixbuf_new(GDK_COLORSPACE_RGB, TRUE, 8, bitmap.width, bitmap.height));
  if (!pixbuf) return nullptr;
  guchar* const pixels = gdk_pixbuf_get_pixels(pixbuf.get());
  const std::ptrdiff_t stride = gdk_pixbuf_get_rowstride(pixbuf.get());
  for (std::int32_t y = 0; y < bitmap.height; ++y) {
    writeRow(pixels + y * stride, bitmap.pixels.data() + static_cast<std::ptrdiff_t>(y) * bitmap.width,
             bitmap.width);
  }
  return pixbuf;
}

}  // namespace

std::vector<std::byte> encodePng(const Bitmap& bitmap) {
  const auto pixbuf = pixbufOf(bitmap);
  gchar* buffer = nullptr;
  gsize size = 0;
  if (!pixbuf ||
      !gdk_pixbuf_save_to_bufferv(pixbuf.get(), &buffer, &size, "png", nullptr, nullptr, nullptr)) {
    return {};
  }
  const std::unique_ptr<gchar, Release> owner(buffer);
  std::vector<std::byte> bytes(size);
  std::memcpy(bytes.data(), buffer, size);
  return bytes;
}

bool writePng(const std::string& path, const Bitmap& bitmap) {
  const std::vector<std::byte> bytes = encodePng(bitmap);
  if (bytes.empty()) return false;
  std::unique_ptr<std::FILE, Release> file(std::fopen(path.c_str(), "wb"));
  if (!file) return false;
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  return std::fclose(file.release()) == 0 && written;
}

}  // namespace tessera
