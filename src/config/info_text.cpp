#include "config/info_text.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace tessera {
namespace {

constexpr std::u16string_view sectionStart = u"<![CDATA[";
constexpr std::u16string_view sectionEnd = u"]]>";
constexpr std::size_t none = std::u16string_view::npos;

// The index of the ">" that ends the run which starts at `begin`: the first one that is followed by white
// space and a "<", or by nothing more.
std::size_t findRunEnd(std::u16string_view text, std::size_t begin) {
  std::size_t end = text.find(u'>', begin);
  if (end == none) return none;
  for (std::size_t at = end + 1; at < text.size(); ++at) {
    if (text[at] == u'\0' || text[at] == u'<') break;
    if (isWideSpace(text[at])) continue;
    end = text.find(u'>', at);
    if (end == none) return none;
    at = end;
  }
  return end;
}

// Nothing when the text has an unfinished part.
std::optional<std::u16string> repair(std::u16string_view text) {
  std::u16string out;
  out.reserve(text.size());
  std::size_t position = 0;
  while ((position = text.find(u'<', position)) != none) {
    const std::size_t begin = position;
    if (text.substr(begin).starts_with(sectionStart)) {
      const std::size_t end = text.find(sectionEnd, begin);
      if (end == none) return std::nullopt;
      position = end + sectionEnd.size() - 1;
      out.append(text.substr(begin, position - begin + 1));
      continue;
    }
    position = findRunEnd(text, begin);
    if (position == none) return std::nullopt;
    out.append(removeDuplicateAttributes(text.substr(begin, position - begin + 1)));
  }
  return out;
}

}  // namespace

bool isWideSpace(char16_t unit) {
  if (unit < 0x80) return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
  if (unit >= 0x2000 && unit <= 0x200A) return true;
  static constexpr char16_t spaces[] = {0x0085, 0x00A0, 0x1680, 0x2028, 0x2029, 0x202F, 0x205F, 0x3000};
  return std::find(std::begin(spaces), std::end(spaces), unit) != std::end(spaces);
}

XString normalizeInfoText(const XString& text) {
  const std::optional<std::u16string> repaired = repair(text);
  return repaired ? XString(std::u16string_view(*repaired)) : text;
}

}  // namespace tessera
