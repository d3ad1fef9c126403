#include "config/column_info.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "column_dump.h"
#include "config/cell_attributes.h"
#include "fake_info_services.h"

namespace tessera {
namespace {

struct Parsed {
  bool ok = false;
  std::string dump;
};

Parsed parse(FakeInfoServices& services, const std::string& text) {
  GridConfig config;
  const bool ok = parseColumnInfo(services, XString::fromNarrow(text), config);
  const std::string tree = dumpTree(config.tree);
  return {ok, dumpColumns(config.columns) + (tree.empty() ? "" : "tree" + tree + '\n')};
}

Parsed parse(const std::string& text) {
  FakeInfoServices services;
  return parse(services, text);
}

// The dump of one column with this content.
std::string column(FakeInfoServices& services, const std::string& content) {
  const Parsed parsed = parse(services, "<GRID><COLUMN id='c'>" + content + "</COLUMN></GRID>");
  EXPECT_TRUE(parsed.ok) << content;
  const std::string head = "column c\n";
  EXPECT_EQ(parsed.dump.substr(0, head.size()), head) << content;
  return parsed.dump.size() < head.size() ? parsed.dump : parsed.dump.substr(head.size());
}

std::string column(const std::string& content) {
  FakeInfoServices services;
  return column(services, content);
}

TEST(ColumnInfo, TwoLineBand) {
  FakeInfoServices services;
  services.addProgram("IIF(AGE>60,'red','black')", XValue::ofText(u"red"));
  const Parsed parsed = parse(services, R"xml(
    <GRID>
      <COLUMN id="name" refcolid="NAME" index="0">
        <HEADER left="0" right="120" top="0" bottom="20" text="Name" fix="true"/>
        <VIEW left="0" right="120" top="0" bottom="40" align="lefttop" color="@IIF(AGE>60,'red','black')"/>
      </COLUMN>
      <COLUMN id="age" refcolid="AGE" index="1">
        <HEADER left="120" right="200" top="0" bottom="20" text="Age"/>
        <VIEW left="120" right="200" top="0" bottom="20" align="rightcenter"/>
      </COLUMN>
      <COLUMN id="flag" refcolid="ACTIVE" index="2">
        <VIEW left="120" right="200" top="20" bottom="40"/>
        <CHILD type="check"/>
      </COLUMN>
    </GRID>)xml");
  EXPECT_TRUE(parsed.ok);
  EXPECT_EQ(parsed.dump,
            "column name ref=\"NAME\" index=0\n"
            "  header rect=0,0,120,20 layoutRight=120 text=\"Name\" fix=true\n"
            "  view rect=0,0,120,40 layoutRight=120 align=9 dynamic=1\n"
            "column age ref=\"AGE\" index=1\n"
            "  header rect=120,0,200,20 layoutLeft=120 layoutRight=200 text=\"Age\"\n"
            "  view rect=120,0,200,20 layoutLeft=120 layoutRight=200 align=20\n"
            "column flag ref=\"ACTIVE\" index=2\n"
            "  view rect=120,20,200,40 layoutLeft=120 layoutRight=200\n"
            "  child type=4\n");
}

TEST(ColumnInfo, Columns) {
  const struct {
    const char* text;
    bool ok;
    const char* dump;
  } rows[] = {
      {"", true, ""},
      {"<GRID/>", true, ""},
      {"<GRID><COLUMN id='a'/></GRID>", true, "column a\n"},
      {"<COLUMN id='a'/>", true, "column a\n"},
      {"<G><X><COLUMN id='a'><COLUMN id='b'/></COLUMN></X><COLUMN id='c'/></G>", true,
       "column a\ncolumn b\ncolumn c\n"},
      {"<G><COLUMN id='a'/><COLUMN id='a'/></G>", true, "column a\ncolumn a\n"},
      {"<G><COLUMN id=''/></G>", true, "column \n"},
      {"<G><column id='a'/><COLUMN id='b'><header left='1'/></COLUMN></G>", true, "column b\n"},
      {"<G><COLUMN id='a' refcolid='X' referencecolumnid='Y'/></G>", true, "column a ref=\"Y\"\n"},
      {"<G><COLUMN id='a' referencecolumnid='Y' refcolid='X'/></G>", true, "column a ref=\"Y\"\n"},
      {"<G><COLUMN id='a' view='FALSE' xl_cellformat='@' index='-2' more='1'/></G>", true,
       "column a view=false xl=\"@\" index=-2\n"},
      {"<G><COLUMN id='a' view='no'/></G>", true, "column a\n"},
      {"<G><COLUMN id='a' width='10' width='20'/></G>", true, "column a\n"},
      {"<!-- columns --><G> text <COLUMN id='a'/> <!-- and --> </G>", true, "column a\n"},

      {" ", false, ""},
      {"no document", false, ""},
      {"<G><COLUMN id='a'/>", false, ""},
      {"<G><COLUMN id='a'", false, ""},
      {"<G><COLUMN id='a'/><COLUMN/><COLUMN id='b'/></G>", false, "column a\n"},
      {"<G><COLUMN ID='a'/></G>", false, ""},
      {"<G><COLUMN id='a'/><COLUMN id='b'><!-- x --></COLUMN></G>", false, "column a\n"},
      {"<G><COLUMN id='a'>text</COLUMN></G>", false, ""},
      {"<G><COLUMN id='a'><![CDATA[x]]></COLUMN></G>", false, ""},
  };
  for (const auto& row : rows) {
    const Parsed parsed = parse(row.text);
    EXPECT_EQ(parsed.ok, row.ok) << row.text;
    EXPECT_EQ(parsed.dump, row.dump) << row.text;
  }
}

TEST(ColumnInfo, CellAttributes) {
  const std::pair<const char*, const char*> rows[] = {
      {"<HEADER/><VIEW/><VIEWSUMMARY/><CHILD/><SUPPRESS/>", ""},
      {"<HEADER left='1' right='2' top='4' bottom='3'/>",
       "  header rect=1,4,2,3 layoutLeft=1 layoutRight=2\n"},
      {"<VIEW left='-5' right=' 7px' top='x'/>", "  view rect=-5,0,7,0 layoutLeft=-5 layoutRight=7\n"},
      {"<HEADER fix='TRUE' check='true'/><HEADER check='yes'/>", "  header fix=true check=true\n"},
      {"<VIEW fix='true' check='true' level='1'/>", ""},
      {"<VIEWSUMMARY left='1' cursor='hand' text='Sum'/>", "  summary text=\"Sum\"\n"},
      {"<HEADER color='red' bgcolor='#102030' bordercolor='255'/>",
       "  header borderColor=ff textColor=ff backColor=302010\n"},
      {"<HEADER color='inherit'/>", "  header textColor=ffffffff\n"},
      {"<VIEW borderstyle='none'/>", "  view borderStyle=0\n"},
      {"<VIEW borderstyle='raised'/>", ""},
      {"<VIEW fontstyle='underbold'/>", "  view fontStyle=5 font=0/700/01/\n"},
      {"<VIEW fontstyle='bold'/><VIEW fontstyle='none'/>", ""},
      {"<VIEW fontstyle='fat'/>", ""},
      {"<VIEW fontsize='9' fontname='Sans'/>", "  view fontSize=9 font=-12/0/00/Sans\n"},
      {"<VIEW fontname='0123456789012345678901234567890123'/>",
       "  view font=0/0/00/0123456789012345678901234567890\n"},
      {"<VIEW fontname='012345678901234567890123456789\xC3\xA4'/>",
       "  view font=0/0/00/012345678901234567890123456789\n"},
      {"<VIEW align='lefttop'/>", "  view align=9\n"},
      {"<VIEW align='nowhere'/>", ""},
      {"<VIEW align='full'/>", "  view align=-1\n"},
      {"<HEADER align='full'/>", "  header align=940302\n"},
      {"<VIEWSUMMARY align='FULL'/>", "  summary align=940302\n"},
      {"<GROUP align='full' level='1'/>", "  group level=1 align=940302\n"},
      {"<VIEW leftmargin='0' rightmargin='1' topmargin='2' bottommargin='-4'/>",
       "  view leftMargin=0 topMargin=2 rightMargin=1 bottomMargin=-4\n"},
      {"<HEADER cursor='hand'/><VIEW cursor='paw'/>", "  header cursor=9\n  view cursor=0\n"},
      {"<VIEW displayformat='#,##0'/>", "  view format=\"#,##0\"\n"},
      {"<VIEW displayformat='a'><DISPLAYFORMAT>b</DISPLAYFORMAT></VIEW>", "  view format=\"b\"\n"},
      {"<VIEW Left='1' COLOR='red'/>", ""},
      {"<HEADER left='1' right='9'/><HEADER left='2'/>",
       "  header rect=2,0,9,0 layoutLeft=2 layoutRight=9\n"},
  };
  for (const auto& [content, expected] : rows) EXPECT_EQ(column(content), expected) << content;
}

TEST(ColumnInfo, Texts) {
  const std::pair<const char*, const char*> rows[] = {
      {"<HEADER text='a'/>", "  header text=\"a\"\n"},
      {"<HEADER text='a'><TEXT>b</TEXT></HEADER>", "  header text=\"b\"\n"},
      {"<HEADER><TEXT>a>b</TEXT></HEADER>", "  header text=\"a>b\"\n"},
      {"<HEADER><TEXT><![CDATA[<a> & 'b']]></TEXT></HEADER>", "  header text=\"<a> & 'b'\"\n"},
      {"<HEADER><TEXT>&lt;a&gt; &amp; b</TEXT></HEADER>", "  header text=\"<a> & b\"\n"},
      {"<HEADER><text>b</text><Text>c</Text></HEADER>", ""},
      {"<HEADER>loose<!-- comment --><TEXT>b</TEXT></HEADER>", "  header text=\"b\"\n"},
      {"<HEADER><MORE><TEXT>b</TEXT></MORE></HEADER>", ""},
      {"<VIEW text='a'/>", "  view text=\"a\" dynamic=200\n"},
      {"<VIEW text=''/>", "  view dynamic=200\n"},
      {"<VIEW><TEXT></TEXT></VIEW>", "  view dynamic=200\n"},
      {"<VIEWSUMMARY text='total: @x'/>", "  summary text=\"total: @x\"\n"},
      {"<VIEW text=' @x'/>", "  view text=\" @x\" dynamic=200\n"},
      {"<GROUP/>", "  group level=0\n"},
      {"<GROUP level='1'/><GROUP level='2' text='Inherit'/><GROUP level='1' text=''/>",
       "  group level=1\n  group level=2 text=\"Inherit\"\n  group level=1 text=\"\"\n"},
  };
  for (const auto& [content, expected] : rows) EXPECT_EQ(column(content), expected) << content;
}

TEST(ColumnInfo, Expressions) {
  const std::pair<const char*, const char*> rows[] = {
      {"<VIEW color='@x' bgcolor='@x' bordercolor='@x'/>", "  view dynamic=7\n"},
      {"<VIEW fontsize='@x' fontname='@x' fontstyle='@x'/>", "  view dynamic=38\n"},
      {"<VIEW cursor='@x' displayformat='@x'/>", "  view dynamic=140\n"},
      {"<VIEW><DISPLAYFORMAT>@x</DISPLAYFORMAT></VIEW>", "  view dynamic=100\n"},
      {"<HEADER text='@x'/>", "  header dynamic=80\n"},
      {"<HEADER text='@x'><TEXT>b</TEXT></HEADER>", "  header text=\"b\"\n"},
      {"<HEADER text='b'><TEXT>@x</TEXT></HEADER>", "  header text=\"b\" dynamic=80\n"},
      {"<HEADER color='@x' text='@x'><TEXT>b</TEXT></HEADER>", "  header text=\"b\" dynamic=1\n"},
      {"<GROUP level='1' text='@x'/>", "  group level=1 dynamic=80\n"},
      {"<VIEW text='@x'/>", "  view text=\"@x\" dynamic=80\n"},
      {"<VIEW text='a'><TEXT>@x</TEXT></VIEW>", "  view text=\"@x\" dynamic=280\n"},
      {"<VIEW text='a' color='@x'/>", "  view text=\"a\" dynamic=201\n"},
      {"<VIEW color='@x' fontsize='@x'><TEXT>a</TEXT></VIEW>", "  view text=\"a\" dynamic=200\n"},
      {"<VIEW color='@x'><TEXT>a</TEXT><DISPLAYFORMAT>@x</DISPLAYFORMAT></VIEW>",
       "  view text=\"a\" dynamic=300\n"},
      {"<VIEW align='@x' borderstyle='@x' leftmargin='@x'/>", "  view leftMargin=0\n"},
      {"<HEADER color='@x'/><HEADER color='red'/>", "  header textColor=ff\n"},
      {"<HEADER color='red'/><HEADER color='@x'/>", "  header textColor=ff dynamic=1\n"},
      {"<HEADER fontstyle='@x'/><HEADER fontstyle='fat'/>", "  header dynamic=20\n"},
      {"<CHILD editable='@x'/>", "  child dynamic=80\n"},
      {"<CHILD editable='@x'/><CHILD editable='no'/>", "  child editable=\"no\"\n"},
      {"<CHILD color='@x' bgcolor='@x'/>", "  child barColor=ffffffff barBack=ffffffff\n"},

      {"<HEADER text='@bad' color='@bad' fontsize='@bad'/>", ""},
      {"<VIEW text='@bad'/>", "  view text=\"@bad\"\n"},
      {"<GROUP level='1' text='@bad'/>", "  group level=1\n"},
      {"<HEADER color='@x'/><HEADER color='@bad'/>", "  header dynamic=1\n"},
  };
  for (const auto& [content, expected] : rows) {
    FakeInfoServices services;
    services.addProgram("x", XValue::ofText(u"red"));
    EXPECT_EQ(column(services, content), expected) << content;
  }
}

TEST(ColumnInfo, ExpressionsGoToTheirSlots) {
  FakeInfoServices services;
  std::vector<const XExprProgram*> programs;
  for (const char* name : {"0", "1", "2", "3", "4", "5", "6", "7", "8"}) {
    programs.push_back(services.addProgram(name, XValue::ofText(u"")));
  }
  GridConfig config;
  ASSERT_TRUE(
      parseColumnInfo(services,
                      u"<G><COLUMN id='a'><VIEW displayformat='@8' text='@7' cursor='@6' fontstyle='@5' "
                      u"fontname='@4' fontsize='@3' bordercolor='@2' bgcolor='@1' color='@0'/></COLUMN></G>",
                      config));
  const ViewCell& view = config.columns.head()->value().view;
  for (std::size_t slot = 0; slot < programs.size(); ++slot)
    EXPECT_EQ(view.expressions[slot], programs[slot]);
  EXPECT_EQ(services.compiled, (std::vector<std::string>{"7", "0", "1", "2", "5", "3", "4", "6", "8"}));
}

TEST(ColumnInfo, HeaderImages) {
  const std::pair<const char*, const char*> rows[] = {
      {"<HEADER imagepath='http://h/a.png'/>", "  header imageMode=9 image=bitmap path=\"http://h/a.png\"\n"},
      {"<HEADER imagepath='http://h/a.png' imagetype='stretch'/>",
       "  header imageMode=a image=bitmap path=\"http://h/a.png\"\n"},
      {"<HEADER imagetype='Stretch' imagepath='http://h/a.png'/>",
       "  header imageMode=9 image=bitmap path=\"http://h/a.png\"\n"},
      {"<HEADER imagepath='gone'/>", "  header imageMode=9 path=\"gone\"\n"},
      {"<HEADER imagepath='' imagetype='stretch'/>", ""},
      {"<HEADER imagepath='http://h/a.png' imagetype='stretch'/><HEADER imagepath='gone'/>",
       "  header imageMode=a path=\"gone\"\n"},
      {"<VIEW imagepath='http://h/a.png' imagetype='stretch'/>", ""},
  };
  for (const auto& [content, expected] : rows) {
    FakeInfoServices services;
    services.addImage("http://h/a.png");
    EXPECT_EQ(column(services, content), expected) << content;
  }
}

TEST(ColumnInfo, Children) {
  const std::pair<const char*, const char*> rows[] = {
      {"<CHILD type='Edit' subtype='popup'/>", "  child type=1 subType=1\n"},
      {"<CHILD type='edit' subtype='PopupFix'/>", "  child type=1 subType=2\n"},
      {"<CHILD type='edit' subtype='none'/>", "  child type=1\n"},
      {"<CHILD type='combo'/><CHILD type='table'/>", "  child type=2\n"},
      {"<CHILD type='combo'/><CHILD type='none'/>", ""},
      {"<CHILD type='image'/>", "  child type=5\n"},
      {"<CHILD type='radio' radiotext='R' checktext='C'/>",
       "  child type=6 checkText=\"C\" radioText=\"R\"\n"},
      {"<CHILD checktext='C' radiotext='R' text='T'/><CHILD checktext='NONE' radiotext='none' text='None'/>",
       ""},
      {"<CHILD limitlength='0' decimal='0' showitemcount='9' select='False'/>",
       "  child limit=0 decimal=0 select=false lines=9\n"},
      {"<CHILD inputtype=' num , upper '/>", "  child input=3\n"},
      {"<CHILD inputtype='numeric,foo'/>", "  child input=1\n"},
      {"<CHILD inputtype='num'/><CHILD inputtype='upper'/>", "  child input=3\n"},
      {"<CHILD ime='Native'/>", "  child ime=1\n"},
      {"<CHILD ime='english'/><CHILD ime='french'/>", "  child ime=2\n"},
      {"<CHILD ime='english'/><CHILD ime='none'/>", ""},
      {"<CHILD type='lookup' lookupdataid='codes' lookupcode='C' lookuptext='T'/>",
       "  child type=3 lookupId=\"codes\" lookupCode=\"C\" lookupText=\"T\" lookup\n"},
      {"<CHILD lookupdataid='nowhere'/>", "  child lookupId=\"nowhere\"\n"},
      {"<CHILD editable='False'/>", "  child editable=\"False\"\n"},
      {"<CHILD type='bar' min='-5' max='500' align='Bottom' bgcolor='blue' color='#000000' text='T'/>",
       "  child type=7 min=-5 max=500 barAlign=32 barColor=0 barBack=ff0000 barText=\"T\"\n"},
      {"<CHILD align='right'/><CHILD align='lefttop'/>", "  child barAlign=4\n"},
      {"<CHILD align='right'/><CHILD align='none'/>", ""},
      {"<CHILD><COMBOITEM code='1' text='One'/><OTHER/>text<COMBOITEM/><COMBOITEM text='3'/></CHILD>",
       "  child \"1\":\"One\" \"\":\"\" \"\":\"3\"\n"},
  };
  for (const auto& [content, expected] : rows) {
    FakeInfoServices services;
    EXPECT_EQ(column(services, content), expected) << content;
  }
}

TEST(ColumnInfo, TreesAndSuppression) {
  const std::pair<const char*, const char*> rows[] = {
      {"<SUPPRESS><REFCOLID>A</REFCOLID><OTHER>B</OTHER><REFERENCECOLUMNID>C</REFERENCECOLUMNID></SUPPRESS>",
       "column c suppress=\"A\" suppress=\"C\"\n"},
      {"<TREE/>", "column c tree=true\n"},
      {"<TREE type='2' expand='false' levelcolumn='L' hasline='False' indentwidth='7' thumbsize='8' "
       "iconsize='9' imageccolumn='C' imageecolumn='E'/>",
       "column c tree=true\n"
       "tree mode=2 expand=false line=false indent=7 thumb=8 icon=9 imageC=\"C\" imageE=\"E\" level=\"L\"\n"},
      {"<TREE type='1'/><TREE type='5' indentwidth='0' thumbsize='-1' iconsize='x' expand='no'/>",
       "column c tree=true\ntree mode=1\n"},
      {"<TREE type='1'/><TREE type='-1'/>", "column c tree=true\ntree mode=1\n"},
      {"<TREE type='1'/><TREE type='none'/>", "column c tree=true\n"},
  };
  for (const auto& [content, expected] : rows) {
    const Parsed parsed = parse("<G><COLUMN id='c'>" + std::string(content) + "</COLUMN></G>");
    EXPECT_TRUE(parsed.ok) << content;
    EXPECT_EQ(parsed.dump, expected) << content;
  }
}

// A new attribute must say who reads it, and its name must be the only one.
TEST(ColumnInfo, AttributeTableIsConsistent) {
  std::vector<std::string> names;
  for (const CellAttribute& attribute : cellAttributes()) {
    EXPECT_NE(attribute.readBy, 0) << attribute.name;
    EXPECT_EQ(&cellAttribute(attribute.name), &attribute);
    names.emplace_back(attribute.name);
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
}

}  // namespace
}  // namespace tessera
