#include "config/menu_info.h"

#include "config/info_document.h"
#include "shared/compare.h"

namespace tessera {
namespace {

// Calls read(child) for each child of any kind until one call fails.
template <class Read>
bool readChildren(const DocumentNode& parent, Read read) {
  for (const DocumentNode* child = parent.firstChild(); child; child = child->nextSibling()) {
    if (!read(*child)) return false;
  }
  return true;
}

// A comment or a text among the items has no text attribute either.
bool parseMenuItem(const DocumentNode& node, MenuItem& item) {
  const auto text = node.attribute("text");
  if (!text) return false;
  item.text = *text;
  if (equalNoCase(item.text, u"separator")) return true;

  const auto code = node.attribute("code");
  if (!code) return false;
  item.code = parseInt(*code);
  const auto enable = node.attribute("enable");
  if (enable && equalNoCase(*enable, u"false")) item.enabled = false;
  return readChildren(node, [&item](const DocumentNode& child) {
    return parseMenuItem(child, item.children.emplace_back());
  });
}

}  // namespace

bool parseMenuInfo(InfoServices& services, const XString& text, XList<MenuItem>& menu) {
  const std::unique_ptr<Document> document = openInfoDocument(services, text);
  const DocumentNode* element = document ? infoElement(*document) : nullptr;
  if (!element) return false;
  return readChildren(*element, [&menu](const DocumentNode& node) {
    MenuItem item;
    if (!parseMenuItem(node, item)) return false;
    menu.addTail(std::move(item));
    return true;
  });
}

}  // namespace tessera
