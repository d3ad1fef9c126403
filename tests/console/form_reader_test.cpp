#include "tools/tessera/form_reader.h"

#include <gtest/gtest.h>

#include "console/scratch_folder.h"
#include "tools/tessera/open_form.h"

namespace tessera {
namespace {

// A grid with a line of its own, and a data set of these attributes.
std::string over(const std::string& source) {
  return "<form><grid/>\n<dataset id='d' " + source + "/></form>";
}
std::string of(const std::string& property) {
  return "<form>\n<grid><property " + property + "</property></grid></form>";
}

TEST(FormReader, NamesFileLineAndReasonOfAFault) {
  const std::pair<std::string, std::string> rows[] = {
      // Structure.
      {"<page/>", "bad.xml:1: a form starts with <form>, not <page>"},
      {"<form>\n<data/>\n</form>", "bad.xml:2: <form> has no element <data>"},
      {"<form>\n<grid>text</grid></form>", "bad.xml:2: <grid> holds text"},
      {"<form>\n</form>", "bad.xml:1: the form has no <grid>"},
      {"<form>\n<grid/>\n<grid/></form>", "bad.xml:3: the form has a second <grid>"},
      // Attributes.
      {"<form>\n<!-- a=\"b\" -->\n<grid\n id='a' key=\"x\"/></form>",
       "bad.xml:3: <grid> has no attribute key"},
      {"<form height='0'><grid/></form>", "bad.xml:1: height=\"0\" is no number from 1 to 16384"},
      {"<form width='80 '><grid/></form>", "bad.xml:1: width=\"80 \" is no number from 1 to 16384"},
      {"<form width='99999999999999999999'><grid/></form>",
       "bad.xml:1: width=\"99999999999999999999\" is no number from 1 to 16384"},
      {"<form fontsize='-9'><grid/></form>", "bad.xml:1: fontsize=\"-9\" is no number from 1 to 400"},
      {"<form codepage='utf8'><grid/></form>",
       "bad.xml:1: codepage=\"utf8\" is no number from 0 to 4294967295"},
      {"<form container='page'><grid/></form>",
       "bad.xml:1: container=\"page\" is none of html, item and enumerate"},
      {"<form font=''><grid/></form>", "bad.xml:1: the attribute font is empty"},
      // Data sets.
      {"<form><dataset file='orders.csv'/></form>", "bad.xml:1: <dataset> needs the attribute id"},
      {over(""), "bad.xml:2: <dataset> needs either the attribute file or the attribute database"},
      {over("file='b' database='c'"),
       "bad.xml:2: <dataset> needs either the attribute file or the attribute database"},
      {over("file='b' table='c'"), "bad.xml:2: the attributes table and query go with database"},
      {over("database='b'"), "bad.xml:2: a database needs either the attribute table or the attribute query"},
      {over("file='orders.csv' keepdeleted='yes'"),
       "bad.xml:2: keepdeleted=\"yes\" is neither true nor false"},
      {over("file='orders.csv'><field type='text'/></dataset><imageset"),
       "bad.xml:2: <field> needs the attribute name"},
      {over("file='orders.csv'>\n<field name='QTY' type='float'/></dataset><imageset"),
       "bad.xml:3: type=\"float\" is none of integer, long, decimal and text"},
      {"<form>\n\n<imageset id='a' folder='nowhere'/><grid/></form>",
       "bad.xml:3: the folder nowhere cannot be read"},
      // Properties.
      {of(">1"), "bad.xml:2: <property> needs the attribute name"},
      {of("name='LayoutInfo'>1"), "bad.xml:2: the grid keeps no property \"LayoutInfo\""},
      {of("name='Sort'>true</property>\n<property name='Sort'>false"),
       "bad.xml:3: the property Sort stands here twice"},
      {of("name='ViewSummary'>two"), "bad.xml:2: the property ViewSummary does not take \"two\""},
      {of("name='ColumnInfo' file='orders.csv'>x"), "bad.xml:2: a property takes either a file or a text"},
      {of("name='ColumnInfo' file='no.xml'>"),
       "bad.xml:2: the file no.xml cannot be read: No such file or directory"},
      // Faults that other readers find, told with the place of the file that has them or that names it.
      {"<form>\n<grid>\n</form>", "bad.xml:3: *"},
      {"", "bad.xml:*"},
      {"\xFF", "bad.xml: the text is no UTF-8"},
      {over("file='torn.csv'"), "torn.csv:3: *"},
      {over("file='latin.csv'"), "latin.csv:2: *"},
      {over("file='gone.csv'"), "bad.xml:2: gone.csv: *"},
      {over("database='noform.sqlite' table='t'"), "bad.xml:2: noform.sqlite: *"},
      {over("file='orders.csv' sort='+SIZE'"), "bad.xml:2: orders.csv: *"},
  };
  const ScratchFolder folder;
  folder.write("torn.csv", "A\n1\n\"2\n");
  folder.write("noform.sqlite", "this is no database, but long enough to be looked at by its reader.");
  folder.write("latin.csv", "A\nK\xF6ln\n");
  for (const auto& [text, expected] : rows) {
    folder.write("bad.xml", text);
    const auto opened = openForm("bad.xml");
    ASSERT_FALSE(opened) << text;
    std::string message = opened.error().message();
    EXPECT_EQ(message.find('\n'), message.npos) << message;
    if (expected.ends_with('*'))
      message.replace(std::min(message.size(), expected.size() - 1), message.npos, "*");
    EXPECT_EQ(message, expected) << text;
  }
}

TEST(FormReader, ReadsEveryPart) {
  const ScratchFolder folder;
  std::filesystem::create_directory("sub");
  folder.write("sub/all.xml", R"(<?xml version="1.0"?>
<form width="640" height="200" font="Noto" fontsize="11" codepage="949" container="item">
  <!-- a remark -->
  <imageset id="flags" folder="../flags"/>
  <dataset id="d" file="../orders.csv" keepdeleted="true" sort="-QTY" subsum="1:CITY">
    <field name="AMOUNT" type="decimal" scale="3" length="12"/>
  </dataset>
  <grid id="g">
    <property name="DataID">d</property>
    <property name="_cx">100</property>
    <property name="ColumnInfo" file="../orders.columns.xml"/>
    <property name="MenuInfo"><![CDATA[<M a="<"/>]]></property>
  </grid>
</form>)");
  const auto opened = openForm("sub/all.xml");
  ASSERT_TRUE(opened) << opened.error().message();
  const Form& form = opened->form;
  EXPECT_EQ(form.client, (Size{640, 200}));
  EXPECT_EQ(form.font + " " + std::to_string(form.fontSize), "Noto 11");
  EXPECT_EQ(form.codePage, 949u);
  EXPECT_EQ(form.container, ContainerKind::Item);
  EXPECT_EQ(form.gridId, "g");
  EXPECT_EQ(form.order.at(0).kind, Form::Kind::ImageSet);
  ASSERT_EQ(form.properties.size(), 4u);
  EXPECT_EQ(form.properties[2].text.left(6), u"<GRID>");
  EXPECT_EQ(form.properties[3].text, u"<M a=\"<\"/>");

  MemoryDataSet& data = *opened->components.dataSets.front().rows;
  std::int32_t scale = 0, level = 0;
  data.GetColumnScale(4, scale);
  data.GetLevel(data.rowCount(), level);
  data.DeleteRow(1);
  EXPECT_EQ(scale, 3);
  EXPECT_EQ(level, 1);
  EXPECT_EQ(data.recordStatus(data.entryAt(1)), rowDeleted);
}

TEST(FormReader, FillsInDefaults) {
  const ScratchFolder folder;
  folder.write("small.xml", "\xEF\xBB\xBF<form><grid/></form>");
  const Form form = openForm("small.xml")->form;
  EXPECT_EQ(form.client, (Size{800, 480}));
  EXPECT_EQ(form.font + " " + std::to_string(form.fontSize), "DejaVu Sans 9");
  EXPECT_EQ(form.codePage, 65001u);
  EXPECT_EQ(form.container, ContainerKind::Html);
}

}  // namespace
}  // namespace tessera
