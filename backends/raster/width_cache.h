// The widths of very long texts.

#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>

namespace tessera {

class Font;

// A text that does not begin at the left of its cell must be measured as a whole whenever it is drawn, though
// little of it shows. Texts are known by a 64-bit hash and their length, so that none is kept. When the cache
// is full all widths are forgotten at once.
class WidthCache {
 public:
  // From this many units on a text is measured more slowly than it is hashed and looked up.
  static constexpr std::size_t longText = 4096;
  static constexpr std::size_t maxTexts = 1024;

  // The kept width, or the one that measure() returns.
  template <class Measure>
  std::int32_t find(const Font& font, std::u16string_view text, Measure measure) {
    const Key key{&font, std::hash<std::u16string_view>{}(text), text.size()};
    const auto found = widths_.find(key);
    if (found != widths_.end()) return found->second;
    const std::int32_t width = measure();
    if (widths_.size() >= maxTexts) widths_.clear();
    widths_.emplace(key, width);
    return width;
  }

  // Must be called before a font ends.
  void clear() { widths_.clear(); }
  std::size_t size() const { return widths_.size(); }

 private:
  struct Key {
    const Font* font;
    std::size_t hash;
    std::size_t length;
    bool operator==(const Key&) const = default;
  };
  struct Hash {
    std::size_t operator()(const Key& key) const {
      return key.hash ^ std::hash<const Font*>{}(key.font) * 31;
    }
  };

  std::unordered_map<Key, std::int32_t, Hash> widths_;
};

}  // namespace tessera
