#include "tools/tessera/form_reader.h"

#include <gtest/gtest.h>

#include "console/scratch_folder.h"
#include "tools/tessera/open_form.h"

namespace tessera {
namespace {

struct FaultRow {
  std::string text;
  std::string message;  // behind "bad.xml:"
};

const FaultRow faultyForms[] = {
    // Structure.
    {"<page/>", "1: a form starts with <form>, not <page>"},
    {"<form>\n<data/>\n</form>", "2: <form> has no element <data>"},
    {"<form><property/></form>", "1: <form> has no element <property>"},
    {"<form><grid/><field/></form>", "1: <form> has no element <field>"},
    {"<form>\n<grid>text</grid></form>", "2: <grid> holds text"},
    {"<form>\n</form>", "1: the form has no <grid>"},
    {"<form>\n<grid/>\n<grid/></form>", "3: the form has a second <grid>"},
    // Attributes.
    {"<form>\n<!-- a=\"b\" -->\n<grid\n id='a' key=\"x\"/></form>", "3: <grid> has no attribute key"},
    {"<form colour=\"red\"><grid/></form>", "1: <form> has no attribute colour"},
    {"<form width=\"wide\"><grid/></form>", "1: width=\"wide\" is no number from 1 to 16384"},
    {"<form height=\"0\"><grid/></form>", "1: height=\"0\" is no number from 1 to 16384"},
    {"<form width=\"80 \"><grid/></form>", "1: width=\"80 \" is no number from 1 to 16384"},
    {"<form width=\"99999999999999999999\"><grid/></form>",
     "1: width=\"99999999999999999999\" is no number from 1 to 16384"},
    {"<form fontsize=\"-9\"><grid/></form>", "1: fontsize=\"-9\" is no number from 1 to 400"},
    {"<form codepage=\"utf8\"><grid/></form>", "1: codepage=\"utf8\" is no number from 0 to 4294967295"},
    {"<form container=\"page\"><grid/></form>", "1: container=\"page\" is none of html, item and enumerate"},
    {"<form font=\"\"><grid/></form>", "1: the attribute font is empty"},
    // Data sets.
    {"<form><dataset file=\"orders.csv\"/></form>", "1: <dataset> needs the attribute id"},
    {"<form>\n<dataset id=\"a\"/></form>",
     "2: <dataset> needs either the attribute file or the attribute database"},
    {"<form><dataset id=\"a\" file=\"b\" database=\"c\"/></form>",
     "1: <dataset> needs either the attribute file or the attribute database"},
    {"<form><dataset id=\"a\" file=\"b\" table=\"c\"/></form>",
     "1: the attributes table and query go with database"},
    {"<form><dataset id=\"a\" database=\"b\"/></form>",
     "1: a database needs either the attribute table or the attribute query"},
    {"<form><dataset id=\"a\" file=\"orders.csv\" keepdeleted=\"yes\"/></form>",
     "1: keepdeleted=\"yes\" is neither true nor false"},
    {"<form><dataset id=\"a\" file=\"orders.csv\"><field type=\"text\"/></dataset></form>",
     "1: <field> needs the attribute name"},
    {"<form><dataset id=\"a\" file=\"orders.csv\">\n<field name=\"QTY\" type=\"float\"/></dataset></form>",
     "2: type=\"float\" is none of integer, long, decimal and text"},
    {"<form><dataset id=\"a\" file=\"orders.csv\"><field name=\"QTY\" scale=\"31\"/></dataset></form>",
     "1: scale=\"31\" is no number from 0 to 30"},
    {"<form>\n\n<imageset id=\"a\" folder=\"nowhere\"/><grid/></form>",
     "3: the folder nowhere cannot be read"},
    // Properties.
    {"<form><grid><property>1</property></grid></form>", "1: <property> needs the attribute name"},
    {"<form><grid>\n<property name=\"Colour\">1</property></grid></form>",
     "2: the grid keeps no property \"Colour\""},
    {"<form><grid><property name=\"LayoutInfo\">1</property></grid></form>",
     "1: the grid keeps no property \"LayoutInfo\""},
    {"<form><grid><property name=\"Sort\">true</property>\n<property "
     "name=\"Sort\">false</property></grid></form>",
     "2: the property Sort stands here twice"},
    {"<form><grid><property name=\"ViewSummary\">two</property></grid></form>",
     "1: the property ViewSummary does not take \"two\""},
    {"<form><grid><property name=\"ColumnInfo\" file=\"orders.csv\">x</property></grid></form>",
     "1: a property takes either a file or a text"},
    {"<form><grid>\n<property name=\"ColumnInfo\" file=\"no.xml\"/></grid></form>",
     "2: the file no.xml cannot be read: No such file or directory"},
};

TEST(FormReader, NamesFileLineAndReasonOfAFault) {
  const ScratchFolder folder;
  for (const FaultRow& row : faultyForms) {
    folder.write("bad.xml", row.text);
    const auto opened = openForm("bad.xml");
    ASSERT_FALSE(opened) << row.text;
    EXPECT_EQ(opened.error().message(), "bad.xml:" + row.message) << row.text;
  }
}

// Faults that other readers find, told with the place of the file that has them or that names it.
TEST(FormReader, TellsWhereDataCannotBeRead) {
  struct Row {
    std::string text;
    std::string place;  // what the message starts with
  };
  const ScratchFolder folder;
  folder.write("torn.csv", "A,B\n1,2\n3\n");
  folder.write("latin.csv", "A\nK\xF6ln\n");
  folder.write("words.csv", "A\n1\nmany\n");
  folder.write("noform.sqlite", "this is no database, but long enough to be looked at by its reader.");
  const auto over = [](const std::string& source) {
    return "<form><grid/>\n<dataset id=\"d\" " + source + "/></form>";
  };
  const Row rows[] = {
      {"<form>\n<grid>\n</form>", "bad.xml:3: "},
      {"no form at all", "bad.xml:1: "},
      {"", "bad.xml:"},
      {"\xFF", "bad.xml: the text is no UTF-8"},
      {over("file=\"torn.csv\""), "torn.csv:3: "},
      {over("file=\"latin.csv\""), "latin.csv:2: "},
      {over("file=\"gone.csv\""), "bad.xml:2: gone.csv: "},
      {over("database=\"noform.sqlite\" table=\"t\""), "bad.xml:2: noform.sqlite: "},
      {over("file=\"orders.csv\" sort=\"+SIZE\""), "bad.xml:2: orders.csv: "},
      {over("file=\"orders.csv\" level=\"DEPTH\""), "bad.xml:2: orders.csv: "},
      {"<form><grid/><dataset id=\"d\" file=\"words.csv\"><field name=\"A\" "
       "type=\"integer\"/></dataset></form>",
       "words.csv:3: "},
  };
  for (const Row& row : rows) {
    folder.write("bad.xml", row.text);
    const auto opened = openForm("bad.xml");
    ASSERT_FALSE(opened) << row.text;
    const std::string message = opened.error().message();
    EXPECT_TRUE(message.starts_with(row.place)) << message;
    EXPECT_GT(message.size(), row.place.size() - 1) << message;
    EXPECT_EQ(message.find('\n'), std::string::npos) << message;
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
  EXPECT_EQ(form.font, "Noto");
  EXPECT_EQ(form.fontSize, 11);
  EXPECT_EQ(form.codePage, 949u);
  EXPECT_EQ(form.container, ContainerKind::Item);
  EXPECT_EQ(form.gridId, "g");
  ASSERT_EQ(form.order.size(), 3u);
  EXPECT_EQ(form.order[0].kind, Form::Kind::ImageSet);
  ASSERT_EQ(form.properties.size(), 4u);
  EXPECT_EQ(form.properties[2].text.left(6), u"<GRID>");
  EXPECT_EQ(form.properties[3].text, u"<M a=\"<\"/>");

  MemoryDataSet& data = *opened->components.dataSets.front().rows;
  VariantBool keeps = VARIANT_FALSE;
  data.GetKeepDeleted(keeps);
  EXPECT_EQ(keeps, VARIANT_TRUE);
  std::int32_t scale = 0;
  data.GetColumnScale(4, scale);
  EXPECT_EQ(scale, 3);
  std::int32_t level = 0;
  data.GetLevel(data.rowCount(), level);
  EXPECT_EQ(level, 1);
}

TEST(FormReader, FillsInDefaults) {
  const ScratchFolder folder;
  folder.write("small.xml", "\xEF\xBB\xBF<form><grid/></form>");
  const auto opened = openForm("small.xml");
  ASSERT_TRUE(opened) << opened.error().message();
  EXPECT_EQ(opened->form.client, (Size{800, 480}));
  EXPECT_EQ(opened->form.font, "DejaVu Sans");
  EXPECT_EQ(opened->form.fontSize, 9);
  EXPECT_EQ(opened->form.codePage, 65001u);
  EXPECT_EQ(opened->form.container, ContainerKind::Html);
}

}  // namespace
}  // namespace tessera
