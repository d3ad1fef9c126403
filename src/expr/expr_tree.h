// An expression between parser and code generation.

#pragma once

#include <cstdint>
#include <vector>

#include <tessera/xstring.h>

#include "expr/operator_table.h"
#include "expr/value_type.h"

namespace tessera {

struct XExprFunction;

// Operands and operators name each other by number, so that a tree of any shape is freed without recursion.
class ExprTree {
 public:
  using Id = std::int32_t;
  static constexpr Id none = -1;

  enum class Kind : std::uint8_t { Literal, Call, Column, Keyword, Chain };

  struct Operand {
    Kind kind = Kind::Literal;
    ExprType type = ExprType::Any;            // of a literal; Any is a bare name
    XString text;                             // of a literal, a column or a keyword
    const XExprFunction* function = nullptr;  // of a call; null for an unknown one
    std::vector<Id> arguments;                // of a call: operands, or none for an empty argument
    Id first = none;                          // of a chain: its first operator
  };

  // Operators of a chain are evaluated from left to right: each one but the first works on the result of its
  // predecessor, whatever its `left` is.
  struct Operator {
    OperatorCode code = OperatorCode::Placeholder;
    Id left = none;   // an operand
    Id right = none;  // an operand
    Id next = none;   // an operator
  };

  Id add(Operand operand) {
    operands_.push_back(std::move(operand));
    return static_cast<Id>(operands_.size()) - 1;
  }
  Id addLiteral(ExprType type, const XString& text) {
    Operand literal;
    literal.type = type;
    literal.text = text;
    return add(std::move(literal));
  }
  // A column or a keyword, as it was typed.
  Id addReference(Kind kind, const XString& name) {
    Operand reference;
    reference.kind = kind;
    reference.text = name;
    return add(std::move(reference));
  }
  Id addChain(Id first) {
    Operand chain;
    chain.kind = Kind::Chain;
    chain.first = first;
    return add(std::move(chain));
  }
  Id addOperator(const Operator& operation) {
    operators_.push_back(operation);
    return static_cast<Id>(operators_.size()) - 1;
  }
  const Operand& operand(Id id) const { return operands_[static_cast<std::size_t>(id)]; }
  Operator& operation(Id id) { return operators_[static_cast<std::size_t>(id)]; }
  const Operator& operation(Id id) const { return operators_[static_cast<std::size_t>(id)]; }

  bool empty() const { return operands_.empty() && operators_.empty(); }

 private:
  std::vector<Operand> operands_;
  std::vector<Operator> operators_;
};

}  // namespace tessera
