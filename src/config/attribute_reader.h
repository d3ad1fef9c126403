// How the readers of Info texts take attributes.

#pragma once

#include <tessera/xstring.h>

#include "config/cell_style.h"
#include "config/info_services.h"

namespace tessera {

// What an attribute's value is.
enum class ValueKind {
  Text,
  Integer,
  Pixels,
  Points,
  Percent,
  Flag,  // "true" or "false"
  Color,
  Word,  // one of a table of words
  Url,
};

// "true" and "false" in any case; every other text leaves the field alone. Whether it was one of the two.
bool storeFlag(const XString& value, bool& field);

// An attribute value with a leading "@" is an expression.
bool isExpression(std::u16string_view value);
// The expression itself.
XString expressionText(const XString& value);

// Puts the expression into the style's slot. False, and no change, when it does not compile.
bool storeExpression(InfoServices& services, const XString& text, CellStyle& style, DynamicSlot slot);

// Calls store(row, value) for each row of `table` whose attribute the element has, in the table's order.
template <class Table, class Store>
void readAttributes(const DocumentNode& element, const Table& table, Store store) {
  for (const auto& row : table) {
    if (const std::optional<XString> value = element.attribute(row.name)) store(row, *value);
  }
}

// Calls visit(element) for each child that is an element; comments and texts are passed over.
template <class Visit>
void forEachElement(const DocumentNode& parent, Visit visit) {
  for (const DocumentNode* child = parent.firstChild(); child; child = child->nextSibling()) {
    if (child->hasAttributeMap()) visit(*child);
  }
}

}  // namespace tessera
