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

void storeExpression(InfoServices& services, const XString& value, CellStyle& style, DynamicSlot slot) {
  style.setDynamic(slot, services.compileExpression(value.mid(1, value.length())));
}

}  // namespace tessera
