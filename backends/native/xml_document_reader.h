// Documents by libxml2.

#pragma once

#include "platform/document.h"

namespace tessera {

// The limits of the port apply: 256 levels, and 64 MiB counted in UTF-8. One text, attribute or comment may
// have 10 million bytes. Prefixes must be declared. An encoding named in the XML declaration is ignored,
// since the text has been decoded already, and so is one byte order mark.
class XmlDocumentReader final : public DocumentReader {
 public:
  DocumentResult read(std::u16string_view text) override;
};

}  // namespace tessera
