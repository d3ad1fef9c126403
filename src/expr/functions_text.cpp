// Functions on texts: parts, case, padding. Positions count code units, from 1.

#include <algorithm>

#include "expr/ascii.h"
#include "expr/date_text.h"
#include "expr/function_handlers.h"
#include "shared/change_type.h"
#include "shared/number_text.h"

namespace tessera::expr_function {
namespace {

using View = std::u16string_view;

std::int64_t sizeOf(View text) { return static_cast<std::int64_t>(text.size()); }

// Start, from 0, and count are clamped into the text.
View mid(View text, std::int64_t start, std::int64_t count) {
  start = std::clamp<std::int64_t>(start, 0, sizeOf(text));
  count = std::clamp<std::int64_t>(count, 0, sizeOf(text) - start);
  return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count));
}

View firstOf(View text, std::int64_t count) { return mid(text, 0, count); }

View lastOf(View text, std::int64_t count) {
  count = std::clamp<std::int64_t>(count, 0, sizeOf(text));
  return mid(text, sizeOf(text) - count, count);
}

char16_t* put(char16_t* place, View text) { return std::copy(text.begin(), text.end(), place); }

template <char16_t (*fold)(char16_t)>
const XValue* folded(ExprCall& call) {
  const ExprText text = call.text(0);
  return call.giveWrittenText(text.length(), [&](char16_t* place) {
    std::transform(text.view().begin(), text.view().end(), place, fold);
  });
}

// Whether the first character exists and fits.
template <class Fits>
const XValue* testFirst(ExprCall& call, Fits fits) {
  const ExprText text = call.text(0);
  return call.giveLogical(text.length() > 0 && fits(text.view().front()));
}

// The value as padding takes it: by its type at run time.
XString paddedText(const XExprContext& context, const XValue& value) {
  XString text;
  switch (value.type()) {
    case VT_R8:
      text.format("%.0f", withoutNanSign(value.asDouble()));
      return text;
    case VT_DATE:
      return userDateText(context, value.asDouble());
    case VT_BSTR:
      return value.asText();
    case VT_BOOL:
      return value.asRawBool() == VARIANT_TRUE ? u".T." : u".F.";
    default:
      return text;
  }
}

// The first `count` units of `pad` repeated without end, from its unit `start` on.
char16_t* putPadding(char16_t* place, View pad, std::int64_t start, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) {
    *place++ = pad[static_cast<std::size_t>((start + i) % sizeOf(pad))];
  }
  return place;
}

// Checks what all three paddings share, and hands over to pad(text, padding, width).
template <class Pad>
const XValue* padded(ExprCall& call, Pad pad) {
  const ExprText padding = call.text(2);
  if (padding.length() == 0) return call.failArguments();
  const XString text = paddedText(call.context(), call.value(0));
  const std::int64_t width = call.integer(1);
  if (width <= text.length()) return call.giveText(firstOf(text, width));
  return pad(text.view(), padding.view(), width);
}

}  // namespace

const XValue* allTrim(ExprCall& call) { return call.giveText(trimLeft(trimRight(call.text(0)))); }
const XValue* leftTrim(ExprCall& call) { return call.giveText(trimLeft(call.text(0))); }
const XValue* rightTrim(ExprCall& call) { return call.giveText(trimRight(call.text(0))); }

const XValue* asc(ExprCall& call) {
  const ExprText text = call.text(0);
  return call.giveNumber(text.length() == 0 ? 0 : text.view().front());
}

// A code is a signed byte: from 128 on it becomes one of the last 128 code units.
const XValue* chr(ExprCall& call) {
  const auto unit = static_cast<char16_t>(static_cast<std::int8_t>(call.integer(0)));
  return call.giveText({&unit, 1});
}

const XValue* left(ExprCall& call) { return call.giveText(firstOf(call.text(0), call.integer(1))); }
const XValue* right(ExprCall& call) { return call.giveText(lastOf(call.text(0), call.integer(1))); }

const XValue* subStr(ExprCall& call) {
  const ExprText text = call.text(0);
  const std::int64_t start = std::int64_t{call.integer(1)} - 1;
  const std::int64_t length = call.integer(2);
  return call.giveText(mid(text, start, length > 0 ? length : text.length()));
}

const XValue* stuff(ExprCall& call) {
  const ExprText text = call.text(0);
  const ExprText insert = call.text(3);
  const std::int64_t start = call.integer(1);
  const View head = firstOf(text, start - 1);
  const View tail = lastOf(text, text.length() - std::int64_t{call.integer(2)} + 1 - start);
  return call.giveWrittenText(sizeOf(head) + insert.length() + sizeOf(tail),
                              [&](char16_t* place) { put(put(put(place, head), insert), tail); });
}

const XValue* len(ExprCall& call) { return call.giveNumber(call.text(0).length()); }
const XValue* lower(ExprCall& call) { return folded<lowerUnit>(call); }
const XValue* upper(ExprCall& call) { return folded<upperUnit>(call); }

const XValue* isAlpha(ExprCall& call) {
  return testFirst(call, [](char16_t unit) { return upperUnit(unit) >= u'A' && upperUnit(unit) <= u'Z'; });
}
const XValue* isDigit(ExprCall& call) {
  return testFirst(call, [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
}
const XValue* isLower(ExprCall& call) {
  return testFirst(call, [](char16_t unit) { return lowerUnit(unit) == unit; });
}
const XValue* isUpper(ExprCall& call) {
  return testFirst(call, [](char16_t unit) { return upperUnit(unit) == unit; });
}

// Copies with a blank between them.
const XValue* replicate(ExprCall& call) {
  const ExprText text = call.text(0);
  const std::int64_t count = std::max(call.integer(1), 0);
  return call.giveMadeText(count * (text.length() + std::int64_t{1}) - 1, [&](char16_t* place) {
    place = put(place, text);
    for (std::int64_t copy = 1; copy < count; ++copy) {
      *place++ = u' ';
      place = put(place, text);
    }
  });
}

const XValue* space(ExprCall& call) {
  const std::int32_t count = call.integer(0);
  return call.giveMadeText(count, [count](char16_t* place) { std::fill_n(place, count, u' '); });
}

// Padding goes behind and in front by turns, behind first; what is too long by then is cut at the end.
const XValue* padC(ExprCall& call) {
  return padded(call, [&call](View text, View pad, std::int64_t width) {
    const std::int64_t copies = (width - sizeOf(text) + sizeOf(pad) - 1) / sizeOf(pad);
    const std::int64_t front = copies / 2 * sizeOf(pad);
    return call.giveMadeText(width, [&](char16_t* place) {
      place = put(putPadding(place, pad, 0, front), text);
      putPadding(place, pad, 0, width - front - sizeOf(text));
    });
  });
}

// Whole copies of the padding go in front, and the last `width` units stay.
const XValue* padL(ExprCall& call) {
  return padded(call, [&call](View text, View pad, std::int64_t width) {
    const std::int64_t front = width - sizeOf(text);
    const std::int64_t cut = (sizeOf(pad) - front % sizeOf(pad)) % sizeOf(pad);
    return call.giveMadeText(width, [&](char16_t* place) { put(putPadding(place, pad, cut, front), text); });
  });
}

const XValue* padR(ExprCall& call) {
  return padded(call, [&call](View text, View pad, std::int64_t width) {
    return call.giveMadeText(
        width, [&](char16_t* place) { putPadding(put(place, text), pad, 0, width - sizeOf(text)); });
  });
}

}  // namespace tessera::expr_function
