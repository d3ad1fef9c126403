// From an Info text to its document.

#pragma once

#include <memory>

#include "config/info_services.h"

namespace tessera {

// The repaired text as a document; null when it is refused.
std::unique_ptr<Document> openInfoDocument(InfoServices& services, const XString& text);

}  // namespace tessera
