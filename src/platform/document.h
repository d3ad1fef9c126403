// The XML tree port.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include <tessera/xstring.h>

namespace tessera {

// A node of a parsed document. Nodes live as long as their document.
class DocumentNode {
 public:
  virtual ~DocumentNode() = default;

  // Element name; "#text", "#comment" or "#cdata-section" for the other kinds.
  virtual XString nodeName() const = 0;
  // Only elements have attributes; comments and texts have not even an empty map.
  virtual bool hasAttributeMap() const = 0;
  // The value of the attribute of exactly this name, nothing when it is missing.
  virtual std::optional<XString> attribute(const char* name) const = 0;
  // The names for attribute(), declarations of namespaces first, the others in document order.
  virtual std::vector<XString> attributeNames() const = 0;
  // Children in document order, of all kinds; null past the end.
  virtual const DocumentNode* firstChild() const = 0;
  virtual const DocumentNode* nextSibling() const = 0;
  // All text below the node, entities and CDATA sections resolved.
  virtual XString text() const = 0;
  // 1-based line of the node's start tag in the source; 0 when unknown.
  virtual int line() const = 0;
};

// A parsed document; destroying it destroys its nodes.
class Document {
 public:
  virtual ~Document() = default;
  // The root element, never null.
  virtual const DocumentNode* root() const = 0;
  // The first node of all, never null: the root, or a comment or processing instruction before it. The others
  // beside the root are its siblings.
  virtual const DocumentNode* firstChild() const = 0;
};

// Why a text is no document.
struct DocumentError {
  int line = 0;  // 1-based, 0 when unknown
  std::string reason;
};

using DocumentResult = std::variant<std::unique_ptr<Document>, DocumentError>;

// Reads strict XML 1.0: what is not well formed is refused. No external entity, no document type definition
// and no network is ever read; entity expansion, depth (256 levels) and size (64 MiB) are limited.
class DocumentReader {
 public:
  virtual ~DocumentReader() = default;
  virtual DocumentResult read(std::u16string_view text) = 0;
};

}  // namespace tessera
