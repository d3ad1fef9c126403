// A second, slow reading of the language's rules, to hold the engine against.

#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tessera::test {

using OracleValue = std::variant<double, std::string, bool>;

// One level of an expression: operands with operators between them. An operand is a value or a level of its
// own in parentheses.
struct OracleTerm {
  OracleValue value = 0.0;
  std::vector<OracleTerm> group;            // not empty: in parentheses, and `value` is not used
  std::vector<std::string> operators = {};  // between the operands of `group`
};

// As an expression; columns stand in for literals where `columns` says so.
std::string oracleText(const OracleTerm& term);

// The value; nothing when the types do not fit or the run ends in an error.
std::optional<OracleValue> oracleValue(const OracleTerm& term);

// As literalText() writes it.
std::string oracleLiteral(const OracleValue& value);

}  // namespace tessera::test
