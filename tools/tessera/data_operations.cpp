#include "tools/tessera/data_operations.h"

#include <array>
#include <tuple>
#include <type_traits>
#include <utility>

#include "shared/change_type.h"
#include "shared/compare.h"
#include "shared/utf.h"

namespace tessera {

namespace {

HResult fromValue(const XValue& value, XString& argument) {
  XValue text;
  const HResult status = changeType(value, VT_BSTR, text);
  argument = text.asText();
  return status;
}

HResult fromValue(const XValue& value, std::int32_t& argument) {
  XValue number;
  const HResult status = changeType(value, VT_I4, number);
  argument = number.asInt();
  return status;
}

HResult fromValue(const XValue& value, XValue& argument) {
  argument = value;
  return S_OK;
}

void toValue(const XString& argument, XValue& value) { value.setText(argument); }
void toValue(std::int32_t argument, XValue& value) { value.setInt(argument); }
void toValue(VariantBool argument, XValue& value) { value.setRawBool(argument); }
void toValue(const XValue& argument, XValue& value) { value = argument; }

template <class Argument>
constexpr bool isOut =
    std::is_lvalue_reference_v<Argument> && !std::is_const_v<std::remove_reference_t<Argument>>;

// The types of an operation, from its C++ signature. A result is the last argument, or is returned.
template <class Method>
struct Signature;
template <class Return, class... Arguments>
struct Signature<Return (DataSetControl::*)(Arguments...)> {
  using Result = Return;
  using Tuple = std::tuple<std::remove_cvref_t<Arguments>...>;
  static constexpr std::size_t outs = (0 + ... + (isOut<Arguments> ? 1 : 0));
  static constexpr std::size_t ins = sizeof...(Arguments) - outs;
  static constexpr bool hasResult = outs > 0 || !std::is_void_v<Return>;
};

template <class Tuple, std::size_t... Index>
HResult readArguments(Tuple& tuple, [[maybe_unused]] std::span<const XValue> values,
                      std::index_sequence<Index...>) {
  HResult status = S_OK;
  (void)((succeeded(status = fromValue(values[Index], std::get<Index>(tuple)))) && ...);
  return status;
}

template <auto Method>
HResult callIt(DataSetControl& data, std::span<const XValue> values, XValue& result) {
  using Types = Signature<decltype(Method)>;
  typename Types::Tuple arguments{};
  const HResult status = readArguments(arguments, values, std::make_index_sequence<Types::ins>{});
  result.setEmpty();
  if (!succeeded(status)) return status;
  const auto call = [&data](auto&... each) { return (data.*Method)(each...); };
  if constexpr (std::is_void_v<typename Types::Result>) {
    std::apply(call, arguments);
    if constexpr (Types::outs > 0) toValue(std::get<Types::ins>(arguments), result);
  } else {
    toValue(std::apply(call, arguments), result);
  }
  return S_OK;
}

template <auto Method>
constexpr DataOperation operation(std::string_view name) {
  using Types = Signature<decltype(Method)>;
  return {name, static_cast<std::int32_t>(Types::ins), Types::hasResult, callIt<Method>};
}

using D = DataSetControl;

constexpr std::array operations = {
    operation<&D::GetID>("GetID"),
    operation<&D::GetKeepDeleted>("GetKeepDeleted"),
    operation<&D::GetSubsumExpr>("GetSubsumExpr"),
    operation<&D::GetSortExpr>("GetSortExpr"),
    operation<&D::SetSortExpr>("SetSortExpr"),
    operation<&D::ApplySort>("ApplySort"),
    operation<&D::GetColumnIndex>("GetColumnIndex"),
    operation<&D::GetColumnCount>("GetColumnCount"),
    operation<&D::GetColumnName>("GetColumnName"),
    operation<&D::GetColumnType>("GetColumnType"),
    operation<&D::GetColumnLength>("GetColumnLength"),
    operation<&D::GetColumnScale>("GetColumnScale"),
    operation<&D::GetRowCount>("GetRowCount"),
    operation<&D::GetStatus>("GetStatus"),
    operation<&D::GetSysStatus>("GetSysStatus"),
    operation<&D::GetLevel>("GetLevel"),
    operation<&D::GetRowSelected>("GetRowSelected"),
    operation<&D::SetRowSelected>("SetRowSelected"),
    operation<&D::GetValue>("GetValue"),
    operation<&D::SetValue>("SetValue"),
    operation<&D::GetValueByName>("GetValueByName"),
    operation<&D::GetText>("GetText"),
    operation<&D::SetText>("SetText"),
    operation<&D::GetTextByName>("GetTextByName"),
    operation<&D::SetTextByName>("SetTextByName"),
    operation<&D::GetCurrentRow>("GetCurrentRow"),
    operation<&D::SetCurrentRow>("SetCurrentRow"),
    operation<&D::SumRange>("SumRange"),
    operation<&D::MaxRange>("MaxRange"),
    operation<&D::MinRange>("MinRange"),
    operation<&D::AverageRange>("AverageRange"),
    operation<&D::RealCount>("RealCount"),
    operation<&D::GroupStart>("GroupStart"),
    operation<&D::GroupEnd>("GroupEnd"),
    operation<&D::AdjacentRow>("AdjacentRow"),
    operation<&D::FindRow>("FindRow"),
    operation<&D::CommitRows>("CommitRows"),
    operation<&D::InsertRow>("InsertRow"),
    operation<&D::DeleteRow>("DeleteRow"),
};
static_assert(operations.size() == 39);

}  // namespace

std::span<const DataOperation> dataOperations() { return operations; }

const DataOperation* findDataOperation(std::u16string_view name) {
  for (const DataOperation& row : operations) {
    if (equalNoCase(utf16FromUtf8(row.name), name)) return &row;
  }
  return nullptr;
}

}  // namespace tessera
