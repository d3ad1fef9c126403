#include "config/child_reader.h"

#include <iterator>

#include "config/child_words.h"
#include "config/color_words.h"
#include "shared/compare.h"

namespace tessera {
namespace {

template <std::int32_t ChildSpec::*field>
void storeNumber(InfoServices&, ChildSpec& child, const XString& value) {
  child.*field = parseInt(value);
}

template <XString ChildSpec::*field>
void storeText(InfoServices&, ChildSpec& child, const XString& value) {
  child.*field = value;
}

template <XString ChildSpec::*field>
void storeColumnName(InfoServices&, ChildSpec& child, const XString& value) {
  child.*field = columnNameOrNone(value);
}

template <ColorRef ChildSpec::*field>
void storeColor(InfoServices&, ChildSpec& child, const XString& value) {
  child.*field = parseColor(value);
}

template <std::int32_t ChildSpec::*field, const auto& words>
void storeWord(InfoServices&, ChildSpec& child, const XString& value) {
  child.*field = valueOfWord(words, value, child.*field);
}

void storeType(InfoServices&, ChildSpec& child, const XString& value) {
  child.type =
      static_cast<CellKind>(valueOfWord(cellKindWords, value, static_cast<std::int32_t>(child.type)));
}

void storeSubType(InfoServices&, ChildSpec& child, const XString& value) {
  child.subType = static_cast<EditKind>(valueOfWord(editKindWords, value, numberOf(child.subType)));
}

void storeInputType(InfoServices&, ChildSpec& child, const XString& value) {
  child.inputType |= parseInputType(value);
}

void storeSelect(InfoServices&, ChildSpec& child, const XString& value) { storeFlag(value, child.select); }

void storeLookupDataId(InfoServices& services, ChildSpec& child, const XString& value) {
  child.lookupDataId = value;
  child.lookupDataset = services.findDataSet(value);
}

void storeEditable(InfoServices& services, ChildSpec& child, const XString& value) {
  if (isExpression(value)) {
    storeExpression(services, expressionText(value), child, DynamicSlot::Text);
    return;
  }
  child.editable = value;
  child.dynamicFlags = 0;
  child.expressions = {};
}

using enum ValueKind;

constexpr ChildAttribute attributes[] = {
    {"type", Word, storeType},
    {"checktext", Text, storeColumnName<&ChildSpec::checkText>},
    {"radiotext", Text, storeColumnName<&ChildSpec::radioText>},
    {"subtype", Word, storeSubType},
    {"limitlength", Integer, storeNumber<&ChildSpec::limitLength>},
    {"inputtype", Word, storeInputType},
    {"ime", Word, storeWord<&ChildSpec::ime, imeWords>},
    {"select", Flag, storeSelect},
    {"decimal", Integer, storeNumber<&ChildSpec::decimal>},
    {"showitemcount", Integer, storeNumber<&ChildSpec::showItemCount>},
    {"lookupdataid", Text, storeLookupDataId},
    {"lookupcode", Text, storeText<&ChildSpec::lookupCode>},
    {"lookuptext", Text, storeText<&ChildSpec::lookupText>},
    {"editable", Flag, storeEditable},
    {"min", Integer, storeNumber<&ChildSpec::barMin>},
    {"max", Integer, storeNumber<&ChildSpec::barMax>},
    {"align", Word, storeWord<&ChildSpec::barAlign, barAlignWords>},
    {"bgcolor", Color, storeColor<&ChildSpec::barBackColor>},
    {"color", Color, storeColor<&ChildSpec::barColor>},
    {"text", Text, storeColumnName<&ChildSpec::barText>},
};
static_assert(std::size(attributes) == 20);

}  // namespace

std::span<const ChildAttribute> childAttributes() { return attributes; }

void readChild(InfoServices& services, const DocumentNode& element, ChildSpec& child) {
  readAttributes(element, attributes, [&](const ChildAttribute& attribute, const XString& value) {
    attribute.store(services, child, value);
  });
  forEachElement(element, [&](const DocumentNode& item) {
    if (item.nodeName() == u"COMBOITEM") readComboItem(item, child.comboItems);
  });
}

void readComboItem(const DocumentNode& element, XList<ComboItem>& items) {
  items.addTail(
      {element.attribute("text").value_or(XString()), element.attribute("code").value_or(XString())});
}

}  // namespace tessera
