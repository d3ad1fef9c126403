// Which font files show a description, by Fontconfig.

#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tessera {

// A face in a file, and what it lacks of the wanted style.
struct FontFile {
  std::string path;
  std::int32_t index = 0;
  bool embolden = false;  // bold was wanted and the face is not
  bool slant = false;     // italic was wanted and the face is upright
};

// The installed faces in order of likeness to a wanted one; those that add no character to the ones before
// them are left out. The order depends on the installed packages only, not on the user's language.
class FontList {
 public:
  // `face` is UTF-8; DejaVu Sans stands in for an empty or unknown one.
  FontList(const std::string& face, bool bold, bool italic);
  ~FontList();
  FontList(const FontList&) = delete;
  FontList& operator=(const FontList&) = delete;

  std::size_t size() const;
  FontFile file(std::size_t place) const;
  bool covers(std::size_t place, char32_t codePoint) const;

 private:
  struct Set;
  std::unique_ptr<Set> set_;
  bool bold_;
  bool italic_;
};

}  // namespace tessera
