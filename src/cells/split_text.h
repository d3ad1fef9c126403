// Texts cut at a delimiter.

#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <tessera/xstring.h>

namespace tessera {

// Empties `list` and fills it with the items of `text`; the result is their number. An `escape` right before
// a delimiter takes the split away and goes from the text. Characters of `trimSet` go from both ends of an
// item. Without an escape (0) a delimiter at the very start of what is left of the text is dropped. An empty
// text gives one empty item; an empty delimiter splits nothing.
std::int32_t splitText(std::vector<XString>& list, std::u16string_view text, std::u16string_view delimiter,
                       std::u16string_view trimSet, char16_t escape);

// The lines of a header's caption, as splitText() cuts it at ";" without trimming and escape. The lines are
// parts of the text, so nothing is allocated.
class CaptionLines {
 public:
  explicit CaptionLines(std::u16string_view text) : rest_(text) {}

  // The next line; false when there is none left.
  bool next(std::u16string_view& line);
  static std::int32_t count(std::u16string_view text);

 private:
  std::u16string_view rest_;
  bool done_ = false;
};

}  // namespace tessera
