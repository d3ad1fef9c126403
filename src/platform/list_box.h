// The drop-down list port.

#pragma once

#include <cstdint>
#include <vector>

#include <tessera/xstring.h>

#include "shared/log_font.h"
#include "shared/rect.h"

namespace tessera {

class ListBoxOwner {
 public:
  virtual ~ListBoxOwner() = default;
  // Before the list processes a key, and after it.
  virtual void listKeyDown(std::int32_t key) = 0;
  virtual void listKeyDone(std::int32_t key) = 0;
  virtual void listCharDone(char16_t character) = 0;
  // The list has processed a press of the left button.
  virtual void listClicked() = 0;
  virtual void listFocusLost() = 0;
};

// One top-level list window, used again for each cell. The item under the pointer is the chosen one while the
// pointer moves over the list; arrows and first letters choose too.
class ListBox {
 public:
  virtual ~ListBox() = default;

  virtual void setItems(std::vector<XString> items) = 0;
  // 0-based; -1 for none. choose() also scrolls the item to the top as far as it goes.
  virtual void choose(std::int32_t index) = 0;
  virtual std::int32_t chosen() const = 0;
  virtual std::int32_t itemHeight() const = 0;
  virtual void setFont(const LogFont& font) = 0;
  // In screen pixels.
  virtual void place(const Rect& rect) = 0;
  // Shown: enabled and above all windows. Hidden: disabled and parked.
  virtual void show(bool shown) = 0;
  virtual void setFocus() = 0;
  virtual bool hasFocus() const = 0;
};

}  // namespace tessera
