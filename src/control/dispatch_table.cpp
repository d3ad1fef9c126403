#include "control/dispatch_table.h"

#include <array>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "shared/change_type.h"
#include "shared/compare.h"
#include "shared/utf.h"

namespace tessera {

namespace {

// How C++ argument types stand in values.

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

// A number comes through as it is, so that a property can tell VARIANT_TRUE from any other truth.
HResult fromValue(const XValue& value, VariantBool& argument) {
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

HResult fromValue(const XValue& value, XValue& argument) {
  argument = value;
  return S_OK;
}

void toValue(const XString& argument, XValue& value) { value.setText(argument); }
void toValue(std::int32_t argument, XValue& value) { value.setInt(argument); }
void toValue(VariantBool argument, XValue& value) { value.setRawBool(argument); }
void toValue(const XValue& argument, XValue& value) { value = argument; }

// The automation types of a member function, from its C++ signature.
template <class Method>
struct Signature;
template <class... Arguments>
struct Signature<HResult (ITessera::*)(Arguments...)> {
  using Tuple = std::tuple<std::remove_cvref_t<Arguments>...>;
  static constexpr std::size_t count = sizeof...(Arguments);
};

// Takes the first `Count` arguments from values; the rest stay at their defaults.
template <class Tuple, std::size_t... Index>
HResult readArguments(Tuple& tuple, [[maybe_unused]] std::span<const XValue> values,
                      std::index_sequence<Index...>) {
  HResult status = S_OK;
  (void)((succeeded(status = fromValue(values[Index], std::get<Index>(tuple)))) && ...);
  return status;
}

template <auto Method>
HResult callIt(ITessera& control, std::span<const XValue> values, XValue& result) {
  using Types = Signature<decltype(Method)>;
  typename Types::Tuple arguments{};
  const HResult status = readArguments(arguments, values, std::make_index_sequence<Types::count>{});
  result.setEmpty();
  if (!succeeded(status)) return status;
  return std::apply([&control](auto&... each) { return (control.*Method)(each...); }, arguments);
}

// The last argument is the answer.
template <auto Method>
HResult getIt(ITessera& control, std::span<const XValue> values, XValue& result) {
  using Types = Signature<decltype(Method)>;
  typename Types::Tuple arguments{};
  HResult status = readArguments(arguments, values, std::make_index_sequence<Types::count - 1>{});
  if (!succeeded(status)) return status;
  status = std::apply([&control](auto&... each) { return (control.*Method)(each...); }, arguments);
  toValue(std::get<Types::count - 1>(arguments), result);
  return status;
}

template <auto Get, auto Put>
constexpr MemberRow property(std::int32_t dispid, std::string_view name) {
  constexpr auto count = static_cast<std::int32_t>(Signature<decltype(Get)>::count) - 1;
  return {dispid, name, count, 0, 0, getIt<Get>, callIt<Put>, nullptr};
}

template <auto Get>
constexpr MemberRow readOnly(std::int32_t dispid, std::string_view name, std::int32_t optional = 0,
                             std::int32_t lastDefault = 0) {
  constexpr auto count = static_cast<std::int32_t>(Signature<decltype(Get)>::count) - 1;
  return {dispid, name, count, optional, lastDefault, getIt<Get>, nullptr, nullptr};
}

template <auto Method>
constexpr MemberRow method(std::int32_t dispid, std::string_view name, std::int32_t optional = 0) {
  constexpr auto count = static_cast<std::int32_t>(Signature<decltype(Method)>::count);
  return {dispid, name, count, optional, 0, nullptr, nullptr, callIt<Method>};
}

using I = ITessera;

constexpr std::array members = {
    property<&I::get_DataID, &I::put_DataID>(1, "DataID"),
    property<&I::get_Draw, &I::put_Draw>(2, "Draw"),
    property<&I::get_ColumnInfo, &I::put_ColumnInfo>(3, "ColumnInfo"),
    property<&I::get_IndicatorInfo, &I::put_IndicatorInfo>(4, "IndicatorInfo"),
    property<&I::get_BackgroundInfo, &I::put_BackgroundInfo>(5, "BackgroundInfo"),
    property<&I::get_ViewSummary, &I::put_ViewSummary>(6, "ViewSummary"),
    property<&I::get_SelectedColor, &I::put_SelectedColor>(7, "SelectedColor"),
    property<&I::get_SelectedColorRate, &I::put_SelectedColorRate>(8, "SelectedColorRate"),
    property<&I::get_ExtProp, &I::put_ExtProp>(9, "ExtProp"),
    method<&I::Do>(10, "Do"),
    property<&I::get_IME, &I::put_IME>(11, "IME"),
    property<&I::get_ImageDataID, &I::put_ImageDataID>(12, "ImageDataID"),
    property<&I::get_MenuInfo, &I::put_MenuInfo>(13, "MenuInfo"),
    property<&I::get_LayoutInfo, &I::put_LayoutInfo>(14, "LayoutInfo"),
    readOnly<&I::get_Version>(15, "Version"),
    property<&I::get_Enable, &I::put_Enable>(16, "Enable"),
    readOnly<&I::get_GetText>(17, "GetText", 1, 3),
    method<&I::Focus>(18, "Focus"),
    method<&I::TrackPopupMenu>(19, "TrackPopupMenu"),
    readOnly<&I::get_GetEditText>(20, "GetEditText"),
    property<&I::get_RowPosition, &I::put_RowPosition>(21, "RowPosition"),
    property<&I::get_ColumnPosition, &I::put_ColumnPosition>(22, "ColumnPosition"),
    property<&I::get_Temp, &I::put_Temp>(23, "Temp"),
    method<&I::ActivateEdit>(24, "ActivateEdit"),
    method<&I::FitArrange>(25, "FitArrange"),
    method<&I::Expand>(26, "Expand"),
    method<&I::ExpandAll>(27, "ExpandAll"),
    method<&I::Collapse>(28, "Collapse"),
    method<&I::CollapseAll>(29, "CollapseAll"),
    method<&I::Insert>(30, "Insert", 2),
    method<&I::Delete>(31, "Delete"),
    property<&I::get_Sort, &I::put_Sort>(32, "Sort"),
    method<&I::Move>(33, "Move", 1),
    property<&I::get_DragDrop, &I::put_DragDrop>(34, "DragDrop"),
    readOnly<&I::get_GetRefColumnID>(35, "GetRefColumnID"),
    property<&I::get_Resize, &I::put_Resize>(36, "Resize"),
    method<&I::ExportTitle>(37, "ExportTitle", 1),
    method<&I::GridToExcel>(38, "GridToExcel"),
    method<&I::ExportFooter>(39, "ExportFooter", 1),
    method<&I::GridToHtml>(40, "GridToHtml"),
    readOnly<&I::get_GetColumnID>(41, "GetColumnID"),
    readOnly<&I::get_CountColumn>(42, "CountColumn"),
    property<&I::get_BlockSelect, &I::put_BlockSelect>(43, "BlockSelect"),
    readOnly<&I::get_SelectedRows>(44, "SelectedRows"),
    property<&I::get_FixVScroll, &I::put_FixVScroll>(45, "FixVScroll"),
    property<&I::get_FixHScroll, &I::put_FixHScroll>(46, "FixHScroll"),
    property<&I::get_FocusRect, &I::put_FocusRect>(47, "FocusRect"),
    method<&I::UpdateImageSet>(48, "UpdateImageSet"),
    property<&I::get_ViewHeader, &I::put_ViewHeader>(49, "ViewHeader"),
};

constexpr bool inDispidOrder() {
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (members[i].dispid != static_cast<std::int32_t>(i) + 1) return false;
  }
  return true;
}
static_assert(members.size() == 49 && inDispidOrder());

MemberInvoker invokerOf(const MemberRow& member, MemberUse use) {
  switch (use) {
    case MemberUse::Get:
      return member.get;
    case MemberUse::Put:
      return member.put;
    default:
      return member.call;
  }
}

}  // namespace

std::span<const MemberRow> memberTable() { return members; }

const MemberRow* findMember(std::u16string_view name) {
  for (const MemberRow& member : members) {
    if (equalNoCase(utf16FromUtf8(member.name), name)) return &member;
  }
  return nullptr;
}

HResult invokeMember(ITessera& control, std::u16string_view name, MemberUse use,
                     std::span<const XValue> arguments, XValue& result) {
  const MemberRow* member = findMember(name);
  const MemberInvoker invoke = member ? invokerOf(*member, use) : nullptr;
  if (!invoke) return DISP_E_MEMBERNOTFOUND;
  const auto wanted = static_cast<std::size_t>(member->arguments + (use == MemberUse::Put ? 1 : 0));
  if (arguments.size() > wanted || arguments.size() + static_cast<std::size_t>(member->optional) < wanted) {
    return DISP_E_BADPARAMCOUNT;
  }
  std::vector<XValue> filled(arguments.begin(), arguments.end());
  while (filled.size() < wanted) filled.emplace_back();
  if (arguments.size() < wanted && member->lastDefault != 0) filled.back().setInt(member->lastDefault);
  return invoke(control, filled, result);
}

}  // namespace tessera
