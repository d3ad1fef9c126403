#include "config/cell_attributes.h"

#include <algorithm>
#include <cassert>
#include <iterator>

#include "config/color_words.h"
#include "config/value_words.h"
#include "shared/compare.h"

namespace tessera {
namespace {

constexpr std::uint8_t bitOf(CellElement element) {
  return static_cast<std::uint8_t>(1u << static_cast<std::uint8_t>(element));
}

constexpr std::uint8_t header = bitOf(CellElement::Header);
constexpr std::uint8_t group = bitOf(CellElement::Group);
constexpr std::uint8_t bands = header | bitOf(CellElement::View);
constexpr std::uint8_t all = bands | bitOf(CellElement::Summary) | group;

template <std::int32_t Rect::*edge>
bool storeEdge(InfoServices&, const CellFields& cell, const XString& value) {
  cell.rect->*edge = parseInt(value);
  return true;
}

// Sides whose configured place is kept beside the present one.
template <std::int32_t Rect::*edge, std::int32_t* CellFields::*layout>
bool storeSide(InfoServices&, const CellFields& cell, const XString& value) {
  cell.rect->*edge = *(cell.*layout) = parseInt(value);
  return true;
}

template <std::int32_t CellStyle::*field>
bool storeNumber(InfoServices&, const CellFields& cell, const XString& value) {
  cell.style->*field = parseInt(value);
  return true;
}

template <ColorRef CellStyle::*field>
bool storeColor(InfoServices&, const CellFields& cell, const XString& value) {
  cell.style->*field = parseColor(value);
  return true;
}

template <bool HeaderCell::*field>
bool storeHeaderFlag(InfoServices&, const CellFields& cell, const XString& value) {
  return storeFlag(value, cell.header->*field);
}

bool storeLevel(InfoServices&, const CellFields& cell, const XString& value) {
  *cell.level = parseInt(value);
  return true;
}

bool storeText(InfoServices&, const CellFields& cell, const XString& value) {
  *cell.text = value;
  if (cell.element == CellElement::View) {
    cell.style->dynamicFlags = literalTextBit;
    cell.style->expressions = {};
  }
  return true;
}

bool storeBorderStyle(InfoServices&, const CellFields& cell, const XString& value) {
  const std::int32_t border = parseBorderStyle(value);
  if (border == unknownWord) return false;
  cell.style->borderStyle = border;
  return true;
}

bool storeFontStyle(InfoServices&, const CellFields& cell, const XString& value) {
  const std::int32_t flags = parseFontStyle(value);
  if (flags == unknownWord) return false;
  cell.style->setFontStyle(flags);
  return true;
}

bool storeFontSize(InfoServices&, const CellFields& cell, const XString& value) {
  cell.style->setFontSize(parseInt(value));
  return true;
}

bool storeFontName(InfoServices&, const CellFields& cell, const XString& value) {
  cell.style->setFontName(value.toUtf8());
  return true;
}

bool storeAlign(InfoServices&, const CellFields& cell, const XString& value) {
  const std::int32_t place = parseAlign(value);
  if (place == 0) return false;
  const bool fills = cell.element == CellElement::View || cell.element == CellElement::Background;
  cell.style->align = fills && place == align::fullWord ? align::full : place;
  return true;
}

bool storeCursor(InfoServices&, const CellFields& cell, const XString& value) {
  *cell.cursor = parseCursor(value);
  return true;
}

bool storeDisplayFormat(InfoServices&, const CellFields& cell, const XString& value) {
  cell.style->displayFormat = value;
  return true;
}

bool storeImagePath(InfoServices& services, const CellFields& cell, const XString& value) {
  if (value.empty()) return false;
  cell.header->imagePath = value;
  cell.style->imageHandle = services.downloadImage(value);
  if ((cell.style->imageMode & (image_mode::placed | image_mode::stretched)) == 0) {
    cell.style->imageMode = image_mode::placed | image_mode::transparent;
  }
  return true;
}

// The word is matched with its case, unlike all others.
bool storeImageType(InfoServices&, const CellFields& cell, const XString& value) {
  if (cell.header->imagePath.empty() || value != u"stretch") return false;
  cell.style->imageMode = image_mode::stretched | image_mode::transparent;
  return true;
}

using enum ValueKind;
using Slot = DynamicSlot;

constexpr CellAttribute attributes[] = {
    {"left", Pixels, bands, {}, storeSide<&Rect::left, &CellFields::layoutLeft>},
    {"right", Pixels, bands, {}, storeSide<&Rect::right, &CellFields::layoutRight>},
    {"top", Pixels, bands, {}, storeEdge<&Rect::top>},
    {"bottom", Pixels, bands, {}, storeEdge<&Rect::bottom>},
    {"fix", Flag, header, {}, storeHeaderFlag<&HeaderCell::fix>},
    {"level", Integer, group, {}, storeLevel},
    {"text", Text, all, Slot::Text, storeText},
    {"color", Color, all, Slot::TextColor, storeColor<&CellStyle::textColor>},
    {"bgcolor", Color, all, Slot::BackColor, storeColor<&CellStyle::backColor>},
    {"bordercolor", Color, all, Slot::BorderColor, storeColor<&CellStyle::borderColor>},
    {"borderstyle", Word, all, {}, storeBorderStyle},
    {"fontstyle", Word, all, Slot::FontStyle, storeFontStyle},
    {"fontsize", Points, all, Slot::FontSize, storeFontSize},
    {"fontname", Text, all, Slot::FontName, storeFontName},
    {"align", Word, all, {}, storeAlign},
    {"leftmargin", Pixels, all, {}, storeNumber<&CellStyle::leftMargin>},
    {"rightmargin", Pixels, all, {}, storeNumber<&CellStyle::rightMargin>},
    {"topmargin", Pixels, all, {}, storeNumber<&CellStyle::topMargin>},
    {"bottommargin", Pixels, all, {}, storeNumber<&CellStyle::bottomMargin>},
    {"cursor", Word, bands, Slot::Cursor, storeCursor},
    {"displayformat", Text, all, Slot::DisplayFormat, storeDisplayFormat},
    {"imagepath", Url, header, {}, storeImagePath},
    {"imagetype", Word, header, {}, storeImageType},
    {"check", Flag, header, {}, storeHeaderFlag<&HeaderCell::showCheck>},
};
static_assert(std::size(attributes) == 24);

}  // namespace

CellFields::CellFields(HeaderCell& cell)
    : element(CellElement::Header),
      style(&cell),
      rect(&cell.rect),
      layoutLeft(&cell.layoutLeft),
      layoutRight(&cell.layoutRight),
      cursor(&cell.cursor),
      text(&cell.text),
      header(&cell) {}

CellFields::CellFields(ViewCell& cell)
    : element(CellElement::View),
      style(&cell),
      rect(&cell.rect),
      layoutLeft(&cell.layoutLeft),
      layoutRight(&cell.layoutRight),
      cursor(&cell.cursor),
      text(&cell.text) {}

CellFields::CellFields(SummaryCell& cell) : element(CellElement::Summary), style(&cell), text(&cell.text) {}

CellFields::CellFields(GroupCell& cell)
    : element(CellElement::Group), style(&cell), level(&cell.level), text(&cell.text) {}

CellFields::CellFields(IndicatorRecord& record)
    : element(CellElement::Indicator), style(&record), kept(&record.kept) {}

CellFields::CellFields(BackgroundRecord& record)
    : element(CellElement::Background), style(&record), kept(&record.kept) {}

std::span<const CellAttribute> cellAttributes() { return attributes; }

const CellAttribute& cellAttribute(std::string_view name) {
  const auto row = std::find_if(std::begin(attributes), std::end(attributes),
                                [name](const CellAttribute& attribute) { return attribute.name == name; });
  assert(row != std::end(attributes));
  return *row;
}

void storeCellAttribute(InfoServices& services, const CellAttribute& attribute, const CellFields& cell,
                        const XString& value) {
  if (attribute.slot && isExpression(value)) {
    if (attribute.slot == DynamicSlot::Text && cell.element == CellElement::View) *cell.text = value;
    const XString text = expressionText(value);
    if (cell.kept && services.awaitsColumns(text)) return cell.kept->await(*attribute.slot, text);
    const bool compiled = storeExpression(services, text, *cell.style, *attribute.slot);
    if (cell.kept && compiled) cell.kept->keep(*attribute.slot, text);
    return;
  }
  if (!attribute.store(services, cell, value) || !attribute.slot) return;
  cell.style->clearDynamic(*attribute.slot);
  if (cell.kept) cell.kept->forget(*attribute.slot);
}

void readCellAttribute(InfoServices& services, const DocumentNode& element, const CellAttribute& attribute,
                       const CellFields& cell) {
  if (const auto value = element.attribute(attribute.name)) {
    storeCellAttribute(services, attribute, cell, *value);
  }
}

void readCell(InfoServices& services, const DocumentNode& element, const CellFields& cell) {
  for (const CellAttribute& attribute : attributes) {
    if (attribute.isReadBy(cell.element)) readCellAttribute(services, element, attribute, cell);
  }
  forEachElement(element, [&](const DocumentNode& child) {
    const XString name = child.nodeName();
    if (name == u"TEXT") storeCellAttribute(services, cellAttribute("text"), cell, child.text());
    if (name == u"DISPLAYFORMAT") {
      storeCellAttribute(services, cellAttribute("displayformat"), cell, child.text());
    }
  });
}

}  // namespace tessera
