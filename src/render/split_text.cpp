#include "render/split_text.h"

#include <string>

namespace tessera {
namespace {

std::u16string_view trimmed(std::u16string_view item, std::u16string_view trimSet) {
  const std::size_t first = item.find_first_not_of(trimSet);
  if (first == std::u16string_view::npos) return {};
  return item.substr(first, item.find_last_not_of(trimSet) - first + 1);
}

// The end of the first item of `rest`, npos when it is the last one. Takes escapes, and delimiters that do
// not count, out of `rest`.
std::size_t itemEnd(std::u16string& rest, std::u16string_view delimiter, char16_t escape) {
  std::size_t at = rest.find(delimiter);
  while (at != std::u16string::npos) {
    if (escape == 0 && at == 0) {
      rest.erase(0, delimiter.size());
      at = rest.find(delimiter);
    } else if (escape != 0 && at > 0 && rest[at - 1] == escape) {
      rest.erase(at - 1, 1);
      at = rest.find(delimiter, at - 1 + delimiter.size());
    } else {
      return at;
    }
  }
  return at;
}

}  // namespace

std::int32_t splitText(std::vector<XString>& list, std::u16string_view text, std::u16string_view delimiter,
                       std::u16string_view trimSet, char16_t escape) {
  list.clear();
  std::u16string rest(text);
  for (;;) {
    const std::size_t end = delimiter.empty() ? std::u16string::npos : itemEnd(rest, delimiter, escape);
    list.emplace_back(trimmed(std::u16string_view(rest).substr(0, end), trimSet));
    if (end == std::u16string::npos) return static_cast<std::int32_t>(list.size());
    rest.erase(0, end + delimiter.size());
  }
}

bool CaptionLines::next(std::u16string_view& line) {
  if (done_) return false;
  while (rest_.starts_with(u';')) rest_.remove_prefix(1);
  const std::size_t end = rest_.find(u';');
  line = rest_.substr(0, end);
  done_ = end == std::u16string_view::npos;
  if (!done_) rest_.remove_prefix(end + 1);
  return true;
}

std::int32_t CaptionLines::count(std::u16string_view text) {
  std::int32_t lines = 0;
  CaptionLines all(text);
  for (std::u16string_view line; all.next(line);) ++lines;
  return lines;
}

}  // namespace tessera
