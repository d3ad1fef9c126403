#include "backends/raster/bidi_levels.h"

#include <hb.h>

namespace tessera {
namespace {

enum class Bidi : std::uint8_t {
  Left,
  Right,
  Number,        // takes the direction of its surroundings
  ArabicNumber,  // always a number within right to left
  Separator,     // belongs to the numbers on both sides of it
  NumberSign,    // belongs to a number next to it
  Mark,          // as the character before
  Neutral,
};

Bidi signClass(char32_t codePoint) {
  switch (codePoint) {
    case U'+':
    case U'-':
    case U',':
    case U'.':
    case U'/':
    case U':':
      return Bidi::Separator;
    case U'#':
    case U'%':
      return Bidi::NumberSign;
    case 0x200E:
      return Bidi::Left;
    case 0x200F:
    case 0x061C:
      return Bidi::Right;
    default:
      return Bidi::Neutral;
  }
}

bool isMark(hb_unicode_general_category_t category) {
  return category == HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK ||
         category == HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK;
}

bool isLetter(hb_unicode_general_category_t category) {
  return category >= HB_UNICODE_GENERAL_CATEGORY_LOWERCASE_LETTER &&
         category <= HB_UNICODE_GENERAL_CATEGORY_UPPERCASE_LETTER;
}

Bidi classOf(char32_t codePoint) {
  hb_unicode_funcs_t* const unicode = hb_unicode_funcs_get_default();
  const hb_unicode_general_category_t category = hb_unicode_general_category(unicode, codePoint);
  if (isMark(category)) return Bidi::Mark;
  const hb_script_t script = hb_unicode_script(unicode, codePoint);
  const bool rightToLeft = hb_script_get_horizontal_direction(script) == HB_DIRECTION_RTL;
  if (category == HB_UNICODE_GENERAL_CATEGORY_DECIMAL_NUMBER) {
    const bool arabic = codePoint >= 0x0660 && codePoint <= 0x0669;
    if (arabic) return Bidi::ArabicNumber;
    const bool european = codePoint < 0x80 || (codePoint >= 0x06F0 && codePoint <= 0x06F9);
    return european ? Bidi::Number : rightToLeft ? Bidi::Right : Bidi::Left;
  }
  if (category == HB_UNICODE_GENERAL_CATEGORY_CURRENCY_SYMBOL) return Bidi::NumberSign;
  if (script == HB_SCRIPT_COMMON || script == HB_SCRIPT_INHERITED || script == HB_SCRIPT_UNKNOWN) {
    return isLetter(category) ? Bidi::Left : signClass(codePoint);
  }
  if (rightToLeft) return Bidi::Right;
  return isLetter(category) || category == HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK ? Bidi::Left
                                                                                    : Bidi::Neutral;
}

using Classes = std::vector<Bidi>;

bool isNumber(Bidi value) { return value == Bidi::Number || value == Bidi::ArabicNumber; }

void joinMarks(Classes& classes) {
  Bidi previous = Bidi::Left;
  for (Bidi& value : classes) {
    if (value == Bidi::Mark) value = previous;
    previous = value;
  }
}

void joinSeparators(Classes& classes) {
  for (std::size_t i = 1; i + 1 < classes.size(); ++i) {
    if (classes[i] == Bidi::Separator && isNumber(classes[i - 1]) && classes[i - 1] == classes[i + 1]) {
      classes[i] = classes[i - 1];
    }
  }
}

void joinNumberSigns(Classes& classes) {
  const auto join = [&](std::size_t from, std::size_t to) {
    if (classes[from] == Bidi::Number && classes[to] == Bidi::NumberSign) classes[to] = Bidi::Number;
  };
  for (std::size_t i = 1; i < classes.size(); ++i) join(i - 1, i);
  for (std::size_t i = classes.size(); i-- > 1;) join(i, i - 1);
}

// Numbers after left-to-right text are part of it.
void joinNumbersToText(Classes& classes) {
  Bidi strong = Bidi::Left;
  for (Bidi& value : classes) {
    if (value == Bidi::Left || value == Bidi::Right) strong = value;
    if (value == Bidi::Number && strong == Bidi::Left) value = Bidi::Left;
  }
}

bool isStrongOrNumber(Bidi value) { return value == Bidi::Left || value == Bidi::Right || isNumber(value); }

// What stands between two stretches of right-to-left text goes with them, all else with the line.
void joinNeutrals(Classes& classes) {
  const auto towards = [&](bool inside, std::size_t place) {
    return inside && classes[place] != Bidi::Left ? Bidi::Right : Bidi::Left;
  };
  for (std::size_t i = 0; i < classes.size();) {
    std::size_t end = i;
    while (end < classes.size() && !isStrongOrNumber(classes[end])) ++end;
    if (end == i) {
      ++i;
      continue;
    }
    const bool right =
        towards(i > 0, i - 1) == Bidi::Right && towards(end < classes.size(), end) == Bidi::Right;
    for (; i < end; ++i) classes[i] = right ? Bidi::Right : Bidi::Left;
  }
}

std::uint8_t levelOf(Bidi value) { return isNumber(value) ? 2 : value == Bidi::Right ? 1 : 0; }

}  // namespace

void bidiLevels(std::u32string_view text, std::vector<std::uint8_t>& levels) {
  Classes classes;
  classes.reserve(text.size());
  for (const char32_t codePoint : text) classes.push_back(classOf(codePoint));
  joinMarks(classes);
  joinSeparators(classes);
  joinNumberSigns(classes);
  joinNumbersToText(classes);
  joinNeutrals(classes);
  levels.clear();
  for (const Bidi value : classes) levels.push_back(levelOf(value));
}

}  // namespace tessera
