#include "expr/oracle.h"

#include <cmath>
#include <fmt/format.h>
#include <map>

namespace tessera::test {
namespace {

const std::map<std::string, int>& priorities() {
  static const std::map<std::string, int> table = {
      {"=", 0},  {"==", 0}, {"#", 0},     {"<>", 0},      {"!=", 0},   {">", 0},     {">=", 1},
      {"<", 1},  {"<=", 1}, {"+", 2},     {"$", 2},       {"*", 3},    {"/", 3},     {"%", 3},
      {"**", 4}, {"^", 4},  {" AND ", 6}, {" .AND. ", 6}, {" OR ", 7}, {" .OR. ", 7}};
  return table;
}

std::string trimmed(std::string text) {
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.pop_back();
  return text;
}

std::optional<OracleValue> numeric(const std::string& op, double left, double right) {
  if (op == "+") return left + right;
  if (op == "*") return left * right;
  if (op == "/") return right == 0 ? left : left / right;
  if (op == "%") return std::fmod(left, right);
  if (op == "**" || op == "^") {
    if (left > 0) return std::pow(left, right);
  }
  return std::nullopt;
}

// `difference` is below, at or above zero as the left side is before, level with or behind the right one.
std::optional<OracleValue> compared(const std::string& op, int difference) {
  if (op == "=" || op == "==") return difference == 0;
  if (op == "#" || op == "<>" || op == "!=") return difference != 0;
  if (op == ">") return difference > 0;
  if (op == ">=") return difference >= 0;
  if (op == "<") return difference < 0;
  if (op == "<=") return difference <= 0;
  return std::nullopt;
}

std::optional<OracleValue> apply(const std::string& op, const OracleValue& left, const OracleValue& right) {
  if (left.index() != right.index()) return std::nullopt;
  if (const auto* number = std::get_if<double>(&left)) {
    const double other = std::get<double>(right);
    // What is no number is neither less nor greater, and equal for that.
    if (std::isnan(*number) || std::isnan(other)) {
      if (priorities().at(op) < 2) return op == "=" || op == "==";
    }
    if (auto comparison = compared(op, (*number > other) - (*number < other))) return comparison;
    return numeric(op, *number, other);
  }
  if (const auto* text = std::get_if<std::string>(&left)) {
    const auto& other = std::get<std::string>(right);
    if (op == "+") return *text + other;
    if (op == "$") return other.find(*text) != other.npos;
    if (op == "=") return trimmed(*text) == trimmed(other);
    return compared(op, text->compare(other));
  }
  const bool flag = std::get<bool>(left);
  const bool other = std::get<bool>(right);
  if (op == " AND " || op == " .AND. ") return flag && other;
  if (op == " OR " || op == " .OR. ") return flag || other;
  return compared(op, int(other) - int(flag));  // true is -1
}

// The chain that starts with operand `first`: operators apply from left to right as long as none binds
// tighter than the one before; one that does takes everything from its left operand to the end.
std::optional<OracleValue> chain(const OracleTerm& level, std::size_t first) {
  auto result = oracleValue(level.group[first]);
  for (std::size_t i = first; result && i < level.operators.size(); ++i) {
    const std::string& op = level.operators[i];
    const bool tighterFollows =
        i + 1 < level.operators.size() && priorities().at(level.operators[i + 1]) > priorities().at(op);
    const auto right = tighterFollows ? chain(level, i + 1) : oracleValue(level.group[i + 1]);
    if (!right) return std::nullopt;
    result = apply(op, *result, *right);
    if (tighterFollows) return result;
  }
  return result;
}

}  // namespace

std::string oracleText(const OracleTerm& term) {
  if (term.group.empty()) return oracleLiteral(term.value);
  std::string text = "(";
  for (std::size_t i = 0; i < term.group.size(); ++i) {
    if (i > 0) text += term.operators[i - 1];
    text += oracleText(term.group[i]);
  }
  return text + ")";
}

std::optional<OracleValue> oracleValue(const OracleTerm& term) {
  return term.group.empty() ? std::optional(term.value) : chain(term, 0);
}

std::string oracleLiteral(const OracleValue& value) {
  if (const auto* number = std::get_if<double>(&value)) return fmt::format("{}", *number);
  if (const auto* text = std::get_if<std::string>(&value)) return '"' + *text + '"';
  return std::get<bool>(value) ? ".T." : ".F.";
}

}  // namespace tessera::test
