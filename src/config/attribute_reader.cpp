#include "config/attribute_reader.h"

#include "shared/compare.h"

namespace tessera {

bool storeFlag(const XString& value, bool& field) {
  const bool yes = equalNoCase(value, u"true");
  if (!yes && !equalNoCase(value, u"false")) return false;
  field = yes;
  return true;
}

bool isExpression(std::u16string_view value) { return value.starts_with(u'@'); }

XString expressionText(const XString& value) { return value.mid(1, value.length()); }

bool storeExpression(InfoServices& services, const XString& text, CellStyle& style, DynamicSlot slot) {
  const XExprProgram* program = services.compileExpression(text);
  style.setDynamic(slot, program);
  return program != nullptr;
}

}  // namespace tessera
