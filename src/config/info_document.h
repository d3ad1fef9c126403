// From an Info text to its document.

#pragma once

#include <memory>

#include "config/info_services.h"

namespace tessera {

// The repaired text as a document; null when it is refused.
std::unique_ptr<Document> openInfoDocument(InfoServices& services, const XString& text);

// The element that a text of one element is: its first node. Null when that is none, but a comment, say.
const DocumentNode* infoElement(const Document& document);

}  // namespace tessera
