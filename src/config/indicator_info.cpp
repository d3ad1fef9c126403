#include "config/indicator_info.h"

#include "config/cell_attributes.h"
#include "config/info_document.h"
#include "shared/compare.h"

namespace tessera {

bool parseIndicatorInfo(InfoServices& services, const XString& text, IndicatorRecord& record) {
  static constexpr std::string_view sharedAttributes[] = {
      "color", "bgcolor", "borderstyle", "bordercolor", "fontstyle", "fontsize", "fontname", "align"};
  const std::unique_ptr<Document> document = openInfoDocument(services, text);
  const DocumentNode* first = document ? infoElement(*document) : nullptr;
  if (!first) return false;
  const DocumentNode& element = *first;
  if (const auto width = element.attribute("width")) record.width = parseInt(*width);
  for (const std::string_view name : sharedAttributes) {
    readCellAttribute(services, element, cellAttribute(name), CellFields(record));
  }
  if (const auto numbers = element.attribute("indexnumber")) storeFlag(*numbers, record.indexNumber);
  return true;
}

}  // namespace tessera
