#include "backends/native/pixbuf_picture_loader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <gdk-pixbuf/gdk-pixbuf.h>
#include <memory>
#include <string_view>

#include "backends/native/stated_sizes.h"

namespace tessera {
namespace {

using namespace std::string_view_literals;

constexpr std::uint64_t maxPixels = 64'000'000;
constexpr std::uint64_t maxTiffPiece = maxPixels * 4 * 2;  // all of it as one strip of 16-bit RGBA
constexpr std::size_t pieceBytes = std::size_t{1} << 20;

enum class Module { Png, Jpeg, Gif, Bmp, Ico, Tiff };

struct Format {
  std::string_view start;
  Module module;
  const char* name;
};

constexpr std::array formats = {
    Format{"\x89PNG\r\n\x1A\n"sv, Module::Png, "png"},
    Format{"\xFF\xD8\xFF"sv, Module::Jpeg, "jpeg"},
    Format{"GIF87a"sv, Module::Gif, "gif"},
    Format{"GIF89a"sv, Module::Gif, "gif"},
    Format{"BM"sv, Module::Bmp, "bmp"},
    Format{"\0\0\1\0"sv, Module::Ico, "ico"},
    Format{"II*\0"sv, Module::Tiff, "tiff"},
    Format{"MM\0*"sv, Module::Tiff, "tiff"},
};

const Format* formatOf(std::string_view bytes) {
  const auto* found = std::find_if(formats.begin(), formats.end(),
                                   [&](const Format& each) { return bytes.starts_with(each.start); });
  return found == formats.end() ? nullptr : found;
}

// Whether the parts of the picture fit too; gdk-pixbuf itself asks only about the whole.
bool partsFit(Module module, std::span<const std::byte> bytes) {
  switch (module) {
    case Module::Gif:
      return largestGifFrame(bytes) <= maxPixels;
    case Module::Tiff:
      return largestTiffPiece(bytes) <= maxTiffPiece;
    default:
      return true;
  }
}

// Some modules take a file that breaks off for a whole picture. A GIF frame may leave rows out, but there the
// module itself reports the break.
bool mustReachEveryRow(Module module) { return module != Module::Gif; }

// The rows of an interlaced PNG are all there after the last pass has begun.
bool hasEnd(Module module, std::string_view bytes) {
  return module != Module::Png || bytes.rfind("IEND") != std::string_view::npos;
}

struct ObjectRelease {
  void operator()(gpointer object) const { g_object_unref(object); }
};

// One picture on its way through gdk-pixbuf.
class Decoding {
 public:
  explicit Decoding(const Format& format)
      : format_(format), loader_(gdk_pixbuf_loader_new_with_type(format.name, nullptr)) {
    if (!loader_) return;
    g_signal_connect(loader_.get(), "size-prepared", G_CALLBACK(&Decoding::onSize), this);
    g_signal_connect(loader_.get(), "area-updated", G_CALLBACK(&Decoding::onRows), this);
  }
  ~Decoding() {
    // The loader complains when it is dropped open.
    if (loader_) gdk_pixbuf_loader_close(loader_.get(), nullptr);
  }
  Decoding(const Decoding&) = delete;
  Decoding& operator=(const Decoding&) = delete;

  // The loader's own pixels, null for a broken, incomplete or refused picture.
  const GdkPixbuf* run(std::span<const std::byte> bytes) {
    if (!loader_ || !feed(bytes)) return nullptr;
    // Some modules decode only now.
    if (!gdk_pixbuf_loader_close(loader_.get(), nullptr) || refused_) return nullptr;
    const GdkPixbuf* pixels = gdk_pixbuf_loader_get_pixbuf(loader_.get());
    return pixels && isComplete(pixels) ? pixels : nullptr;
  }

 private:
  bool feed(std::span<const std::byte> bytes) {
    while (!bytes.empty() && !refused_) {
      const auto piece = bytes.first(std::min(pieceBytes, bytes.size()));
      const auto* data = reinterpret_cast<const guchar*>(piece.data());
      if (!gdk_pixbuf_loader_write(loader_.get(), data, piece.size(), nullptr)) return false;
      bytes = bytes.subspan(piece.size());
    }
    return !refused_;
  }

  bool isComplete(const GdkPixbuf* pixels) const {
    return !mustReachEveryRow(format_.module) || (firstRow_ == 0 && endRow_ >= gdk_pixbuf_get_height(pixels));
  }

  // A size of nothing makes every module give up before it takes memory for the pixels.
  static void onSize(GdkPixbufLoader* loader, int width, int height, Decoding* self) {
    if (width > 0 && height > 0 &&
        static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) <= maxPixels) {
      return;
    }
    self->refused_ = true;
    gdk_pixbuf_loader_set_size(loader, 0, 0);
  }

  // Modules report rows in order, from the top or from the bottom.
  static void onRows(GdkPixbufLoader*, int, int y, int, int height, Decoding* self) {
    self->firstRow_ = std::min(self->firstRow_, y);
    self->endRow_ = std::max(self->endRow_, y + height);
  }

  const Format& format_;
  std::unique_ptr<GdkPixbufLoader, ObjectRelease> loader_;
  bool refused_ = false;
  int firstRow_ = G_MAXINT;
  int endRow_ = 0;
};

BitmapRef copyPixels(const GdkPixbuf* source) {
  const int width = gdk_pixbuf_get_width(source);
  const int height = gdk_pixbuf_get_height(source);
  const bool alpha = gdk_pixbuf_get_has_alpha(source);
  const auto channels = static_cast<std::size_t>(gdk_pixbuf_get_n_channels(source));
  const auto stride = static_cast<std::size_t>(gdk_pixbuf_get_rowstride(source));
  const guchar* pixels = gdk_pixbuf_read_pixels(source);

  auto bitmap = std::make_shared<Bitmap>(width, height);
  auto target = bitmap->pixels.begin();
  for (int y = 0; y < height; ++y) {
    const guchar* from = pixels + static_cast<std::size_t>(y) * stride;
    for (int x = 0; x < width; ++x, from += channels) {
      const std::uint32_t opacity = alpha ? from[3] : 0xFFu;
      *target++ = opacity << 24 | static_cast<std::uint32_t>(from[0]) << 16 |
                  static_cast<std::uint32_t>(from[1]) << 8 | from[2];
    }
  }
  if (alpha) bitmap->findTranslucent();
  return bitmap;
}

}  // namespace

BitmapRef decodePicture(std::span<const std::byte> bytes) {
  const std::string_view view(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  const Format* format = formatOf(view);
  if (!format || !hasEnd(format->module, view) || !partsFit(format->module, bytes)) return nullptr;
  Decoding decoding(*format);
  const GdkPixbuf* pixels = decoding.run(bytes);
  return pixels ? copyPixels(pixels) : nullptr;
}

void PixbufPictureLoader::load(std::vector<std::byte> bytes, Answer answer) {
  dispatcher_.post([bytes = std::move(bytes), answer = std::move(answer)] { answer(decodePicture(bytes)); });
}

}  // namespace tessera
