#include "expr/code_generator.h"

#include "expr/date_text.h"
#include "expr/expr_names.h"
#include "expr/function_table.h"
#include "expr/leading_number.h"
#include "expr/operators.h"

namespace tessera {
namespace {

bool isTrueWord(std::u16string_view text) {
  return text.size() == 1 && std::u16string_view(u"TtYy").find(text[0]) != text.npos;
}

XValue dateLiteral(const XExprContext& context, std::u16string_view text) {
  const auto date = parseDateText(context, text);
  return date ? XValue::ofDate(*date) : XValue();
}

}  // namespace

void CodeGenerator::generate(ExprTree::Id whole) {
  missing_ = {program_.addLiteral(XValue::ofDouble(0)), ExprType::Number};
  program_.finish(operand(whole).at);
}

CodeGenerator::Place CodeGenerator::operand(ExprTree::Id id) {
  if (id == ExprTree::none) return missing_;
  const ExprTree::Operand& node = tree_.operand(id);
  switch (node.kind) {
    case ExprTree::Kind::Literal:
      return literal(node.type, node.text);
    case ExprTree::Kind::Call:
      return node.function ? call(node) : unknownCall(node);
    case ExprTree::Kind::Column:
      return column(node.text);
    case ExprTree::Kind::Keyword:
      return keyword(node.text);
    default:
      return chain(node.first);
  }
}

// A date text that is no date gives no value, and is no error.
CodeGenerator::Place CodeGenerator::literal(ExprType type, const XString& text) {
  XValue value;
  switch (type) {
    case ExprType::Number:
      value.setDouble(leadingNumber(text));
      break;
    case ExprType::Text:
      value.setText(text);
      break;
    case ExprType::Logical:
      value.setBool(isTrueWord(text));
      break;
    case ExprType::Date:
      value = dateLiteral(context_, text);
      if (value.type() == VT_EMPTY) type = ExprType::None;
      break;
    default:
      errors_.report(ExprErrorCode::UnknownVariable, text);
      break;
  }
  return {program_.addLiteral(std::move(value)), type};
}

// The operators of a chain write one after the other into one slot: a sum of many texts is one text that
// grows.
CodeGenerator::Place CodeGenerator::chain(ExprTree::Id first) {
  Place left = operand(tree_.operation(first).left);
  const CompiledProgram::Slot slot = program_.addSlot();
  for (ExprTree::Id id = first; id != ExprTree::none; id = tree_.operation(id).next) {
    const ExprTree::Operator& node = tree_.operation(id);
    const Place right = operand(node.right);
    const OperatorChoice choice = chooseOperator(node.code, left.type, right.type);
    if (!choice.fits) errors_.report(ExprErrorCode::OperandType);
    const CompiledProgram::Register result = program_.addRegister();
    program_.addInstruction(choice.handler, nullptr, {left.at, right.at}, result, slot);
    left = {result, choice.result};
  }
  return left;
}

// Arguments that were not written are not tested: their literals come from the function's own row.
CodeGenerator::Place CodeGenerator::call(const ExprTree::Operand& call) {
  const XExprFunction& function = *call.function;
  std::vector<CompiledProgram::Register> arguments;
  for (std::size_t i = 0; i < call.arguments.size(); ++i) {
    arguments.push_back(argument(function, call, i).at);
  }
  const auto count = static_cast<std::size_t>(function.isVariadic() ? 0 : function.maxArguments);
  for (std::size_t i = arguments.size(); i < count; ++i) {
    const XExprParameter& parameter = function.parameter(i);
    arguments.push_back(literal(parameter.type, XString::fromNarrow(parameter.defaultText)).at);
  }
  const CompiledProgram::Register result = program_.addRegister();
  program_.addInstruction(function.handler, &function, std::move(arguments), result, program_.addSlot());
  return {result, function.result};
}

CodeGenerator::Place CodeGenerator::argument(const XExprFunction& function, const ExprTree::Operand& call,
                                             std::size_t index) {
  const ExprTree::Id written = call.arguments[index];
  const bool isSurplus = !function.isVariadic() && index >= static_cast<std::size_t>(function.maxArguments);
  if (isSurplus) return operand(written);
  const XExprParameter& parameter = function.parameter(index);
  const Place place = written == ExprTree::none
                          ? literal(parameter.type, XString::fromNarrow(parameter.defaultText))
                          : operand(written);
  if (function.isVariadic()) return place;
  if (place.type != parameter.type && place.type != ExprType::Any && parameter.type != ExprType::Any) {
    errors_.report(ExprErrorCode::ArgumentType, function.name, static_cast<std::int32_t>(index + 1));
  }
  return place;
}

// The call has been reported; what is wrong within its arguments comes on top.
CodeGenerator::Place CodeGenerator::unknownCall(const ExprTree::Operand& call) {
  for (const ExprTree::Id written : call.arguments) operand(written);
  return {missing_.at, ExprType::Any};
}

// A run reads a column once, however often the expression names it.
CodeGenerator::Place CodeGenerator::column(const XString& name) {
  const auto [known, isFirst] = columns_.try_emplace(context_.host->ColumnIndex(name));
  if (isFirst) {
    known->second = program_.addRegister();
    program_.addColumnRead(known->first, known->second);
  }
  return {known->second, ExprType::Any};
}

CodeGenerator::Place CodeGenerator::keyword(const XString& name) {
  const XExprFunction& function = keywordFunction();
  const auto index = static_cast<double>(ExprNames::keywordIndex(name));
  const CompiledProgram::Register number = program_.addLiteral(XValue::ofDouble(index));
  const CompiledProgram::Register result = program_.addRegister();
  program_.addInstruction(function.handler, &function, {number}, result, program_.addSlot());
  return {result, function.result};
}

}  // namespace tessera
