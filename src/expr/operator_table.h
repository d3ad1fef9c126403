// The operators of the language.

#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tessera {

enum class OperatorCode : std::uint8_t {
  Placeholder = 0,  // stands where an operator is missing
  Add = 1,
  Negate = 2,
  Multiply = 3,
  Divide = 4,
  Power = 5,
  Remainder = 6,
  Equal = 7,
  ExactEqual = 8,
  NotEqual = 9,
  Greater = 10,
  GreaterEqual = 11,
  Less = 12,
  LessEqual = 13,
  Not = 14,
  And = 15,
  Or = 16,
  Contained = 17,
};

// A higher priority binds tighter.
struct OperatorToken {
  std::u16string_view text;
  OperatorCode code;
  std::int32_t priority;
};

inline constexpr std::int32_t lowestPriority = 0;
inline constexpr std::int32_t noPriorityLimit = 0x7FFFFFFF;

// A token stands before every other one that it starts with. The minus sign is not among them: whether it
// negates depends on what stands before it, as it does for the plus sign.
inline constexpr auto operatorTokens = std::to_array<OperatorToken>({
    {u"==", OperatorCode::ExactEqual, 0},
    {u"=", OperatorCode::Equal, 0},
    {u"#", OperatorCode::NotEqual, 0},
    {u"!=", OperatorCode::NotEqual, 0},
    {u"!", OperatorCode::Not, 5},
    {u"<>", OperatorCode::NotEqual, 0},
    {u"<=", OperatorCode::LessEqual, 1},
    {u"<", OperatorCode::Less, 1},
    {u">=", OperatorCode::GreaterEqual, 1},
    {u">", OperatorCode::Greater, 0},
    {u"+", OperatorCode::Add, 2},
    {u"$", OperatorCode::Contained, 2},
    {u"**", OperatorCode::Power, 4},
    {u"*", OperatorCode::Multiply, 3},
    {u"/", OperatorCode::Divide, 3},
    {u"%", OperatorCode::Remainder, 3},
    {u"^", OperatorCode::Power, 4},
});

// Written in any case, with a dot at both ends or without.
inline constexpr auto operatorWords = std::to_array<OperatorToken>({
    {u"NOT", OperatorCode::Not, 5},
    {u"AND", OperatorCode::And, 6},
    {u"OR", OperatorCode::Or, 7},
});

inline constexpr std::int32_t addPriority = 2;
inline constexpr std::int32_t signPriority = 8;  // of a sign without a left operand

// Whether an operator may stand at the start of an operand.
constexpr bool mayLackLeft(OperatorCode code) {
  return code == OperatorCode::Not || code == OperatorCode::Negate || code == OperatorCode::Add;
}

}  // namespace tessera
