// One line of text with a selection and a caret.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessera {

// Places are counted in code units and brought into the text; a pair of surrogates is never taken apart by a
// step of the caret.
class EditLine {
 public:
  const std::u16string& text() const { return text_; }
  std::int32_t length() const { return static_cast<std::int32_t>(text_.size()); }
  std::int32_t start() const { return anchor_ < caret_ ? anchor_ : caret_; }
  std::int32_t end() const { return anchor_ < caret_ ? caret_ : anchor_; }
  std::int32_t caret() const { return caret_; }

  // The caret goes to the start.
  void setText(std::u16string_view text);
  // The caret goes to `end`; -1 is the end of the text.
  void select(std::int32_t start, std::int32_t end);
  void moveTo(std::int32_t place, bool extend);
  // With a selection and no `extend` the caret goes to the side of the selection.
  void stepLeft(bool extend);
  void stepRight(bool extend);
  // The run of blanks, or of other characters, around `place`.
  void selectWord(std::int32_t place);

  // All three take the selection out when there is one.
  void insert(char16_t character);
  void removeBefore();
  void removeAfter();

 private:
  std::int32_t before(std::int32_t place) const;
  std::int32_t after(std::int32_t place) const;
  std::int32_t inside(std::int32_t place) const;
  void removeSelection();

  std::u16string text_;
  std::int32_t anchor_ = 0;
  std::int32_t caret_ = 0;
};

}  // namespace tessera
