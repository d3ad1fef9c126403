// The functions of the language.

#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "expr/expr_call.h"
#include "expr/value_type.h"

namespace tessera {

struct XExprParameter {
  const char* name = nullptr;  // for people; null behind the last parameter
  ExprType type = ExprType::Any;
  // The literal that stands in for an empty or missing argument. An empty text gives 0 or the empty text.
  const char* defaultText = "";
};

enum class FunctionFamily : std::uint8_t { Grid, Text, Date, Number, Logic, Conversion };

// One row for compiler, help and documentation.
struct XExprFunction {
  static constexpr std::int16_t anyNumber = -1;
  static constexpr std::size_t mostParameters = 6;

  std::string_view name;
  ExprHandler handler;  // null for COLUMN, which is no call
  FunctionFamily family;
  ExprType result;
  std::int16_t maxArguments;  // anyNumber: no limit, and no type is tested
  std::uint16_t minArguments;
  std::array<XExprParameter, mostParameters> parameters;
  std::string_view summary;
  std::string_view example;
  std::string_view exampleResult;  // as literalText() writes it

  constexpr bool isVariadic() const { return maxArguments == anyNumber; }
  // The parameter that an argument belongs to: the last one for all arguments behind it.
  constexpr const XExprParameter& parameter(std::size_t argument) const {
    std::size_t index = 0;
    while (index < argument && index + 1 < mostParameters && parameters[index + 1].name) ++index;
    return parameters[index];
  }
};

// In the order that decides what an abbreviated name means.
std::span<const XExprFunction> exprFunctions();

// The row that a grid variable compiles to.
const XExprFunction& keywordFunction();

// The function that a typed name means, without regard to ASCII case: of fewer than four characters a whole
// name, otherwise the first row that starts with it. Null when there is none.
const XExprFunction* findFunction(std::u16string_view typed);

}  // namespace tessera
