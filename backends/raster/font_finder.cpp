#include "backends/raster/font_finder.h"

#include <fontconfig/fontconfig.h>

// Only there in a process that runs under a leak checker.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
[[gnu::weak]] void __lsan_disable();
[[gnu::weak]] void __lsan_enable();
}
// NOLINTEND(bugprone-reserved-identifier)

namespace tessera {
namespace {

constexpr const char* defaultFace = "DejaVu Sans";

struct Release {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
  void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};

// Fontconfig loses a few hundred bytes, once, while it reads its configuration; they must not hide leaks of
// ours behind a suppression of the whole library.
bool readConfiguration() {
  if (__lsan_disable) __lsan_disable();
  const bool read = FcInit();
  if (__lsan_enable) __lsan_enable();
  return read;
}

const FcChar8* utf8(const char* text) { return reinterpret_cast<const FcChar8*>(text); }

std::unique_ptr<FcPattern, Release> patternOf(const std::string& face, bool bold, bool italic) {
  std::unique_ptr<FcPattern, Release> pattern(FcPatternCreate());
  if (!face.empty()) FcPatternAddString(pattern.get(), FC_FAMILY, utf8(face.c_str()));
  FcPatternAddString(pattern.get(), FC_FAMILY, utf8(defaultFace));
  FcPatternAddInteger(pattern.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(pattern.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  // Otherwise the process's locale would decide between faces.
  FcPatternAddString(pattern.get(), FC_LANG, utf8("en"));
  FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
  FcDefaultSubstitute(pattern.get());
  return pattern;
}

std::unique_ptr<FcFontSet, Release> sortedSet(FcPattern* pattern) {
  FcResult result = FcResultNoMatch;
  return std::unique_ptr<FcFontSet, Release>(FcFontSort(nullptr, pattern, FcTrue, nullptr, &result));
}

int integerOf(const FcPattern* pattern, const char* property, int otherwise) {
  int value = otherwise;
  return FcPatternGetInteger(pattern, property, 0, &value) == FcResultMatch ? value : otherwise;
}

}  // namespace

struct FontList::Set {
  std::unique_ptr<FcFontSet, Release> fonts;

  const FcPattern* at(std::size_t place) const { return fonts->fonts[place]; }
};

FontList::FontList(const std::string& face, bool bold, bool italic)
    : set_(std::make_unique<Set>()), bold_(bold), italic_(italic) {
  static const bool configured = readConfiguration();
  if (!configured) return;
  const auto pattern = patternOf(face, bold, italic);
  set_->fonts = sortedSet(pattern.get());
}

FontList::~FontList() = default;

std::size_t FontList::size() const { return set_->fonts ? static_cast<std::size_t>(set_->fonts->nfont) : 0; }

FontFile FontList::file(std::size_t place) const {
  const FcPattern* pattern = set_->at(place);
  FontFile file;
  FcChar8* path = nullptr;
  if (FcPatternGetString(pattern, FC_FILE, 0, &path) == FcResultMatch) {
    file.path = reinterpret_cast<const char*>(path);
  }
  // The upper half names an instance of a variable font; its default instance will do.
  file.index = integerOf(pattern, FC_INDEX, 0) & 0xFFFF;
  file.embolden = bold_ && integerOf(pattern, FC_WEIGHT, FC_WEIGHT_REGULAR) < FC_WEIGHT_DEMIBOLD;
  file.slant = italic_ && integerOf(pattern, FC_SLANT, FC_SLANT_ROMAN) == FC_SLANT_ROMAN;
  return file;
}

bool FontList::covers(std::size_t place, char32_t codePoint) const {
  FcCharSet* characters = nullptr;
  return FcPatternGetCharSet(set_->at(place), FC_CHARSET, 0, &characters) == FcResultMatch &&
         FcCharSetHasChar(characters, codePoint);
}

}  // namespace tessera
