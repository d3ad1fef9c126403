// Reads a CHILD element.

#pragma once

#include <span>

#include "config/attribute_reader.h"
#include "config/child_spec.h"

namespace tessera {

struct ChildAttribute {
  const char* name;
  ValueKind kind;
  void (*store)(InfoServices& services, ChildSpec& child, const XString& value);
};

// All of them, in the order in which they are read.
std::span<const ChildAttribute> childAttributes();

// The attributes, then one combo item for each COMBOITEM element.
void readChild(InfoServices& services, const DocumentNode& element, ChildSpec& child);

// Appends the item that a COMBOITEM element holds; a missing code or text is empty.
void readComboItem(const DocumentNode& element, XList<ComboItem>& items);

}  // namespace tessera
