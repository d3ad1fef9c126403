// What can be wrong with an expression.

#pragma once

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include <tessera/xstring.h>

namespace tessera {

enum class ExprErrorCode : std::int32_t {
  Syntax,
  MissingCharacter,
  DateType,
  OperandType,
  ArgumentType,
  UnknownVariable,
  UnknownFunction,
  TooFewArguments,
  TooManyArguments,
  InvalidArguments,
  SqrtDomain,
  LogDomain,
  Log10Domain,
  DateConversion,
  DivideByZero,
  PowerDomain,
  MissingOperand,
  MissingParenthesis,
  MissingExpression,
  MissingOperator,
  NoEqualArgument,
};

// The texts are part of the language's contract, their spelling included.
inline constexpr auto exprErrorTexts = std::to_array<const char*>({
    "Syntax error \"%s\".",
    "Missing '%c'.",
    "Date type mismatch.",
    "Operator/operand type mismatch.",
    "Function %s() argument %d type mismatch.",
    "Variable '%s' is not found.",
    "Function %s() is not implemented.",
    "Too few arguments for function %s().",
    "Too many arguments for function %s().",
    "Invalid arguments for function %s()",
    "SQRT(): argument cannot be negative",
    "LOG(): Zero or negative used as argument.",
    "Cannot use 0 or negative as the argument for LOG10();",
    "CTOD() or CTOT() can procedure incorect result.",
    "Cannot devide by 0.",
    "** or ^ domain error.",
    "Missing operand.",
    "Function %s() is missing ')'.",
    "Missing expression.",
    "Missing operator.",
    "Cannot find argument that equal with first argument in function %s()",
});
static_assert(exprErrorTexts.size() == static_cast<std::size_t>(ExprErrorCode::NoEqualArgument) + 1);

struct XExprError {
  ExprErrorCode code = ExprErrorCode::Syntax;
  XString text;  // the message and a line feed

  template <class... Args>
  static XExprError of(ExprErrorCode code, const Args&... arguments) {
    XExprError error{code, {}};
    error.text.format(exprErrorTexts[static_cast<std::size_t>(code)], arguments...);
    error.text += u"\n";
    return error;
  }

  // The message without its line feed.
  XString message() const { return text.left(text.length() - 1); }
};

// Why a text did not compile: all that was found, in the order of detection.
class XExprParserException {
 public:
  explicit XExprParserException(std::vector<XExprError> errors) : errors_(std::move(errors)) {}
  virtual ~XExprParserException() = default;

  // Copies the selected message with its line feed into `buffer`, at most `maxChars` units with the zero at
  // the end; `helpContext`, unless null, becomes 0. False when there is no message. The oldest one is
  // selected at first.
  virtual bool GetErrorMessage(char16_t* buffer, std::size_t maxChars, std::uint32_t* helpContext) const;

  std::size_t errorCount() const { return errors_.size(); }
  void selectError(std::size_t index) { current_ = index; }  // 0: the oldest
  const std::vector<XExprError>& errors() const { return errors_; }

 private:
  std::vector<XExprError> errors_;
  std::size_t current_ = 0;
};

}  // namespace tessera
