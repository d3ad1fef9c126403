#include "interaction/edit_filter.h"

#include <algorithm>
#include <string>

#include "config/child_spec.h"
#include "interaction/keys.h"
#include "shared/rect.h"

namespace tessera {
namespace {

constexpr char16_t point = u'.', minus = u'-', deleteCharacter = 127;

bool holds(std::u16string_view text, char16_t character) {
  return text.find(character) != std::u16string_view::npos;
}

// What the limit counts. Only a box that is numeric and nothing else spares its point or its minus.
std::int32_t countedLength(std::u16string_view text, std::int32_t inputType) {
  const auto length = static_cast<std::int32_t>(text.size());
  const bool spares = inputType == input_type::numeric && (holds(text, point) || holds(text, minus));
  return spares ? length - 1 : length;
}

bool isHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
bool isLowSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

// Half a character must not get in: its first half comes when both have room, its second half behind the
// first.
bool hasRoom(std::u16string_view rest, std::int32_t place, char16_t character, const EditRules& rules) {
  const std::int64_t counted = countedLength(rest, rules.inputType);
  const auto before = static_cast<std::size_t>(place);
  if (isLowSurrogate(character) && (place == 0 || !isHighSurrogate(rest[before - 1]))) return false;
  return counted + (isHighSurrogate(character) ? 2 : 1) <= rules.limit;
}

XString cut(const XString& text, std::int32_t length) {
  if (length >= text.length()) return text;
  const bool splits =
      length > 0 && isHighSurrogate(text.charAt(length - 1)) && isLowSurrogate(text.charAt(length));
  return text.left(splits ? length - 1 : length);
}

bool isNumberPart(std::u16string_view text, std::int32_t decimals) {
  if (text.find(minus, 1) != std::u16string_view::npos) return false;
  if (text.starts_with(point) || text.starts_with(u"-.")) return false;
  const std::size_t place = text.find(point);
  if (place == std::u16string_view::npos) return true;
  const std::u16string_view fraction = text.substr(place + 1);
  return !holds(fraction, point) && static_cast<std::int64_t>(fraction.size()) <= decimals;
}

bool mayEnterNumber(std::u16string text, std::size_t place, char16_t character, std::int32_t decimals) {
  const bool isDigit = character >= u'0' && character <= u'9';
  if (!isDigit && character != minus && character != point) return false;
  if (character == point && decimals < 1) return false;
  text.insert(place, 1, character);
  return isNumberPart(text, decimals);
}

}  // namespace

bool mayEnter(std::u16string_view text, Selection selection, char16_t character, const EditRules& rules) {
  if (character == key::backspace) return true;
  if (character < key::space || character == deleteCharacter) return false;
  const auto length = static_cast<std::int32_t>(text.size());
  const std::int32_t start = std::clamp(std::min(selection.start, selection.end), 0, length);
  const std::int32_t end = std::clamp(std::max(selection.start, selection.end), start, length);
  std::u16string rest(text);
  rest.erase(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
  if (!hasRoom(rest, start, character, rules)) return false;
  if ((rules.inputType & input_type::numeric) == 0) return true;
  return mayEnterNumber(std::move(rest), static_cast<std::size_t>(start), character, rules.decimals);
}

XString fittingText(const XString& text, bool numeric, const EditRules& rules) {
  XString fitting = text;
  const std::int32_t place = text.find(point);
  if (numeric && place >= 0) {
    const std::int64_t kept = std::int64_t{place} + 1 + std::max(rules.decimals, -1);
    fitting = cut(text, clampToInt(kept));
  }
  const std::int32_t sparedPoint = numeric && fitting.find(point) >= 0 && place < rules.limit ? 1 : 0;
  const std::int64_t room = std::int64_t{rules.limit} + sparedPoint;
  return cut(fitting, clampToInt(room));
}

}  // namespace tessera
