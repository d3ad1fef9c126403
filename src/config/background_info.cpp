#include "config/background_info.h"

#include "config/cell_attributes.h"
#include "config/color_words.h"
#include "config/info_document.h"
#include "shared/compare.h"

namespace tessera {
namespace {

// Of two spellings of an attribute the first one wins.
std::optional<XString> eitherAttribute(const DocumentNode& element, const char* first, const char* second) {
  auto value = element.attribute(first);
  return value ? value : element.attribute(second);
}

void readImage(InfoServices& services, const DocumentNode& element, BackgroundRecord& record) {
  if (const auto shown = element.attribute("backimage")) storeFlag(*shown, record.backImage);
  if (const auto path = element.attribute("imagepath")) record.imageHandle = services.downloadImage(*path);
  readCellAttribute(services, element, cellAttribute("align"), CellFields(record));
  if (const auto rate = eitherAttribute(element, "alphablendrate", "alpharate")) {
    record.alphaRate = parseInt(*rate);
  }
  if (const auto keyed = eitherAttribute(element, "transparent", "trans")) {
    storeFlag(*keyed, record.transparent);
  }
  if (const auto key = eitherAttribute(element, "transparentcolor", "transcolor")) {
    record.transparentColor = parseColor(*key);
  }
}

}  // namespace

BackgroundInfoResult parseBackgroundInfo(InfoServices& services, const XString& text,
                                         BackgroundRecord& record, std::int32_t& borderStyle) {
  const std::unique_ptr<Document> document = openInfoDocument(services, text);
  const DocumentNode* first = document ? infoElement(*document) : nullptr;
  if (!first) return {};
  const DocumentNode& element = *first;
  readCellAttribute(services, element, cellAttribute("bgcolor"), CellFields(record));
  const auto border = element.attribute("borderstyle");
  if (border) borderStyle = valueOfWord(windowBorderWords, *border, borderStyle);
  readCellAttribute(services, element, cellAttribute("bordercolor"), CellFields(record));
  readImage(services, element, record);
  return {.ok = true, .borderNamed = border.has_value()};
}

}  // namespace tessera
