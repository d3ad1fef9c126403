#include "cells/cell_kinds.h"

#include "config/format_value.h"

namespace tessera {

void textOfColumn(const TextSource& texts, const ColumnRecord& column, std::int32_t row, const XString& name,
                  XString& text) {
  text.assign({});
  if (name.empty()) return;
  texts.link.valueByName(row, name, texts.scratch.value);
  formatValue(column.view, texts.scratch.value, texts.eval, text);
}

bool showsButton(const ColumnRecord& column, EvalState& eval) {
  switch (kindOf(column).button) {
    case ButtonRule::None:
      break;
    case ButtonRule::Always:
      return true;
    case ButtonRule::WhenEditable:
      return column.child.isEditable(eval);
  }
  return false;
}

}  // namespace tessera
