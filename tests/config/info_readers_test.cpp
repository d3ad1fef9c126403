#include <gtest/gtest.h>

#include "column_dump.h"
#include "config/background_info.h"
#include "config/indicator_info.h"
#include "config/menu_info.h"
#include "fake_info_services.h"

namespace tessera {
namespace {

TEST(IndicatorInfo, Attributes) {
  const struct {
    const char* text;
    bool ok;
    const char* dump;
  } rows[] = {
      {"<I/>", true, ""},
      {"<I width='0'/>", true, " width=0"},
      {"<I width='20' indexnumber='TRUE'><X width='30'/></I>", true, " width=20 numbers=true"},
      {"<I indexnumber='yes'/>", true, ""},
      {"<I color='red' bgcolor='@x' bordercolor='blue' borderstyle='line' fontstyle='bold' fontsize='9' "
       "fontname='Sans' align='full'/>",
       true,
       " align=940302 borderStyle=1 borderColor=ff0000 textColor=ff fontSize=9 fontStyle=1 "
       "font=-12/700/00/Sans "
       "dynamic=2"},
      {"<I color='@x' bordercolor='@x' fontstyle='@x' fontsize='@x' fontname='@x'/>", true, " dynamic=3d"},
      {"<I color='@bad' width='@x' leftmargin='9' text='t' cursor='hand'/>", true, " width=0"},
      {"", false, ""},
      {"<I width='1'", false, ""},
      {"<!-- note --><I width='20'/>", false, ""},
      {"<?note?><I width='20'/>", false, ""},
      {"<?xml version='1.0'?><I width='20'/><!-- note -->", true, " width=20"},
  };
  for (const auto& row : rows) {
    FakeInfoServices services;
    services.addProgram("x", XValue::ofText(u"red"));
    IndicatorRecord record;
    EXPECT_EQ(parseIndicatorInfo(services, XString::fromNarrow(row.text), record), row.ok) << row.text;
    EXPECT_EQ(dumpIndicator(record), row.dump) << row.text;
  }
}

TEST(IndicatorInfo, WhatATextDoesNotNameStays) {
  FakeInfoServices services;
  services.addProgram("x", XValue::ofText(u"red"));
  IndicatorRecord record;
  EXPECT_TRUE(parseIndicatorInfo(services, u"<I width='20' color='@x' bgcolor='@x' fontsize='9'/>", record));
  EXPECT_TRUE(parseIndicatorInfo(services, u"<I color='red'/>", record));
  EXPECT_EQ(dumpIndicator(record), " width=20 textColor=ff fontSize=9 font=-12/0/00/ dynamic=2");
}

TEST(BackgroundInfo, Attributes) {
  const struct {
    const char* text;
    bool ok;
    bool borderNamed;
    std::int32_t border;
    const char* dump;
  } rows[] = {
      {"<B/>", true, false, 2, ""},
      {"<B borderstyle='Line'/>", true, true, 1, ""},
      {"<B borderstyle='sunken'/>", true, true, 2, ""},
      {"<B borderstyle='raised'/>", true, true, 3, ""},
      {"<B borderstyle='frame'/>", true, true, 4, ""},
      {"<B borderstyle='none'/>", true, true, 0, ""},
      {"<B borderstyle='raisedinner'/>", true, true, 2, ""},
      {"<B bgcolor='red' bordercolor='@x'/>", true, false, 2, " backColor=ff dynamic=4"},
      {"<B bgcolor='@x'/>", true, false, 2, " dynamic=2"},
      {"<B imagepath='p'/>", true, false, 2, " image=bitmap"},
      {"<B imagepath='gone' backimage='True'/>", true, false, 2, " backImage=true"},
      {"<B align='full'/>", true, false, 2, " align=-1"},
      {"<B align='nowhere' backimage='yes'/>", true, false, 2, ""},
      {"<B alpharate='30'/>", true, false, 2, " alphaRate=30"},
      {"<B alpharate='30' alphablendrate='140'/>", true, false, 2, " alphaRate=140"},
      {"<B trans='true' transcolor='red'/>", true, false, 2, " keyed=true key=ff"},
      {"<B trans='true' transparent='x'/>", true, false, 2, ""},
      {"<B transparentcolor='blue' transcolor='red'/>", true, false, 2, " key=ff0000"},
      {"<B fontsize='9' color='red'/>", true, false, 2, ""},
      {"<B bgcolor='red'", false, false, 2, ""},
      {"<!-- note --><B bgcolor='red'/>", false, false, 2, ""},
      {"", false, false, 2, ""},
  };
  for (const auto& row : rows) {
    FakeInfoServices services;
    services.addProgram("x", XValue::ofText(u"red"));
    services.addImage("p");
    BackgroundRecord record;
    std::int32_t border = 2;
    const BackgroundInfoResult result =
        parseBackgroundInfo(services, XString::fromNarrow(row.text), record, border);
    EXPECT_EQ(result.ok, row.ok) << row.text;
    EXPECT_EQ(result.borderNamed, row.borderNamed) << row.text;
    EXPECT_EQ(border, row.border) << row.text;
    EXPECT_EQ(dumpBackground(record), row.dump) << row.text;
  }
}

TEST(BackgroundInfo, AnImageThatIsGoneReplacesTheOldOne) {
  FakeInfoServices services;
  services.addImage("p");
  BackgroundRecord record;
  std::int32_t border = 2;
  parseBackgroundInfo(services, u"<B imagepath='p' backimage='true'/>", record, border);
  parseBackgroundInfo(services, u"<B bgcolor='red'/>", record, border);
  EXPECT_TRUE(record.imageHandle);
  parseBackgroundInfo(services, u"<B imagepath='gone'/>", record, border);
  EXPECT_FALSE(record.imageHandle);
  EXPECT_TRUE(record.backImage);
}

TEST(MenuInfo, Items) {
  const struct {
    const char* text;
    bool ok;
    const char* dump;
  } rows[] = {
      {"<M/>", true, ""},
      {"<M><A text='One' code='1'/><B text='Two' code='-2x' enable='False'/></M>", true,
       "\"One\" 1\n\"Two\" -2 disabled\n"},
      {"<M><A text='On' code='1' enable='true'/><A text='On too' code='2' enable='no'/></M>", true,
       "\"On\" 1\n\"On too\" 2\n"},
      {"<M><A text='Separator' enable='false'><A/></A><A text='separator'/></M>", true,
       "\"Separator\" 0\n\"separator\" 0\n"},
      {"<M><A text='1' code='1'><A text='11' code='11'><A text='111' code='111'/></A><A text='12' code='12'/>"
       "</A><A text='2' code='2'/></M>",
       true, "\"1\" 1\n  \"11\" 11\n    \"111\" 111\n  \"12\" 12\n\"2\" 2\n"},
      {"<M><A text='' code=''/></M>", true, "\"\" 0\n"},
      {"<M><A text='One' code='1'/><A text='Two'/><A text='Three' code='3'/></M>", false, "\"One\" 1\n"},
      {"<M><A code='1'/></M>", false, ""},
      {"<M><A text='One' code='1'/><A text='Two' code='2'><A text='21'/></A></M>", false, "\"One\" 1\n"},
      {"<M><A text='One' code='1'/><!-- x --></M>", false, "\"One\" 1\n"},
      {"<M><A text='One' code='1'>x</A></M>", false, ""},
      {"", false, ""},
      {"<M>", false, ""},
      {"<!-- note --><M><A text='One' code='1'/></M>", false, ""},
  };
  for (const auto& row : rows) {
    FakeInfoServices services;
    XList<MenuItem> menu;
    EXPECT_EQ(parseMenuInfo(services, XString::fromNarrow(row.text), menu), row.ok) << row.text;
    EXPECT_EQ(dumpMenu(menu), row.dump) << row.text;
  }
}

}  // namespace
}  // namespace tessera
