#include "backends/headless/edit_line.h"

#include <algorithm>

namespace tessera {

namespace {

bool isHigh(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
bool isLow(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

std::size_t at(std::int32_t place) { return static_cast<std::size_t>(place); }

}  // namespace

std::int32_t EditLine::inside(std::int32_t place) const { return std::clamp(place, 0, length()); }

std::int32_t EditLine::before(std::int32_t place) const {
  if (place >= 2 && isLow(text_[at(place - 1)]) && isHigh(text_[at(place - 2)])) return place - 2;
  return inside(place - 1);
}

std::int32_t EditLine::after(std::int32_t place) const {
  if (place + 1 < length() && isHigh(text_[at(place)]) && isLow(text_[at(place + 1)])) return place + 2;
  return inside(place + 1);
}

void EditLine::setText(std::u16string_view text) {
  text_ = text;
  anchor_ = caret_ = 0;
}

void EditLine::select(std::int32_t start, std::int32_t end) {
  anchor_ = inside(start);
  caret_ = end < 0 ? length() : inside(end);
}

void EditLine::moveTo(std::int32_t place, bool extend) {
  caret_ = inside(place);
  if (!extend) anchor_ = caret_;
}

void EditLine::stepLeft(bool extend) {
  moveTo(!extend && anchor_ != caret_ ? start() : before(caret_), extend);
}

void EditLine::stepRight(bool extend) {
  moveTo(!extend && anchor_ != caret_ ? end() : after(caret_), extend);
}

void EditLine::selectWord(std::int32_t place) {
  if (text_.empty()) return;
  const std::int32_t inner = std::min(inside(place), length() - 1);
  const bool blank = text_[at(inner)] == u' ';
  const auto belongs = [this, blank](std::int32_t i) { return (text_[at(i)] == u' ') == blank; };
  anchor_ = inner;
  while (anchor_ > 0 && belongs(anchor_ - 1)) --anchor_;
  caret_ = inner;
  while (caret_ < length() && belongs(caret_)) ++caret_;
}

void EditLine::removeSelection() {
  const std::int32_t from = start();
  text_.erase(at(from), at(end() - from));
  anchor_ = caret_ = from;
}

void EditLine::insert(char16_t character) {
  removeSelection();
  text_.insert(at(caret_), 1, character);
  anchor_ = ++caret_;
}

void EditLine::removeBefore() {
  if (anchor_ == caret_) anchor_ = before(caret_);
  removeSelection();
}

void EditLine::removeAfter() {
  if (anchor_ == caret_) anchor_ = after(caret_);
  removeSelection();
}

}  // namespace tessera
