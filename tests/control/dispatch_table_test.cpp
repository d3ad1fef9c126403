#include "control/dispatch_table.h"

#include "tests/control/control_fixture.h"

namespace tessera {
namespace {

using namespace test;

class DispatchTable : public ControlTest {
 protected:
  HResult invoke(const char16_t* name, MemberUse use, std::vector<XValue> arguments) {
    return invokeMember(control, name, use, arguments, result);
  }
  XValue result;
};

TEST_F(DispatchTable, ConvertsArgumentsAndResults) {
  EXPECT_EQ(invoke(u"selectedcolorrate", MemberUse::Put, {XValue::ofText(u"35")}), S_OK);
  EXPECT_EQ(invoke(u"SelectedColorRate", MemberUse::Get, {}), S_OK);
  EXPECT_TRUE(result == XValue::ofInt(35));
  EXPECT_EQ(invoke(u"Draw", MemberUse::Put, {XValue::ofDouble(0)}), S_OK);
  EXPECT_EQ(invoke(u"Draw", MemberUse::Get, {}), S_OK);
  EXPECT_TRUE(result == XValue::ofBool(false));
  EXPECT_EQ(invoke(u"Temp", MemberUse::Put, {XValue::ofDate(1.5)}), S_OK);
  EXPECT_EQ(invoke(u"Temp", MemberUse::Get, {}), S_OK);
  EXPECT_TRUE(result == XValue::ofDate(1.5));
  EXPECT_EQ(invoke(u"Version", MemberUse::Get, {}), S_OK);
  EXPECT_EQ(std::count(result.asText().view().begin(), result.asText().view().end(), u','), 3);
}

TEST_F(DispatchTable, SaysWhatIsWrongWithACall) {
  struct Case {
    const char16_t* name;
    MemberUse use;
    std::vector<XValue> arguments;
    HResult status;
  };
  const Case cases[] = {
      {u"NoSuchMember", MemberUse::Get, {}, DISP_E_MEMBERNOTFOUND},
      {u"Version", MemberUse::Put, {XValue::ofText(u"1")}, DISP_E_MEMBERNOTFOUND},
      {u"Focus", MemberUse::Get, {}, DISP_E_MEMBERNOTFOUND},
      {u"Draw", MemberUse::Get, {XValue::ofInt(1)}, DISP_E_BADPARAMCOUNT},
      {u"Draw", MemberUse::Put, {}, DISP_E_BADPARAMCOUNT},
      {u"Insert", MemberUse::Call, {}, DISP_E_BADPARAMCOUNT},
      {u"Insert",
       MemberUse::Call,
       {XValue::ofInt(1), XValue::ofInt(0), XValue(), XValue()},
       DISP_E_BADPARAMCOUNT},
      {u"IME", MemberUse::Put, {XValue::ofText(u"native")}, DISP_E_TYPEMISMATCH},
      {u"IME", MemberUse::Put, {XValue::ofDouble(1e12)}, DISP_E_OVERFLOW},
  };
  for (const Case& c : cases)
    EXPECT_EQ(invoke(c.name, c.use, c.arguments), c.status) << utf8FromUtf16(c.name);
  std::int32_t ime = -1;
  control.get_IME(ime);
  EXPECT_EQ(ime, 0);
}

// Every use of every member answers S_OK, with arguments that mean nothing, with a window and without.
TEST_F(DispatchTable, EveryMemberSucceeds) {
  addData(3);
  for (bool bound : {false, true}) {
    if (bound) open();
    for (const MemberRow& member : memberTable()) {
      const std::u16string name = utf16FromUtf8(member.name);
      std::vector<XValue> arguments(static_cast<std::size_t>(member.arguments), XValue::ofInt(-1));
      const auto succeeds = [&](MemberInvoker invoker, MemberUse use) {
        return !invoker || invokeMember(control, name, use, arguments, result) == S_OK;
      };
      EXPECT_TRUE(succeeds(member.get, MemberUse::Get)) << member.name;
      EXPECT_TRUE(succeeds(member.call, MemberUse::Call)) << member.name;
      arguments.push_back(XValue::ofInt(0));
      EXPECT_TRUE(succeeds(member.put, MemberUse::Put)) << member.name;
    }
  }
}

TEST_F(DispatchTable, OptionalArgumentsHaveTheirDefaults) {
  addData(3);
  open();
  EXPECT_EQ(invoke(u"GetText", MemberUse::Get, {XValue::ofText(u"a"), XValue::ofInt(2)}), S_OK);
  EXPECT_TRUE(result == XValue::ofText(u"2"));
  EXPECT_EQ(invoke(u"GetText", MemberUse::Get, {XValue::ofText(u"A"), XValue::ofInt(2)}), S_OK);
  EXPECT_TRUE(result == XValue::ofText(u""));  // ids match exactly
  EXPECT_EQ(invoke(u"GetText", MemberUse::Get, {XValue::ofText(u"a"), XValue::ofInt(2), XValue::ofInt(1)}),
            S_OK);
  EXPECT_TRUE(result == XValue::ofText(u""));
}

}  // namespace
}  // namespace tessera
