#include "expr/literal_text.h"

#include "shared/calendar.h"
#include "shared/change_type.h"

namespace tessera {
namespace {

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    switch (c) {
      case '\b':
        result += "\\b";
        break;
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      case '\t':
        result += "\\t";
        break;
      case '"':
      case '\\':
        result += '\\';
        [[fallthrough]];
      default:
        result += c;
    }
  }
  return result + '"';
}

}  // namespace

std::string literalText(const XValue& value) {
  switch (value.type()) {
    case VT_BSTR:
      return quoted(value.asText().toUtf8());
    case VT_DATE:
      return "{" + isoDateText(value.asDouble()).toUtf8() + "}";
    case VT_BOOL:
      return value.asBool() ? ".T." : ".F.";
    case VT_EMPTY:
      return "<empty>";
    case VT_NULL:
      return "<null>";
    case VT_ERROR:
      return "<error>";
    default:
      return textOf(value).toUtf8();
  }
}

}  // namespace tessera
