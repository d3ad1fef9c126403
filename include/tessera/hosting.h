// What a host offers to the control that stands on it.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <tessera/component.h>
#include <tessera/xstring.h>
#include <tessera/xvalue.h>

namespace tessera {

// The page or form that a control stands on, as its client site gives it. A container shows what kind it is
// by also being an HtmlDocument, an ItemContainer or an ObjectEnumerator; the first kind found counts.
class Container {
 public:
  virtual ~Container() = default;
};

// One entry of an HTML document's `all` collection that is an element.
class HtmlElement : public Component {
 public:
  virtual XString id() const = 0;
  // The component that stands in the element; null for a plain element.
  virtual std::shared_ptr<Component> object() const = 0;
};

class HtmlDocument {
 public:
  virtual ~HtmlDocument() = default;
  virtual std::int32_t length() const = 0;
  // The entry at a 0-based index; null when it cannot be had. Entries need not be elements.
  virtual std::shared_ptr<Component> item(std::int32_t index) const = 0;
};

class ItemContainer {
 public:
  virtual ~ItemContainer() = default;
  // The object of this name, null when there is none.
  virtual std::shared_ptr<Component> getObject(const XString& id) const = 0;
};

class ObjectEnumerator {
 public:
  virtual ~ObjectEnumerator() = default;
  // All embedded and other objects of the container, in its own order.
  virtual std::vector<std::shared_ptr<Component>> enumObjects() const = 0;
};

// The host's font, taken where a record names none.
struct AmbientFont {
  XString face;
  std::int32_t points = 0;
  std::int32_t weight = 400;  // 700 is bold
  bool italic = false;
  bool underline = false;
};

// The host's side of one control. Borrowed by the control; it must outlive the control or be replaced by
// null before it goes.
class ClientSite {
 public:
  virtual ~ClientSite() = default;
  virtual Container* container() = 0;
  virtual std::optional<AmbientFont> ambientFont() = 0;
  // The ambient code page as the host stores it; only a VT_UI4 counts.
  virtual XValue ambientCodePage() = 0;
};

// Hears that a property of the control changed.
class PropertyNotifySink {
 public:
  virtual ~PropertyNotifySink() = default;
  virtual void OnChanged(std::int32_t dispid) = 0;
};

inline constexpr std::int32_t DISPID_ENABLED = -514;

}  // namespace tessera
