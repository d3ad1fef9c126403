// C++ members called with values, as whoever knows them by name only calls them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>

#include <tessera/status.h>
#include <tessera/xstring.h>
#include <tessera/xvalue.h>

#include "shared/change_type.h"

namespace tessera::member_call {

inline HResult fromValue(const XValue& value, XString& argument) {
  XValue text;
  const HResult status = changeType(value, VT_BSTR, text);
  argument = text.asText();
  return status;
}

inline HResult fromValue(const XValue& value, std::int32_t& argument) {
  XValue number;
  const HResult status = changeType(value, VT_I4, number);
  argument = number.asInt();
  return status;
}

// A number comes through as it is, so that a property can tell VARIANT_TRUE from any other truth.
inline HResult fromValue(const XValue& value, VariantBool& argument) {
  if (value.type() == VT_I4) {
    const std::int32_t number = value.asInt();
    argument = number == static_cast<VariantBool>(number) ? static_cast<VariantBool>(number) : VARIANT_TRUE;
    return S_OK;
  }
  XValue flag;
  const HResult status = changeType(value, VT_BOOL, flag);
  argument = flag.asRawBool();
  return status;
}

inline HResult fromValue(const XValue& value, XValue& argument) {
  argument = value;
  return S_OK;
}

inline void toValue(const XString& argument, XValue& value) { value.setText(argument); }
inline void toValue(std::int32_t argument, XValue& value) { value.setInt(argument); }
inline void toValue(VariantBool argument, XValue& value) { value.setRawBool(argument); }
inline void toValue(const XValue& argument, XValue& value) { value = argument; }

template <class Argument>
constexpr bool isOut =
    std::is_lvalue_reference_v<Argument> && !std::is_const_v<std::remove_reference_t<Argument>>;

// Arguments go in first; at most one comes out, as the last.
template <class Method>
struct Signature;
template <class Owner, class Return, class... Arguments>
struct Signature<Return (Owner::*)(Arguments...)> {
  using Class = Owner;
  using Result = Return;
  using Tuple = std::tuple<std::remove_cvref_t<Arguments>...>;
  static constexpr std::size_t outs = (0 + ... + (isOut<Arguments> ? 1 : 0));
  static constexpr std::size_t ins = sizeof...(Arguments) - outs;
  static_assert(outs <= 1);
};

template <auto Method>
using SignatureOf = Signature<decltype(Method)>;

// Takes the first arguments from values; the rest stay at their defaults.
template <class Tuple, std::size_t... Index>
HResult readArguments(Tuple& tuple, [[maybe_unused]] std::span<const XValue> values,
                      std::index_sequence<Index...>) {
  HResult status = S_OK;
  (void)((succeeded(status = fromValue(values[Index], std::get<Index>(tuple)))) && ...);
  return status;
}

// What a member returns.
enum class Returns { Status, Answer };

// Calls the member; its answer goes to `result`, which is empty when there is none. A value that is of no use
// as an argument ends the call before it begins. What must hold: there are as many values as arguments go in.
template <auto Method, Returns returns>
HResult call(typename SignatureOf<Method>::Class& object, std::span<const XValue> values, XValue& result) {
  using Types = SignatureOf<Method>;
  typename Types::Tuple arguments{};
  HResult status = readArguments(arguments, values, std::make_index_sequence<Types::ins>{});
  result.setEmpty();
  if (!succeeded(status)) return status;
  const auto member = [&object](auto&... each) { return (object.*Method)(each...); };
  if constexpr (std::is_void_v<typename Types::Result>) {
    std::apply(member, arguments);
  } else if constexpr (returns == Returns::Status) {
    status = std::apply(member, arguments);
  } else {
    toValue(std::apply(member, arguments), result);
  }
  if constexpr (Types::outs > 0) toValue(std::get<Types::ins>(arguments), result);
  return status;
}

}  // namespace tessera::member_call
