#include "shared/change_type.h"

#include <map>
#include <sstream>

#include "shared/number_text.h"
#include "tests/support/text_rows.h"

namespace tessera {
namespace {

const std::map<std::string, VarType> types = {
    {"empty", VT_EMPTY},    {"null", VT_NULL}, {"i1", VT_I1},       {"ui1", VT_UI1},
    {"i2", VT_I2},          {"i4", VT_I4},     {"ui4", VT_UI4},     {"i8", VT_I8},
    {"ui8", VT_UI8},        {"r4", VT_R4},     {"r8", VT_R8},       {"date", VT_DATE},
    {"bool", VT_BOOL},      {"text", VT_BSTR}, {"error", VT_ERROR}, {"dispatch", VT_DISPATCH},
    {"unknown", VT_UNKNOWN}};

XValue valueOf(const std::string& type, const std::string& text) {
  const VarType code = types.at(type);
  const double real = std::strtod(text.c_str(), nullptr);
  const bool large = code == VT_UI8, whole = large || type.starts_with("i") || type.starts_with("ui");
  const auto bits = large ? std::int64_t(std::strtoull(text.c_str(), nullptr, 10))
                          : std::strtoll(text.c_str(), nullptr, 10);
  XValue value;
  if (code == VT_NULL) value.setNull();
  if (code == VT_ERROR) value.setError(E_FAIL);
  if (code == VT_BSTR) value.setNarrow(text);
  if (code == VT_R8) value.setDouble(real);
  if (code == VT_DATE) value.setDate(real);
  if (code == VT_R4) value.setFloat(static_cast<float>(real));
  if (code == VT_BOOL) value.setRawBool(static_cast<VariantBool>(real));
  if (whole) value.setInteger(code, bits);
  return value;
}

std::string changed(const XValue& from, VarType to) {
  XValue result = XValue::ofText(u"untouched");
  const HResult status = changeType(from, to, result);
  XValue inPlace = from;
  EXPECT_EQ(changeType(inPlace, to, inPlace), status);
  if (status != S_OK) {
    EXPECT_EQ(result, XValue::ofText(u"untouched"));
    EXPECT_TRUE(status == DISP_E_OVERFLOW || status == DISP_E_TYPEMISMATCH) << status;
    return status == DISP_E_OVERFLOW ? "overflow" : "mismatch";
  }
  EXPECT_EQ(result.type(), to);
  EXPECT_EQ(inPlace, result);
  if (to == VT_BSTR) return result.asText().toUtf8();
  const bool real = to == VT_R4 || to == VT_R8 || to == VT_DATE;
  if (real) return std::string(NumberText::ofReal(result.asDouble(), 17).view());
  return to == VT_UI8 ? std::to_string(static_cast<std::uint64_t>(result.asInt64()))
                      : std::to_string(result.asInt64());
}

// Rows `TYPE to TYPE VALUE => RESULT`; -1 and 0 are True and False.
TEST(ChangeType, Rows) {
  for (const auto& [row, expected] : test::textRows(R"(
empty to text => | bool to text -1 => True | bool to text 0 => False | bool to text 1 => True
i4 to text -42 => -42 | i1 to text -128 => -128 | ui4 to text 4294967295 => 4294967295
i8 to text -9223372036854775808 => -9223372036854775808 | ui8 to text 18446744073709551615 => 18446744073709551615
r4 to text 0.1 => 0.1 | r8 to text 0.30000000000000004 => 0.3 | r8 to text -1234.5 => -1234.5
date to text 45413 => 2024-05-01 | date to text 45413.5625 => 2024-05-01 13:30:00 | date to text 1e9 => overflow
text to text same => same | null to text => mismatch | error to text => mismatch
text to i4 12 => 12 | text to i4  -7  => -7 | text to i4 1.5 => 2 | text to i4 2.5 => 2 | text to i2 1e3 => 1000
text to i4 2147483648 => overflow | text to i8 9007199254740993 => 9007199254740993
text to ui8 18446744073709551615 => 18446744073709551615 | text to ui8 18446744073709551616 => overflow
text to ui4 -1 => overflow | text to r8 0.25 => 0.25 | text to r8 1e400 => overflow | text to r4 1e39 => overflow
text to i4 => mismatch | text to i4 12px => mismatch | text to i4 True => mismatch
text to bool tRUE => -1 | text to bool FALSE => 0 | text to bool 0.5 => -1 | text to bool 0 => 0
text to bool yes => mismatch | text to date 2024-05-01 => 45413 | text to date 2024-05-01T13:30:00 => 45413.5625
text to date 45413.5 => 45413.5 | text to date 2024-02-30 => mismatch | text to date 2958466 => overflow
text to r8 2024-05-01 => mismatch | text to error 5 => mismatch | text to empty => mismatch
empty to i4 => 0 | empty to r8 => 0 | empty to bool => 0 | empty to date => 0 | i4 to r8 3 => 3
i4 to i1 200 => overflow | i4 to ui1 200 => 200 | i4 to ui8 -1 => overflow | i8 to i4 1099511627776 => overflow
ui8 to i8 18446744073709551615 => overflow | ui8 to r8 18446744073709551615 => 1.8446744073709552E+19
ui4 to i4 4294967295 => overflow | r8 to i4 0.5 => 0 | r8 to i4 1.5 => 2 | r8 to i4 -2.5 => -2
r8 to i4 2147483647.5 => overflow | r8 to i4 2147483647.4 => 2147483647 | r8 to ui1 -0.4 => 0
r8 to ui1 255.5 => overflow | r8 to i8 9223372036854775808 => overflow
r8 to i8 -9223372036854775808 => -9223372036854775808 | r8 to ui8 9223372036854775808 => 9223372036854775808
r8 to i4 nan => overflow | r8 to i8 inf => overflow | r8 to r4 0.1 => 0.10000000149011612
r8 to r4 1e39 => overflow | r4 to r8 0.5 => 0.5 | date to r8 45413.75 => 45413.75 | date to i4 45413.75 => 45414
r8 to date -1.25 => -1.25 | r8 to date 1e7 => overflow | r8 to date -657434.5 => -657434.5
r8 to date -657435 => overflow | r8 to date nan => overflow | bool to i4 -1 => -1 | bool to r8 -1 => -1
bool to ui1 -1 => 255 | bool to ui4 -1 => 4294967295 | bool to i2 1 => 1 | bool to bool 1 => 1
i4 to bool 7 => -1 | r8 to bool 0.1 => -1 | r8 to bool -0.0 => 0 | date to bool 1 => -1)")) {
    SCOPED_TRACE(row);
    const std::size_t value = row.find(' ', row.find(" to ") + 4);
    const std::string to = row.substr(row.find(" to ") + 4, value - row.find(" to ") - 4);
    const XValue from = valueOf(row.substr(0, row.find(' ')), value == row.npos ? "" : row.substr(value + 1));
    EXPECT_EQ(changed(from, types.at(to)), expected);
  }
}

TEST(ChangeType, WhatDoesNotConvert) {
  const std::pair<const char*, const char*> rows[] = {
      {"null", "empty i4 r8 date bool error dispatch unknown"},
      {"i4", "empty null error dispatch unknown"},
      {"error", "empty null i4 r4 date bool dispatch"}};
  for (const auto& [from, targets] : rows) {
    std::istringstream words(targets);
    for (std::string to; words >> to;) {
      EXPECT_EQ(changed(valueOf(from, "1"), types.at(to)), "mismatch") << from << " to " << to;
    }
  }
  for (const char* type : {"empty", "null", "error"}) {
    XValue same = valueOf(type, "");
    EXPECT_EQ(changeType(valueOf(type, ""), types.at(type), same), S_OK);
    EXPECT_EQ(same, valueOf(type, ""));
  }
  EXPECT_TRUE(textOf(XValue::null()).empty());
  EXPECT_EQ(textOf(XValue::ofDouble(2.5)), u"2.5");
}

}  // namespace
}  // namespace tessera
