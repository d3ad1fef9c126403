#include "config/info_document.h"

#include "config/info_text.h"

namespace tessera {

std::unique_ptr<Document> openInfoDocument(InfoServices& services, const XString& text) {
  DocumentResult result = services.documents().read(normalizeInfoText(text));
  auto* document = std::get_if<std::unique_ptr<Document>>(&result);
  return document ? std::move(*document) : nullptr;
}

const DocumentNode* infoElement(const Document& document) {
  const DocumentNode* first = document.firstChild();
  return first->hasAttributeMap() ? first : nullptr;
}

}  // namespace tessera
