// From the text of an expression to its tree.

#pragma once

#include "expr/expr_errors.h"
#include "expr/expr_names.h"
#include "expr/expr_tree.h"
#include "expr/source_cursor.h"

namespace tessera {

// One recursive routine reads characters and builds chains of operators. An operator that binds tighter than
// the one before it opens a nested chain, which takes everything up to the next closing parenthesis, comma or
// end: a weaker operator that follows joins the nested chain and never returns to the outer one. That, and
// every position in the error list, is part of the language.
class Parser {
 public:
  Parser(std::u16string_view text, const ExprNames& names, ExprTree& tree, ExprErrors& errors)
      : source_(text), names_(names), tree_(tree), errors_(errors) {}

  // The operand that the whole text is; none when there is none.
  ExprTree::Id parse();

 private:
  using Id = ExprTree::Id;
  static constexpr Id none = ExprTree::none;
  // Chains, parentheses and arguments that may stand in each other.
  static constexpr std::int32_t maxDepth = 1000;

  struct Chain {
    std::int32_t limit;  // priority of the operator before; a tighter one opens a nested chain
    Id tail;             // the last operator
    bool nameMode;       // column names stand for themselves, not for their values
    Id operand = none;   // read, and not yet an operand of anything
    Id result = none;
  };

  enum class Step {
    ReadOn,  // the cursor stands behind what was read
    Tail,    // the cursor stands on its last character
    Finish,  // the chain ends here
  };

  Id parseChain(std::int32_t limit, Id opener, bool nameMode);
  Id parseScratch(bool nameMode = false) { return parseChain(noPriorityLimit, none, nameMode); }
  void attachOperand(Chain& chain);
  Id finishChain(Chain& chain);
  Id refuseDepth();

  Step readItem(Chain& chain);
  Step readGroup(Chain& chain);
  Step readString(Chain& chain, char16_t closing);
  Step readDate(Chain& chain);
  Step readDot(Chain& chain);
  Step readDotWord(Chain& chain, std::u16string_view word);
  Step readNumber(Chain& chain);
  Step readMinus(Chain& chain);
  Step readOperator(Chain& chain, const OperatorToken& token);
  Step readName(Chain& chain);
  Step readPlainWord(Chain& chain, std::u16string_view word);
  Step readCall(Chain& chain, std::u16string_view name);
  Step refuseCharacter();
  std::vector<Id> readArguments(bool nameMode);
  void checkCall(const XExprFunction& function, std::size_t count);

  // The cursor stands on the operator's last character, or on the first one of its right side.
  enum class Place { OnOperator, OnRightSide };
  Step addOperator(Chain& chain, OperatorCode code, std::int32_t priority, Place place = Place::OnOperator);
  void requireOperator(Chain& chain);
  void takeLiteral(Chain& chain, ExprType type, const XString& text);
  Step readOnAttached(Chain& chain);

  SourceCursor source_;
  const ExprNames& names_;
  ExprTree& tree_;
  ExprErrors& errors_;
  std::int32_t depth_ = 0;
};

}  // namespace tessera
