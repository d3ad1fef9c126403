#include "config/column_info.h"

#include "column_dump.h"
#include "config/cell_attributes.h"
#include "fake_info_services.h"
#include "tests/support/text_rows.h"

namespace tessera {
namespace {

std::string parsed(const std::string& text) {
  FakeInfoServices services;
  services.addProgram("x", XValue::ofText(u"red"));
  services.addImage("http://h/a.png");
  GridConfig config;
  const bool read = parseColumnInfo(services, XString::fromNarrow(text), config);
  return answer(read, dumpColumns(config.columns) + dumpTree(config.tree));
}

std::string parsedColumn(const std::string& content) {
  const std::string dump = parsed("<GRID><COLUMN id='c'>" + content + "</COLUMN></GRID>"), head = "column c";
  return dump.starts_with(head) ? dump.substr(std::min(dump.size(), head.size() + 1)) : dump;
}

void check(std::string_view table, std::string (*parse)(const std::string&)) {
  for (const auto& [text, expected] : test::textRows(table)) EXPECT_EQ(parse(text), expected) << text;
}

TEST(ColumnInfo, Columns) {
  EXPECT_EQ(parsed(""), "");
  EXPECT_EQ(parsed(" "), "refused");
  check(R"~(
<GRID/> => | <GRID><COLUMN id='a'/></GRID> => column a | <COLUMN id='a'/> => column a
<G><X><COLUMN id='a'><COLUMN id='b'/></COLUMN></X><COLUMN id='c'/></G> => column a column b column c
<G><COLUMN id='' view='false'/></G> => column  view=false
<G><column id='a'/><COLUMN id='b'><header left='1'/></COLUMN></G> => column b
<G><COLUMN id='a' refcolid='X' referencecolumnid='Y'/></G> => column a ref="Y"
<G><COLUMN id='a' referencecolumnid='Y' refcolid='X'/></G> => column a ref="Y"
<G><COLUMN id='a' view='FALSE' xl_cellformat='@' index='-2' more='1'/></G> => column a view=false xl="@" index=-2
<G><COLUMN id='a' view='no'/></G> => column a | <G><COLUMN id='a' width='10' width='20'/></G> => column a
<!-- columns --><G> text <COLUMN id='a'/> <!-- and --> </G> => column a | no document => refused
<G><COLUMN id='a'/> => refused | <G><COLUMN id='a' => refused
<G><COLUMN id='a'/><COLUMN/><COLUMN id='b'/></G> => refused column a | <G><COLUMN ID='a'/></G> => refused
<G><COLUMN id='a'/><COLUMN id='b'><!-- x --></COLUMN></G> => refused column a
<G><COLUMN id='a'>text</COLUMN></G> => refused | <G><COLUMN id='a'><![CDATA[x]]></COLUMN></G> => refused)~",
        parsed);
}

TEST(ColumnInfo, CellAttributes) {
  check(R"~(
<HEADER/><VIEW/><VIEWSUMMARY/><CHILD/><SUPPRESS/> =>
<HEADER left='1' right='2' top='4' bottom='3'/> => header rect=1,4,2,3 layoutLeft=1 layoutRight=2
<VIEW left='-5' right=' 7px' top='x'/> => view rect=-5,0,7,0 layoutLeft=-5 layoutRight=7
<HEADER fix='TRUE' check='true'/><HEADER check='yes'/> => header fix=true check=true
<VIEW fix='true' check='true' level='1'/> =>
<VIEWSUMMARY left='1' cursor='hand' text='Sum'/> => summary text="Sum"
<HEADER color='red' bgcolor='#102030' bordercolor='255'/> => header borderColor=ff textColor=ff backColor=302010
<HEADER color='inherit'/> => header textColor=ffffffff | <VIEW borderstyle='none'/> => view borderStyle=0
<VIEW borderstyle='raised'/> => | <VIEW fontstyle='underbold'/> => view fontStyle=5 font=0/700/01/
<VIEW fontstyle='bold'/><VIEW fontstyle='none'/> => | <VIEW fontstyle='fat'/> =>
<VIEW fontsize='9' fontname='Sans'/> => view fontSize=9 font=-12/0/00/Sans
<VIEW fontname='0123456789012345678901234567890123'/> => view font=0/0/00/0123456789012345678901234567890
<VIEW fontname='012345678901234567890123456789ä'/> => view font=0/0/00/012345678901234567890123456789
<VIEW align='lefttop'/> => view align=9 | <VIEW align='nowhere'/> => | <VIEW align='full'/> => view align=-1
<HEADER align='full'/> => header align=940302 | <VIEWSUMMARY align='FULL'/> => summary align=940302
<GROUP align='full' level='1'/> => group level=1 align=940302
<VIEW leftmargin='0' rightmargin='1' topmargin='2' bottommargin='-4'/> => view leftMargin=0 topMargin=2 rightMargin=1 bottomMargin=-4
<HEADER cursor='hand'/><VIEW cursor='paw'/> => header cursor=9 view cursor=0
<VIEW displayformat='#,##0'/> => view format="#,##0"
<VIEW displayformat='a'><DISPLAYFORMAT>b</DISPLAYFORMAT></VIEW> => view format="b"
<VIEW Left='1' COLOR='red'/> =>
<HEADER left='1' right='9'/><HEADER left='2'/> => header rect=2,0,9,0 layoutLeft=2 layoutRight=9)~",
        parsedColumn);
}

