// The automation members by name and dispid.

#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include <tessera/itessera.h>

namespace tessera {

enum class MemberUse { Get, Put, Call };

using MemberInvoker = HResult (*)(ITessera& control, std::span<const XValue> arguments, XValue& result);

// One member. A use that the member does not have is null. `optional` arguments at the end may be left out
// and are then 0 or empty, but for `lastDefault` where the last one is a number.
struct MemberRow {
  std::int32_t dispid;
  std::string_view name;
  std::int32_t arguments;  // without the value of a put
  std::int32_t optional;
  std::int32_t lastDefault;
  MemberInvoker get;
  MemberInvoker put;
  MemberInvoker call;
};

// All members in the order of their dispids.
std::span<const MemberRow> memberTable();
// Names compare without ASCII case; null when there is no such member.
const MemberRow* findMember(std::u16string_view name);

// Calls a member with arguments that are converted to the member's types. A put takes the value last.
// DISP_E_MEMBERNOTFOUND, DISP_E_BADPARAMCOUNT and DISP_E_TYPEMISMATCH tell what was wrong with the call; then
// nothing happened. `result` is VT_EMPTY after a put or a call.
HResult invokeMember(ITessera& control, std::u16string_view name, MemberUse use,
                     std::span<const XValue> arguments, XValue& result);

}  // namespace tessera
