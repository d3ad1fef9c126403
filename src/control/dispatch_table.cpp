#include "control/dispatch_table.h"

#include <array>
#include <string>
#include <vector>

#include "shared/compare.h"
#include "shared/member_call.h"
#include "shared/utf.h"

namespace tessera {

namespace {

using member_call::Returns;
using member_call::SignatureOf;

template <auto Method>
constexpr auto callIt = member_call::call<Method, Returns::Status>;

template <auto Get, auto Put>
constexpr MemberRow property(std::int32_t dispid, std::string_view name) {
  constexpr auto count = static_cast<std::int32_t>(SignatureOf<Get>::ins);
  return {dispid, name, count, 0, 0, callIt<Get>, callIt<Put>, nullptr};
}

template <auto Get>
constexpr MemberRow readOnly(std::int32_t dispid, std::string_view name, std::int32_t optional = 0,
                             std::int32_t lastDefault = 0) {
  constexpr auto count = static_cast<std::int32_t>(SignatureOf<Get>::ins);
  return {dispid, name, count, optional, lastDefault, callIt<Get>, nullptr, nullptr};
}

template <auto Method>
constexpr MemberRow method(std::int32_t dispid, std::string_view name, std::int32_t optional = 0) {
  constexpr auto count = static_cast<std::int32_t>(SignatureOf<Method>::ins);
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
