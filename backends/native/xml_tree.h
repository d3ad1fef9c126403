// The nodes of a document over libxml2's tree.

#pragma once

#include <memory>

#include "platform/document.h"

struct _xmlDoc;

namespace tessera {

// Takes over `tree`, which must have a root element.
std::unique_ptr<Document> adoptXmlTree(_xmlDoc* tree);

}  // namespace tessera
