#include "expr/function_help.h"

#include <fmt/format.h>

namespace tessera {
namespace {

struct FamilyTitle {
  FunctionFamily family;
  const char* title;
};

constexpr FamilyTitle familyTitles[] = {
    {FunctionFamily::Logic, "Choosing and comparing"},
    {FunctionFamily::Text, "Texts"},
    {FunctionFamily::Number, "Numbers"},
    {FunctionFamily::Conversion, "Conversions"},
    {FunctionFamily::Date, "Dates and times"},
    {FunctionFamily::Grid, "The grid"},
};

const char* typeName(ExprType type) {
  switch (type) {
    case ExprType::Number:
      return "number";
    case ExprType::Text:
      return "text";
    case ExprType::Date:
      return "date";
    case ExprType::Logical:
      return "logical";
    default:
      return "any";
  }
}

// The types of a function of any number of arguments only say what stands in for an empty one.
std::string parameterText(const XExprFunction& function, std::size_t index) {
  const XExprParameter& parameter = function.parameters[index];
  const ExprType type = function.isVariadic() ? ExprType::Any : parameter.type;
  const bool isOptional = index >= function.minArguments && !function.isVariadic();
  const std::string plain = fmt::format("{}: {}", parameter.name, typeName(type));
  if (!isOptional) return plain;
  const bool quoted = parameter.type == ExprType::Text;
  const std::string value = quoted ? fmt::format("\"{}\"", parameter.defaultText) : parameter.defaultText;
  return value.empty() ? fmt::format("[{}]", plain) : fmt::format("[{} = {}]", plain, value);
}

}  // namespace

std::string functionSignature(const XExprFunction& function) {
  std::string text(function.name);
  text += '(';
  for (std::size_t i = 0; i < function.parameters.size() && function.parameters[i].name; ++i) {
    if (i > 0) text += ", ";
    text += parameterText(function, i);
  }
  if (function.isVariadic()) text += ", ...";
  return text + "): " + typeName(function.result);
}

std::string functionHelp(const XExprFunction& function) {
  return fmt::format("{}\n{}\n{} gives {}\n", functionSignature(function), function.summary, function.example,
                     function.exampleResult);
}

std::string functionReference() {
  std::string text;
  for (const FamilyTitle& family : familyTitles) {
    text += fmt::format("\n### {}\n\n| Function | Meaning | Example |\n|---|---|---|\n", family.title);
    for (const XExprFunction& function : exprFunctions()) {
      if (function.family != family.family) continue;
      text += fmt::format("| `{}` | {} | `{}` gives `{}` |\n", functionSignature(function), function.summary,
                          function.example, function.exampleResult);
    }
  }
  return text;
}

}  // namespace tessera
