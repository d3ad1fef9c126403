// Functions that look for texts in texts.

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

#include "expr/ascii.h"
#include "expr/function_handlers.h"

namespace tessera::expr_function {
namespace {

using View = std::u16string_view;

// The place, from 1, of the n-th occurrence; occurrences may overlap.
std::int32_t placeOf(View search, View text, std::int32_t n) {
  std::size_t place = 0;
  for (std::int32_t i = 0; i < n; ++i) {
    const std::size_t found = text.find(search, place);
    if (found == View::npos) return 0;
    place = found + 1;
  }
  return static_cast<std::int32_t>(place);
}

XString upperOf(View text) {
  std::u16string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(), upperUnit);
  return XString(folded);
}

// Wildcard match without recursion: when a character does not match, the last run of "*" takes one more.
bool matches(View pattern, View text) {
  std::size_t p = 0;
  std::size_t t = 0;
  std::optional<std::size_t> star;  // place in the pattern
  std::size_t taken = 0;            // where the star's share of the text ends
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == u'*') {
      star = p++;
      taken = t;
    } else if (p < pattern.size() && (pattern[p] == u'?' || pattern[p] == text[t])) {
      ++p;
      ++t;
    } else if (star) {
      p = *star + 1;
      t = ++taken;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(u'*', p) == View::npos;
}

constexpr std::int32_t notFound = -1;

// Where a character stands in a text. A long text is taken apart once, so that no pair of texts takes the
// product of their lengths.
class CharacterPlaces {
 public:
  explicit CharacterPlaces(View text) : text_(text) {
    constexpr std::size_t shortText = 64;
    if (text.size() <= shortText) return;
    places_ = std::make_unique<Places>();
    places_->fill(notFound);
    for (std::size_t i = text.size(); i-- > 0;) (*places_)[text[i]] = static_cast<std::int32_t>(i);
  }
  std::int32_t operator[](char16_t unit) const {
    if (places_) return (*places_)[unit];
    const std::size_t found = text_.find(unit);
    return found == View::npos ? notFound : static_cast<std::int32_t>(found);
  }

 private:
  using Places = std::array<std::int32_t, 0x10000>;
  View text_;
  std::unique_ptr<Places> places_;
};

// Replaces up to `count` occurrences from `start` on, from 0, giving piece(text) each part of the result.
// False when there was no occurrence.
template <class Piece>
bool replacePieces(View text, View search, View replacement, std::int64_t start, std::int64_t count,
                   Piece piece) {
  const auto size = static_cast<std::int64_t>(text.size());
  const std::int64_t first = std::max<std::int64_t>(start, 0);
  std::int64_t place = first;
  bool found = false;
  for (; place < size && count > 0; --count) {
    const std::size_t match = text.find(search, static_cast<std::size_t>(place));
    if (match == View::npos) break;
    found = true;
    piece(text.substr(static_cast<std::size_t>(place), match - static_cast<std::size_t>(place)));
    piece(replacement);
    place = static_cast<std::int64_t>(match + search.size());
  }
  if (found) piece(text.substr(static_cast<std::size_t>(std::min(place, size))));
  return found;
}

}  // namespace

const XValue* at(ExprCall& call) {
  return call.giveNumber(placeOf(call.text(0), call.text(1), call.integer(2)));
}

const XValue* atC(ExprCall& call) {
  return call.giveNumber(placeOf(upperOf(call.text(0)), upperOf(call.text(1)), call.integer(2)));
}

// Occurrences do not overlap; the empty text never occurs.
const XValue* occurs(ExprCall& call) {
  const ExprText search = call.text(0);
  const ExprText text = call.text(1);
  std::int32_t count = 0;
  if (search.length() == 0) return call.giveNumber(0);
  for (std::size_t place = text.view().find(search); place != View::npos;
       place = text.view().find(search, place + search.view().size())) {
    ++count;
  }
  return call.giveNumber(count);
}

const XValue* like(ExprCall& call) { return call.giveLogical(matches(call.text(0), call.text(1))); }

// A character with no partner in the third text goes.
const XValue* chrTran(ExprCall& call) {
  const ExprText text = call.text(0);
  const ExprText from = call.text(1);
  const ExprText to = call.text(2);
  const CharacterPlaces places(from);
  XString& buffer = call.beginText();
  char16_t* const begin = buffer.reserve(text.length());
  if (!begin) return call.failArguments();
  char16_t* place = begin;
  for (const char16_t unit : text.view()) {
    const std::int32_t index = places[unit];
    if (index < to.length()) *place++ = index == notFound ? unit : to.view()[static_cast<std::size_t>(index)];
  }
  buffer.releaseBuffer(static_cast<std::int32_t>(place - begin));
  return call.endText();
}

// What stands before the start is no part of the result, unless nothing was found.
const XValue* strTran(ExprCall& call) {
  const ExprText text = call.text(0);
  const ExprText search = call.text(1);
  const ExprText replacement = call.text(2);
  const std::int64_t start = std::int64_t{call.integer(3)} - 1;
  std::int64_t count = call.integer(4) < 0 ? text.length() : call.integer(4);
  // The empty text is found again and again at the same place.
  if (search.length() == 0) count = replacement.length() == 0 ? 0 : std::min(count, maxMadeText + 1);
  const auto replace = [&](auto piece) {
    return replacePieces(text, search, replacement, start, count, piece);
  };
  std::int64_t length = 0;
  if (!replace([&length](View part) { length += static_cast<std::int64_t>(part.size()); })) {
    return call.giveText(text);
  }
  return call.giveMadeText(length, [&](char16_t* place) {
    replace([&place](View part) { place = std::copy(part.begin(), part.end(), place); });
  });
}

}  // namespace tessera::expr_function
