#include "tools/tessera/data_operations.h"

#include <array>
#include <type_traits>

#include "shared/compare.h"
#include "shared/member_call.h"
#include "shared/utf.h"

namespace tessera {

namespace {

using member_call::Returns;

template <auto Method>
constexpr DataOperation operation(std::string_view name) {
  using Types = member_call::SignatureOf<Method>;
  constexpr bool hasResult = Types::outs > 0 || !std::is_void_v<typename Types::Result>;
  return {name, static_cast<std::int32_t>(Types::ins), hasResult, member_call::call<Method, Returns::Answer>};
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
