#include "config/tree_reader.h"

#include <iterator>

#include "shared/compare.h"

namespace tessera {
namespace {

void storeMode(TreeInfo& tree, const XString& value) {
  const std::int32_t mode = parseInt(value);
  if (mode >= static_cast<std::int32_t>(RowMode::Plain) && mode <= static_cast<std::int32_t>(RowMode::Tree)) {
    tree.rowMode = static_cast<RowMode>(mode);
  }
}

template <bool TreeInfo::*field>
void storeTreeFlag(TreeInfo& tree, const XString& value) {
  storeFlag(value, tree.*field);
}

template <std::int32_t TreeInfo::*field>
void storeSize(TreeInfo& tree, const XString& value) {
  const std::int32_t pixels = parseInt(value);
  if (pixels > 0) tree.*field = pixels;
}

template <XString TreeInfo::*field>
void storeText(TreeInfo& tree, const XString& value) {
  tree.*field = value;
}

using enum ValueKind;

constexpr TreeAttribute attributes[] = {
    {"type", Integer, storeMode},
    {"expand", Flag, storeTreeFlag<&TreeInfo::expand>},
    {"levelcolumn", Text, storeText<&TreeInfo::levelColumn>},
    {"hasline", Flag, storeTreeFlag<&TreeInfo::hasLine>},
    {"indentwidth", Pixels, storeSize<&TreeInfo::indentWidth>},
    {"thumbsize", Pixels, storeSize<&TreeInfo::thumbSize>},
    {"iconsize", Pixels, storeSize<&TreeInfo::iconSize>},
    {"imageccolumn", Text, storeText<&TreeInfo::imageCColumn>},
    {"imageecolumn", Text, storeText<&TreeInfo::imageEColumn>},
};
static_assert(std::size(attributes) == 9);

}  // namespace

std::span<const TreeAttribute> treeAttributes() { return attributes; }

void readTree(const DocumentNode& element, TreeInfo& tree) {
  readAttributes(element, attributes, [&tree](const TreeAttribute& attribute, const XString& value) {
    attribute.store(tree, value);
  });
}

}  // namespace tessera
