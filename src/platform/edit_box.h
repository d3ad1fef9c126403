// The edit window port.

#pragma once

#include <cstdint>
#include <string_view>

#include <tessera/xstring.h>

#include "shared/log_font.h"
#include "shared/rect.h"

namespace tessera {

enum class LetterCase { AsTyped, Upper, Lower };

// Where the keyboard focus went.
enum class FocusTarget { GridWindow, Elsewhere };

// Who an edit box asks and tells. Key codes are those of the messages (13 Enter, 27 Escape, 38 Up ...).
class EditBoxOwner {
 public:
  virtual ~EditBoxOwner() = default;
  // A key went down in the box. True: the owner took it, and the box neither processes it nor its release.
  virtual bool editKeyDown(std::int32_t key) = 0;
  // The box has processed a key that the owner did not take.
  virtual void editKeyDone(std::int32_t key) = 0;
  // May this character go into the box? Asked only while Ctrl is up; nothing happens when it may not.
  virtual bool editAllows(char16_t character) = 0;
  // A character that was allowed has gone into the box.
  virtual void editCharDone(char16_t character) = 0;
  // Whether an input method may compose into the box.
  virtual bool editAllowsComposition() = 0;
  virtual void editFocusLost(FocusTarget target) = 0;
};

// One single-line edit window above the grid's window, used again for each cell. Made with the window, parked
// far off screen while idle; the back end draws and edits, the owner decides.
class EditBox {
 public:
  virtual ~EditBox() = default;

  virtual void setText(std::u16string_view text) = 0;
  virtual XString text() const = 0;
  // Selection in code units; -1 as the end means the end of the text.
  virtual void select(std::int32_t start, std::int32_t end) = 0;
  virtual void selection(std::int32_t& start, std::int32_t& end) const = 0;
  virtual void setPassword(bool masked) = 0;
  virtual void setLetterCase(LetterCase letters) = 0;
  virtual void setFont(const LogFont& font) = 0;
  // In client pixels of the grid's window.
  virtual void place(const Rect& rect) = 0;
  virtual Rect placement() const = 0;
  virtual void setFocus() = 0;
  virtual bool hasFocus() const = 0;
  // Hands a character, or the start of a composition, on to the box as if it had arrived there.
  virtual void sendChar(char16_t character) = 0;
  virtual void sendComposition() = 0;
};

}  // namespace tessera
