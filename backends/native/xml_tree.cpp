#include "backends/native/xml_tree.h"

#include <cassert>
#include <deque>
#include <libxml/tree.h>
#include <string>
#include <string_view>

namespace tessera {
namespace {

using namespace std::string_view_literals;

struct TreeDeleter {
  void operator()(xmlDoc* tree) const { xmlFreeDoc(tree); }
};

std::string_view viewOf(const xmlChar* text) {
  return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

XString wide(const xmlChar* text) { return XString::fromNarrow(viewOf(text)); }

XString qualified(std::string_view prefix, std::string_view local) {
  if (prefix.empty()) return XString::fromNarrow(local);
  std::string name(prefix);
  name += ':';
  name += local;
  return XString::fromNarrow(name);
}

bool isQualified(std::string_view prefix, std::string_view local, std::string_view name) {
  if (prefix.empty()) return name == local;
  return name.size() == prefix.size() + 1 + local.size() && name.starts_with(prefix) &&
         name[prefix.size()] == ':' && name.ends_with(local);
}

bool isText(const xmlNode& node) { return node.type == XML_TEXT_NODE || node.type == XML_CDATA_SECTION_NODE; }

// The recursion ends at the depth limit of the reader.
void collectText(const xmlNode& node, std::string& text) {
  for (const xmlNode* child = node.children; child; child = child->next) {
    if (isText(*child)) {
      text += viewOf(child->content);
    } else if (child->type == XML_ELEMENT_NODE) {
      collectText(*child, text);
    }
  }
}

class XmlNode final : public DocumentNode {
 public:
  explicit XmlNode(xmlNode& node) : node_(node) { node._private = this; }

  XString nodeName() const override;
  bool hasAttributeMap() const override { return node_.type == XML_ELEMENT_NODE; }
  std::optional<XString> attribute(const char* name) const override;
  std::vector<XString> attributeNames() const override;
  const DocumentNode* firstChild() const override { return wrapperOf(node_.children); }
  const DocumentNode* nextSibling() const override { return wrapperOf(node_.next); }
  XString text() const override;
  int line() const override;

 private:
  static const DocumentNode* wrapperOf(const xmlNode* node) {
    return node ? static_cast<const XmlNode*>(node->_private) : nullptr;
  }

  const xmlNode& node_;
};

XString XmlNode::nodeName() const {
  switch (node_.type) {
    case XML_TEXT_NODE:
      return u"#text";
    case XML_COMMENT_NODE:
      return u"#comment";
    case XML_CDATA_SECTION_NODE:
      return u"#cdata-section";
    default:
      break;
  }
  return qualified(node_.ns ? viewOf(node_.ns->prefix) : "", viewOf(node_.name));
}

std::optional<XString> XmlNode::attribute(const char* name) const {
  if (!hasAttributeMap()) return std::nullopt;
  for (const xmlAttr* each = node_.properties; each; each = each->next) {
    if (!isQualified(each->ns ? viewOf(each->ns->prefix) : "", viewOf(each->name), name)) continue;
    xmlChar* value = xmlNodeListGetString(node_.doc, each->children, 1);
    XString result = wide(value);
    xmlFree(value);
    return result;
  }
  for (const xmlNs* each = node_.nsDef; each; each = each->next) {
    const std::string_view prefix = viewOf(each->prefix);
    const bool found = prefix.empty() ? name == "xmlns"sv : isQualified("xmlns", prefix, name);
    if (found) return wide(each->href);
  }
  return std::nullopt;
}

std::vector<XString> XmlNode::attributeNames() const {
  std::vector<XString> names;
  if (!hasAttributeMap()) return names;
  for (const xmlNs* each = node_.nsDef; each; each = each->next) {
    names.push_back(each->prefix ? qualified("xmlns", viewOf(each->prefix)) : XString(u"xmlns"));
  }
  for (const xmlAttr* each = node_.properties; each; each = each->next) {
    names.push_back(qualified(each->ns ? viewOf(each->ns->prefix) : "", viewOf(each->name)));
  }
  return names;
}

XString XmlNode::text() const {
  if (node_.type != XML_ELEMENT_NODE) return wide(node_.content);
  std::string text;
  collectText(node_, text);
  return XString::fromNarrow(text);
}

int XmlNode::line() const {
  const long line = xmlGetLineNo(&node_);
  return line > 0 ? static_cast<int>(line) : 0;
}

class XmlDocument final : public Document {
 public:
  explicit XmlDocument(xmlDoc* tree) : tree_(tree) {
    const xmlNode* root = xmlDocGetRootElement(tree);
    assert(root);
    for (xmlNode* node = tree->children; node; node = node->next) {
      if (node == root) root_ = nodes_.size();
      wrap(*node);
    }
  }

  const DocumentNode* root() const override { return &nodes_[root_]; }
  const DocumentNode* firstChild() const override { return &nodes_.front(); }

 private:
  void wrap(xmlNode& node) {
    nodes_.emplace_back(node);
    // An attribute or a declaration never is a child; a text has none.
    if (node.type != XML_ELEMENT_NODE) return;
    for (xmlNode* child = node.children; child; child = child->next) wrap(*child);
  }

  std::unique_ptr<xmlDoc, TreeDeleter> tree_;
  std::deque<XmlNode> nodes_;  // in document order; addresses stay
  std::size_t root_ = 0;       // its place among them
};

}  // namespace

std::unique_ptr<Document> adoptXmlTree(_xmlDoc* tree) { return std::make_unique<XmlDocument>(tree); }

}  // namespace tessera
