#include "cells/split_text.h"

#include <string>

namespace tessera {
namespace {

std::u16string_view trimmed(std::u16string_view item, std::u16string_view trimSet) {
  const std::size_t first = item.find_first_not_of(trimSet);
  if (first == std::u16string_view::npos) return {};
  return item.substr(first, item.find_last_not_of(trimSet) - first + 1);
}

// Takes the first item from `rest` into `item`, without its escapes, and the delimiter behind it. False for
// the last item.
bool takeItem(std::u16string_view& rest, std::u16string_view delimiter, char16_t escape,
              std::u16string& item) {
  item.clear();
  std::size_t taken = 0;
  std::size_t at = rest.find(delimiter);
  while (at != std::u16string_view::npos) {
    if (escape == 0 && at == 0) {
      rest.remove_prefix(delimiter.size());
      at = rest.find(delimiter);
    } else if (escape != 0 && at > 0 && rest[at - 1] == escape) {
      item.append(rest.substr(taken, at - 1 - taken));
      taken = at;
      at = rest.find(delimiter, at + delimiter.size());
    } else {
      item.append(rest.substr(taken, at - taken));
      rest.remove_prefix(at + delimiter.size());
      return true;
    }
  }
  item.append(rest.substr(taken));
  return false;
}

}  // namespace

std::int32_t splitText(std::vector<XString>& list, std::u16string_view text, std::u16string_view delimiter,
                       std::u16string_view trimSet, char16_t escape) {
  list.clear();
  std::u16string item(text);
  if (!delimiter.empty()) {
    while (takeItem(text, delimiter, escape, item)) list.emplace_back(trimmed(item, trimSet));
  }
  list.emplace_back(trimmed(item, trimSet));
  return static_cast<std::int32_t>(list.size());
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
