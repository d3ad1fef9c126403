#include "expr/parser.h"

#include "expr/function_table.h"
#include "shared/compare.h"

namespace tessera {
namespace {

const OperatorToken* operatorWord(std::u16string_view word) {
  for (const OperatorToken& token : operatorWords) {
    if (equalNoCase(token.text, word)) return &token;
  }
  return nullptr;
}

bool isLogicalWord(std::u16string_view word) {
  return word.size() == 1 && std::u16string_view(u"TtYyFfNn").find(word[0]) != word.npos;
}

}  // namespace

ExprTree::Id Parser::parse() {
  const Id whole = parseScratch();
  if (source_.peek() == u')') {
    errors_.report(ExprErrorCode::MissingCharacter, '(');
  } else if (errors_.empty() && !source_.restFromComma().empty()) {
    errors_.report(ExprErrorCode::Syntax, source_.restFromComma());
  }
  return whole;
}

ExprTree::Id Parser::parseChain(std::int32_t limit, Id opener, bool nameMode) {
  if (depth_ == maxDepth) return refuseDepth();
  ++depth_;
  Chain chain{.limit = limit, .tail = opener, .nameMode = nameMode};
  attachOperand(chain);
  for (Step step = Step::ReadOn; step != Step::Finish && !errors_.full();) {
    step = readItem(chain);
    if (step != Step::Tail) continue;
    attachOperand(chain);
    if (source_.atEnd()) break;
    source_.advance();
  }
  --depth_;
  return finishChain(chain);
}

// Nothing behind this place is read any more, and nothing that follows from that is reported.
ExprTree::Id Parser::refuseDepth() {
  errors_.report(ExprErrorCode::Syntax, source_.rest());
  errors_.close();
  source_.moveToEnd();
  return none;
}

void Parser::attachOperand(Chain& chain) {
  if (chain.tail == none) return;
  ExprTree::Operator& tail = tree_.operation(chain.tail);
  if (tail.right == none) tail.right = chain.operand;
  if (chain.result != none) return;
  chain.result = tree_.addChain(chain.tail);
}

ExprTree::Id Parser::finishChain(Chain& chain) {
  if (chain.tail == none) return chain.operand;
  if (chain.operand == none) {
    errors_.report(ExprErrorCode::MissingOperand);
  } else {
    tree_.operation(chain.tail).right = chain.operand;
  }
  return chain.result;
}

Parser::Step Parser::readItem(Chain& chain) {
  if (source_.atEnd()) return Step::Finish;
  switch (source_.peek()) {
    case u')':
      return Step::Finish;
    case u',':
      source_.advance();
      return Step::Finish;
    case u'\t':
    case u' ':
      source_.advance();
      return Step::ReadOn;
    case u';':
      source_.skipContinuation();
      return Step::ReadOn;
    case u'(':
      return readGroup(chain);
    case u'"':
    case u'\'':
      return readString(chain, source_.peek());
    case u'[':
      return readString(chain, u']');
    case u'{':
      return readDate(chain);
    case u'.':
      return readDot(chain);
    case u'-':
      return readMinus(chain);
    default:
      break;
  }
  if (isExprDigit(source_.peek())) return readNumber(chain);
  const OperatorToken* token = source_.operatorHere();
  return token ? readOperator(chain, *token) : readName(chain);
}

Parser::Step Parser::readGroup(Chain& chain) {
  requireOperator(chain);
  source_.advance();
  chain.operand = parseScratch();
  if (source_.peek() == u')') return Step::Tail;
  errors_.report(ExprErrorCode::MissingCharacter, ')');
  return Step::Finish;
}

Parser::Step Parser::readString(Chain& chain, char16_t closing) {
  requireOperator(chain);
  source_.advance();
  XString text;
  if (!source_.scanString(closing, text)) errors_.report(ExprErrorCode::MissingCharacter, closing);
  takeLiteral(chain, ExprType::Text, text);
  return Step::Tail;
}

Parser::Step Parser::readDate(Chain& chain) {
  requireOperator(chain);
  source_.advance();
  std::u16string_view text;
  if (!source_.scanRaw(u'}', text)) errors_.report(ExprErrorCode::MissingCharacter, '}');
  takeLiteral(chain, ExprType::Date, text);
  return Step::Tail;
}

Parser::Step Parser::readDot(Chain& chain) {
  const std::u16string_view number = source_.scanNumber();
  if (!number.empty()) {
    takeLiteral(chain, ExprType::Number, number);
    return readOnAttached(chain);
  }
  source_.advance();
  std::u16string_view word;
  if (!source_.scanRaw(u'.', word)) errors_.report(ExprErrorCode::MissingCharacter, '.');
  return readDotWord(chain, word);
}

Parser::Step Parser::readDotWord(Chain& chain, std::u16string_view word) {
  if (const OperatorToken* token = operatorWord(word))
    return addOperator(chain, token->code, token->priority);
  if (isLogicalWord(word)) {
    takeLiteral(chain, ExprType::Logical, word);
  } else {
    errors_.report(ExprErrorCode::Syntax, word);
  }
  return Step::Tail;
}

Parser::Step Parser::readNumber(Chain& chain) {
  takeLiteral(chain, ExprType::Number, source_.scanNumber());
  return readOnAttached(chain);
}

// Behind an operand a minus sign adds the negated right side: the sign is read a second time, as one without
// a left operand.
Parser::Step Parser::readMinus(Chain& chain) {
  if (chain.operand != none) return addOperator(chain, OperatorCode::Add, addPriority, Place::OnRightSide);
  if (isExprDigit(source_.peek(1))) return readNumber(chain);
  return addOperator(chain, OperatorCode::Negate, signPriority);
}

Parser::Step Parser::readOperator(Chain& chain, const OperatorToken& token) {
  const bool isSign = token.code == OperatorCode::Add && chain.operand == none;
  source_.advance(token.text.size() - 1);
  return addOperator(chain, token.code, isSign ? signPriority : token.priority);
}

Parser::Step Parser::readName(Chain& chain) {
  const std::u16string_view name = source_.identifier();
  if (name.empty()) return refuseCharacter();
  source_.advance(name.size());
  if (names_.matchColumnName(name)) {
    if (chain.nameMode) {
      chain.operand = tree_.addLiteral(ExprType::Text, name);
      return Step::ReadOn;
    }
    chain.operand = tree_.addReference(ExprTree::Kind::Column, name);
    return readOnAttached(chain);
  }
  if (ExprNames::matchKeyword(name)) {
    chain.operand = tree_.addReference(ExprTree::Kind::Keyword, name);
    return readOnAttached(chain);
  }
  return readPlainWord(chain, name);
}

// Each of the three readers of names turns the character down.
Parser::Step Parser::refuseCharacter() {
  for (int reader = 0; reader < 3; ++reader) errors_.report(ExprErrorCode::Syntax, source_.rest());
  return Step::Tail;
}

// The character behind an operator's word separates it from what follows, and is passed over whatever it is.
Parser::Step Parser::readPlainWord(Chain& chain, std::u16string_view word) {
  if (source_.peek() == u'(') return readCall(chain, word);
  if (const OperatorToken* token = operatorWord(word))
    return addOperator(chain, token->code, token->priority);
  takeLiteral(chain, ExprType::Any, word);
  return readOnAttached(chain);
}

Parser::Step Parser::readCall(Chain& chain, std::u16string_view name) {
  requireOperator(chain);
  source_.advance();
  ExprTree::Operand call;
  call.kind = ExprTree::Kind::Call;
  call.function = findFunction(name);
  call.arguments = readArguments(startsWithNoCase(name, u"GF"));
  if (call.function) {
    checkCall(*call.function, call.arguments.size());
  } else {
    errors_.report(ExprErrorCode::UnknownFunction, name);
  }
  chain.operand = tree_.add(std::move(call));
  return Step::Tail;
}

// A comma ends an argument; one directly before the closing parenthesis starts no further one.
std::vector<ExprTree::Id> Parser::readArguments(bool nameMode) {
  std::vector<Id> arguments;
  while (source_.peek() == u' ') source_.advance();
  while (!source_.atEnd() && source_.peek() != u')' && !errors_.full()) {
    arguments.push_back(parseScratch(nameMode));
  }
  return arguments;
}

void Parser::checkCall(const XExprFunction& function, std::size_t count) {
  const std::string_view name = function.name;
  if (source_.peek() != u')') errors_.report(ExprErrorCode::MissingParenthesis, name);
  if (count < function.minArguments) errors_.report(ExprErrorCode::TooFewArguments, name);
  if (!function.isVariadic() && count > static_cast<std::size_t>(function.maxArguments)) {
    errors_.report(ExprErrorCode::TooManyArguments, name);
  }
}

Parser::Step Parser::addOperator(Chain& chain, OperatorCode code, std::int32_t priority, Place place) {
  const bool isOrphan = chain.operand == none && !mayLackLeft(code);
  if (isOrphan) errors_.report(ExprErrorCode::MissingOperand);
  if (chain.tail != none) {
    Id& right = tree_.operation(chain.tail).right;
    right = chain.operand;
    if (isOrphan) errors_.report(ExprErrorCode::MissingOperand);
  }
  const Id added = tree_.addOperator({.code = code, .left = chain.operand});
  chain.operand = none;
  if (priority <= chain.limit) {
    if (chain.tail != none) tree_.operation(chain.tail).next = added;
    chain.limit = priority;
    chain.tail = added;
    if (place == Place::OnOperator) return Step::Tail;
    return readOnAttached(chain);
  }
  if (place == Place::OnOperator && !source_.atEnd()) source_.advance();
  chain.operand = parseChain(priority, added, false);
  return Step::Finish;
}

// Two operands in a row: the missing operator is reported and stood in for.
void Parser::requireOperator(Chain& chain) {
  if (chain.operand == none) return;
  errors_.report(ExprErrorCode::MissingOperator);
  addOperator(chain, OperatorCode::Placeholder, lowestPriority);
}

void Parser::takeLiteral(Chain& chain, ExprType type, const XString& text) {
  requireOperator(chain);
  chain.operand = tree_.addLiteral(type, text);
}

Parser::Step Parser::readOnAttached(Chain& chain) {
  attachOperand(chain);
  return Step::ReadOn;
}

}  // namespace tessera
