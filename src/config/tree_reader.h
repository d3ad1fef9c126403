// Reads a TREE element.

#pragma once

#include <span>

#include "config/attribute_reader.h"
#include "config/tree_info.h"

namespace tessera {

struct TreeAttribute {
  const char* name;
  ValueKind kind;
  void (*store)(TreeInfo& tree, const XString& value);
};

// All of them, in the order in which they are read.
std::span<const TreeAttribute> treeAttributes();

// Unnamed settings and values out of range stay as they are.
void readTree(const DocumentNode& element, TreeInfo& tree);

}  // namespace tessera