TEST(ColumnInfo, Texts) {
  check(R"~(
<HEADER text='a'/> => header text="a" | <HEADER text='a'><TEXT>b</TEXT></HEADER> => header text="b"
<HEADER><TEXT>a>b</TEXT></HEADER> => header text="a>b"
<HEADER><TEXT><![CDATA[<a> & 'b']]></TEXT></HEADER> => header text="<a> & 'b'"
<HEADER><TEXT>&lt;a&gt; &amp; b</TEXT></HEADER> => header text="<a> & b"
<HEADER><text>b</text><Text>c</Text></HEADER> =>
<HEADER>loose<!-- comment --><TEXT>b</TEXT></HEADER> => header text="b"
<HEADER><MORE><TEXT>b</TEXT></MORE></HEADER> => | <VIEW text='a'/> => view text="a" dynamic=200
<VIEW text=''/> => view dynamic=200 | <VIEW><TEXT></TEXT></VIEW> => view dynamic=200
<VIEWSUMMARY text='total: @x'/> => summary text="total: @x"
<VIEW text=' @x'/> => view text=" @x" dynamic=200 | <GROUP/> => group level=0
<GROUP level='1'/><GROUP level='2' text='Inherit'/><GROUP level='1' text=''/> => group level=1 group level=2 text="Inherit" group level=1 text="")~",
        parsedColumn);
}

TEST(ColumnInfo, Expressions) {
  check(R"~(
<VIEW color='@x' bgcolor='@x' bordercolor='@x'/> => view dynamic=7
<VIEW fontsize='@x' fontname='@x' fontstyle='@x'/> => view dynamic=38
<VIEW cursor='@x' displayformat='@x'/> => view dynamic=140
<VIEW><DISPLAYFORMAT>@x</DISPLAYFORMAT></VIEW> => view dynamic=100 | <HEADER text='@x'/> => header dynamic=80
<HEADER text='@x'><TEXT>b</TEXT></HEADER> => header text="b"
<HEADER text='b'><TEXT>@x</TEXT></HEADER> => header text="b" dynamic=80
<HEADER color='@x' text='@x'><TEXT>b</TEXT></HEADER> => header text="b" dynamic=1
<GROUP level='1' text='@x'/> => group level=1 dynamic=80 | <VIEW text='@x'/> => view text="@x" dynamic=80
<VIEW text='a'><TEXT>@x</TEXT></VIEW> => view text="@x" dynamic=280
<VIEW text='a' color='@x'/> => view text="a" dynamic=201
<VIEW color='@x' fontsize='@x'><TEXT>a</TEXT></VIEW> => view text="a" dynamic=200
<VIEW color='@x'><TEXT>a</TEXT><DISPLAYFORMAT>@x</DISPLAYFORMAT></VIEW> => view text="a" dynamic=300
<VIEW align='@x' borderstyle='@x' leftmargin='@x'/> => view leftMargin=0
<HEADER color='@x'/><HEADER color='red'/> => header textColor=ff
<HEADER color='red'/><HEADER color='@x'/> => header textColor=ff dynamic=1
<HEADER fontstyle='@x'/><HEADER fontstyle='fat'/> => header dynamic=20
<CHILD editable='@x'/> => child dynamic=80
<CHILD editable='@x'/><CHILD editable='no'/> => child editable="no"
<CHILD color='@x' bgcolor='@x'/> => child barColor=ffffffff barBack=ffffffff
<HEADER text='@bad' color='@bad' fontsize='@bad'/> => | <VIEW text='@bad'/> => view text="@bad"
<GROUP level='1' text='@bad'/> => group level=1
<HEADER color='@x'/><HEADER color='@bad'/> => header dynamic=1)~",
        parsedColumn);
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
  check(R"~(
<HEADER imagepath='http://h/a.png'/> => header imageMode=9 image=bitmap path="http://h/a.png"
<HEADER imagepath='http://h/a.png' imagetype='stretch'/> => header imageMode=a image=bitmap path="http://h/a.png"
<HEADER imagetype='Stretch' imagepath='http://h/a.png'/> => header imageMode=9 image=bitmap path="http://h/a.png"
<HEADER imagepath='gone'/> => header imageMode=9 path="gone" | <HEADER imagepath='' imagetype='stretch'/> =>
<HEADER imagepath='http://h/a.png' imagetype='stretch'/><HEADER imagepath='gone'/> => header imageMode=a path="gone"
<VIEW imagepath='http://h/a.png' imagetype='stretch'/> =>)~",
        parsedColumn);
}

