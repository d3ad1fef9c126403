#include "column_dump.h"
#include "config/background_info.h"
#include "config/indicator_info.h"
#include "config/menu_info.h"
#include "fake_info_services.h"
#include "tests/support/text_rows.h"

namespace tessera {
namespace {

std::string indicator(const std::string& text) {
  FakeInfoServices services;
  services.addProgram("x", XValue::ofText(u"red"));
  IndicatorRecord record;
  const bool ok = parseIndicatorInfo(services, XString::fromNarrow(text), record);
  return answer(ok, dumpIndicator(record));
}

std::string background(const std::string& text) {
  FakeInfoServices services;
  services.addProgram("x", XValue::ofText(u"red"));
  services.addImage("p");
  BackgroundRecord record;
  std::int32_t border = 2;
  const BackgroundInfoResult result =
      parseBackgroundInfo(services, XString::fromNarrow(text), record, border);
  EXPECT_TRUE(result.borderNamed || border == 2) << text;
  return answer(result.ok,
                (result.borderNamed ? " border " + std::to_string(border) : "") + dumpBackground(record));
}

std::string menu(const std::string& text) {
  FakeInfoServices services;
  XList<MenuItem> items;
  const bool ok = parseMenuInfo(services, XString::fromNarrow(text), items);
  return answer(ok, dumpMenu(items));
}

void check(std::string_view table, std::string (*reader)(const std::string&)) {
  for (const auto& [text, expected] : test::textRows(table)) EXPECT_EQ(reader(text), expected) << text;
}

TEST(IndicatorInfo, Attributes) {
  EXPECT_EQ(indicator(""), "refused");
  check(R"~(
<I/> => | <I width='0'/> => width=0
<I width='20' indexnumber='TRUE'><X width='30'/></I> => width=20 numbers=true | <I indexnumber='yes'/> =>
<I color='red' bgcolor='@x' bordercolor='blue' borderstyle='line' fontstyle='bold' fontsize='9' fontname='Sans' align='full'/> => align=940302 borderStyle=1 borderColor=ff0000 textColor=ff fontSize=9 fontStyle=1 font=-12/700/00/Sans dynamic=2
<I color='@x' bordercolor='@x' fontstyle='@x' fontsize='@x' fontname='@x'/> => dynamic=3d
<I color='@bad' width='@x' leftmargin='9' text='t' cursor='hand'/> => width=0 | <I width='1' => refused
<!-- note --><I width='20'/> => refused | <?note?><I width='20'/> => refused
<?xml version='1.0'?><I width='20'/><!-- note --> => width=20)~",
        indicator);
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
  EXPECT_EQ(background(""), "refused");
  check(R"~(
<B/> => | <B borderstyle='Line'/> => border 1 | <B borderstyle='sunken'/> => border 2
<B borderstyle='raised'/> => border 3 | <B borderstyle='frame'/> => border 4
<B borderstyle='none'/> => border 0 | <B borderstyle='raisedinner'/> => border 2
<B bgcolor='red' bordercolor='@x'/> => backColor=ff dynamic=4 | <B bgcolor='@x'/> => dynamic=2
<B imagepath='p'/> => image=bitmap | <B imagepath='gone' backimage='True'/> => backImage=true
<B align='full'/> => align=-1 | <B align='nowhere' backimage='yes'/> => | <B alpharate='30'/> => alphaRate=30
<B alpharate='30' alphablendrate='140'/> => alphaRate=140
<B trans='true' transcolor='red'/> => keyed=true key=ff | <B trans='true' transparent='x'/> =>
<B transparentcolor='blue' transcolor='red'/> => key=ff0000 | <B fontsize='9' color='red'/> =>
<B bgcolor='red' => refused | <!-- note --><B bgcolor='red'/> => refused)~",
        background);
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
  EXPECT_EQ(menu(""), "refused");
  check(R"~(
<M/> =>
<M><A text='One' code='1'/><B text='Two' code='-2x' enable='False'/></M> => "One" 1 "Two" -2 disabled
<M><A text='On' code='1' enable='true'/><A text='On too' code='2' enable='no'/></M> => "On" 1 "On too" 2
<M><A text='Separator' enable='false'><A/></A><A text='separator'/></M> => "Separator" 0 "separator" 0
<M><A text='1' code='1'><A text='11' code='11'><A text='111' code='111'/></A><A text='12' code='12'/></A><A text='2' code='2'/></M> => "1" 1 >"11" 11 >>"111" 111 >"12" 12 "2" 2
<M><A text='' code=''/></M> => "" 0
<M><A text='One' code='1'/><A text='Two'/><A text='Three' code='3'/></M> => refused "One" 1
<M><A code='1'/></M> => refused
<M><A text='One' code='1'/><A text='Two' code='2'><A text='21'/></A></M> => refused "One" 1
<M><A text='One' code='1'/><!-- x --></M> => refused "One" 1 | <M><A text='One' code='1'>x</A></M> => refused
<M> => refused | <!-- note --><M><A text='One' code='1'/></M> => refused)~",
        menu);
}

}  // namespace
}  // namespace tessera