TEST(ColumnInfo, Children) {
  check(R"~(
<CHILD type='Edit' subtype='popup'/> => child type=1 subType=1
<CHILD type='edit' subtype='PopupFix'/> => child type=1 subType=2
<CHILD type='edit' subtype='none'/> => child type=1
<CHILD type='combo'/><CHILD type='table'/> => child type=2 | <CHILD type='combo'/><CHILD type='none'/> =>
<CHILD type='image'/> => child type=5
<CHILD type='radio' radiotext='R' checktext='C'/> => child type=6 checkText="C" radioText="R"
<CHILD checktext='C' radiotext='R' text='T'/><CHILD checktext='NONE' radiotext='none' text='None'/> =>
<CHILD limitlength='0' decimal='0' showitemcount='9' select='False'/> => child limit=0 decimal=0 select=false lines=9
<CHILD inputtype=' num , upper '/> => child input=3 | <CHILD inputtype='numeric,foo'/> => child input=1
<CHILD inputtype='num'/><CHILD inputtype='upper'/> => child input=3 | <CHILD ime='Native'/> => child ime=1
<CHILD ime='english'/><CHILD ime='french'/> => child ime=2 | <CHILD ime='english'/><CHILD ime='none'/> =>
<CHILD type='lookup' lookupdataid='codes' lookupcode='C' lookuptext='T'/> => child type=3 lookupId="codes" lookupCode="C" lookupText="T" lookup
<CHILD lookupdataid='nowhere'/> => child lookupId="nowhere"
<CHILD editable='False'/> => child editable="False"
<CHILD type='bar' min='-5' max='500' align='Bottom' bgcolor='blue' color='#000000' text='T'/> => child type=7 min=-5 max=500 barAlign=32 barColor=0 barBack=ff0000 barText="T"
<CHILD align='right'/><CHILD align='lefttop'/> => child barAlign=4
<CHILD align='right'/><CHILD align='none'/> =>
<CHILD><COMBOITEM code='1' text='One'/><OTHER/>text<COMBOITEM/><COMBOITEM text='3'/></CHILD> => child "1":"One" "":"" "":"3")~",
        parsedColumn);
}

TEST(ColumnInfo, TreesAndSuppression) {
  check(R"~(
<SUPPRESS><REFCOLID>A</REFCOLID><OTHER>B</OTHER><REFERENCECOLUMNID>C</REFERENCECOLUMNID></SUPPRESS> => suppress="A" suppress="C"
<TREE/> => tree=true
<TREE type='2' expand='false' levelcolumn='L' hasline='False' indentwidth='7' thumbsize='8' iconsize='9' imageccolumn='C' imageecolumn='E'/> => tree=true tree mode=2 expand=false line=false indent=7 thumb=8 icon=9 imageC="C" imageE="E" level="L"
<TREE type='1'/><TREE type='5' indentwidth='0' thumbsize='-1' iconsize='x' expand='no'/> => tree=true tree mode=1
<TREE type='1'/><TREE type='-1'/> => tree=true tree mode=1
<TREE type='1'/><TREE type='none'/> => tree=true)~",
        parsedColumn);
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
