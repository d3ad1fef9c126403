// Forms that no sane person writes: whatever a configuration or a data set says, a paint ends after a bounded
// number of canvas operations and touches nothing but its canvas.

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "pictures/counting_canvas.h"
#include "tools/tessera/form_host.h"

namespace tessera {
namespace {

constexpr std::int32_t manyRows = 40;
constexpr Size client{120, 80};
// For one cell: its background, border, text, extent and mark, a bar's second drawing, with room to spare.
constexpr std::int64_t operationsPerCell = 16;

struct Hostile {
  std::string columns;  // what stands inside of GRID
  std::vector<GridProperty> properties = {};
  Size size = client;
};

std::string attributesOf(const std::string& left, const std::string& right, const std::string& top,
                         const std::string& bottom) {
  return " left=\"" + left + "\" right=\"" + right + "\" top=\"" + top + "\" bottom=\"" + bottom + "\" ";
}

std::string column(const std::string& rect, const std::string& more = "", const std::string& inside = "") {
  return "<COLUMN id=\"a\" refcolid=\"TEXT\"><HEADER" + rect + "text=\"Two;lines\" check=\"true\"/><VIEW" +
         rect + more + "/>" + inside + "</COLUMN>";
}

std::string plainColumn(const std::string& more = "", const std::string& inside = "") {
  return column(attributesOf("0", "60", "0", "20"), more, inside);
}

std::shared_ptr<MemoryDataSet> makeData(const std::string& text, std::int32_t rows) {
  ColumnStore store;
  for (const char16_t* name : {u"TEXT", u"VALUE"}) {
    ColumnFormat format;
    format.name = name;
    store.addColumn(format);
  }
  for (std::int32_t row = 0; row < rows; ++row) {
    store.column(0).appendText(text);
    store.column(1).appendText(std::to_string(row * 1000 - 5000));
    store.finishRecord();
  }
  DataSetOptions options;
  options.id = "rows";
  return std::make_shared<MemoryDataSet>(std::move(store), options);
}

OpenedForm openedForm(const Hostile& hostile, const std::string& text, std::int32_t rows) {
  OpenedForm opened;
  opened.form.client = hostile.size;
  opened.form.gridId = "grid1";
  DataSetForm data;
  data.options.id = "rows";
  opened.form.dataSets.push_back(data);
  opened.form.order = {{Form::Kind::DataSet, 0}, {Form::Kind::Grid, 0}};
  opened.form.properties = {{"DataID", u"rows"}};
  opened.form.properties.insert(opened.form.properties.end(), hostile.properties.begin(),
                                hostile.properties.end());
  opened.form.properties.push_back(
      {"ColumnInfo", XString::fromNarrow("<GRID>" + hostile.columns + "</GRID>")});
  opened.components.dataSets.push_back({});
  opened.components.dataSets.back().rows = makeData(text, rows);
  return opened;
}

// The operations of one paint, after the grid was told of another size and back.
std::int64_t paint(const Hostile& hostile, const std::string& text = "some text",
                   std::int32_t rows = manyRows) {
  FormHost host(openedForm(hostile, text, rows));
  host.resize({hostile.size.width + 7, hostile.size.height + 7});
  host.resize(hostile.size);
  if (DataSetControl* data = host.findDataSet(u"rows")) data->SetCurrentRow(rows);
  CountingCanvas canvas(hostile.size);
  host.control().onDraw(canvas);
  return canvas.operations();
}

std::vector<std::string> coordinates() {
  constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
  return {std::to_string(least), std::to_string(least + 1), "-1",  "0", "30", std::to_string(most - 1),
          std::to_string(most),  "99999999999999999999",    "abc", ""};
}

// A page holds at most as many rows as the client has pixels.
std::int64_t bound(std::int64_t columns, const Size& size) {
  return (columns + 1) * (size.height + 4) * operationsPerCell + 64;
}

const char* const kinds[] = {
    "",
    "<CHILD type=\"edit\" subtype=\"popup\" inputtype=\"password\"/>",
    "<CHILD type=\"combo\"><COMBOITEM code=\"some text\" text=\"x\"/></CHILD>",
    "<CHILD type=\"lookup\" lookupdataid=\"rows\" lookupcode=\"TEXT\" lookuptext=\"VALUE\"/>",
    "<CHILD type=\"check\" checktext=\"VALUE\"/>",
    "<CHILD type=\"radio\" radiotext=\"VALUE\"/>",
    "<CHILD type=\"image\"/>",
    "<CHILD type=\"bar\" text=\"TEXT\" align=\"left\" min=\"-2147483648\" max=\"2147483647\"/>",
    "<SUPPRESS><REFCOLID>TEXT</REFCOLID></SUPPRESS>",
    "<TREE type=\"2\" levelcolumn=\"VALUE\" indentwidth=\"2147483647\" thumbsize=\"2147483647\"/>",
};

TEST(HostileTest, CoordinatesOfEveryKind) {
  for (const std::string& low : coordinates()) {
    for (const std::string& high : coordinates()) {
      for (const char* kind : kinds) {
        SCOPED_TRACE("from " + low + " to " + high + " " + kind);
        EXPECT_LE(paint({column(attributesOf(low, high, "0", "20"), "", kind)}), bound(1, client));
        EXPECT_LE(paint({column(attributesOf("0", "60", low, high), "", kind)}), bound(1, client));
      }
    }
  }
}

TEST(HostileTest, MarginsAndAlignments) {
  for (const char* align : {"lefttop", "centercenter", "rightbottom", "full"}) {
    for (const std::string& margin : coordinates()) {
      for (const char* side : {"leftmargin", "rightmargin", "topmargin", "bottommargin"}) {
        for (const char* kind : kinds) {
          SCOPED_TRACE(std::string(align) + " " + side + " " + margin + " " + kind);
          const std::string more = "align=\"" + std::string(align) + "\" " + side + "=\"" + margin + "\"";
          EXPECT_LE(paint({plainColumn(more, kind)}), bound(1, client));
        }
      }
    }
  }
}

TEST(HostileTest, FontSizesAndFaces) {
  for (const char* size : {"0", "-1", "1", "1000", "100000", "2147483647", "-2147483648"}) {
    SCOPED_TRACE(size);
    EXPECT_LE(paint({plainColumn("fontsize=\"" + std::string(size) + "\"")}), bound(1, client));
  }
  EXPECT_LE(paint({plainColumn("fontname=\"" + std::string(5000, 'n') + "\"")}), bound(1, client));
}

TEST(HostileTest, Bars) {
  const char* limits[] = {"-2147483648", "-1", "0", "1", "2147483647"};
  for (const char* least : limits) {
    for (const char* most : limits) {
      for (const char* align : {"none", "left", "right", "top", "bottom"}) {
        SCOPED_TRACE(std::string(least) + " " + most + " " + align);
        const std::string bar = std::string("<CHILD type=\"bar\" min=\"") + least + "\" max=\"" + most +
                                "\" align=\"" + align + "\"/>";
        std::string columns = plainColumn("", bar);
        columns.replace(columns.find("TEXT"), 4, "VALUE");
        EXPECT_LE(paint({columns}), bound(1, client));
      }
    }
  }
}

TEST(HostileTest, IndicatorWidths) {
  for (const std::string& width : coordinates()) {
    for (const char* number : {"true", "false"}) {
      const XString info =
          XString::fromNarrow("<INDICATOR width=\"" + width + "\" indexnumber=\"" + number + "\"/>");
      EXPECT_LE(paint({plainColumn(), {{"IndicatorInfo", info}}}), bound(1, client));
    }
  }
}

TEST(HostileTest, BandsWithoutHeight) {
  const std::string flat = attributesOf("0", "60", "0", "0");
  const std::string noHeader =
      "<COLUMN id=\"a\" refcolid=\"TEXT\"><VIEW" + attributesOf("0", "60", "0", "20") + "/></COLUMN>";
  const std::string noRow = "<COLUMN id=\"a\"><HEADER" + attributesOf("0", "60", "0", "20") + "/></COLUMN>";
  for (const std::string& columns : {column(flat), noHeader, noRow, std::string("<COLUMN id=\"a\"/>")}) {
    for (const char16_t* summary : {u"0", u"1", u"2"}) {
      for (const char16_t* header : {u"true", u"false"}) {
        SCOPED_TRACE(columns);
        EXPECT_LE(paint({columns, {{"ViewSummary", summary}, {"ViewHeader", header}}}), bound(1, client));
      }
    }
  }
}

TEST(HostileTest, FixedColumnsWiderThanTheWindow) {
  std::string columns;
  for (const char* place : {"0", "500", "2147483000"}) {
    std::string fixed = column(attributesOf(place, "2147483647", "0", "20"));
    fixed.insert(fixed.find("check="), "fix=\"true\" ");
    columns += fixed + plainColumn();
  }
  EXPECT_LE(paint({columns}), bound(6, client));
}

TEST(HostileTest, WindowsWithoutRoom) {
  for (const Size& size : {Size{0, 0}, Size{1, 1}, Size{0, 50}, Size{50, 0}, Size{1, 3000}}) {
    for (const char16_t* summary : {u"0", u"1", u"2"}) {
      SCOPED_TRACE(testing::Message() << size.width << " by " << size.height);
      EXPECT_LE(paint({plainColumn(), {{"ViewSummary", summary}}, size}), bound(1, size));
    }
  }
}

// A long text is one text: nothing is done for each of its characters.
TEST(HostileTest, CellTextsOfAMegabyte) {
  for (const std::string pattern : {"m", "long text ", "한글", "\xF0\x9F\x98\x80", "e\xCC\x81", "نص"}) {
    SCOPED_TRACE(pattern);
    std::string text;
    while (text.size() < (1u << 20)) text += pattern;
    EXPECT_LE(paint({plainColumn()}, text, 1), bound(1, client));
    EXPECT_LE(paint({plainColumn("displayformat=\"XXX XXX\"")}, text, 1), bound(1, client));
  }
  const std::string text(1u << 20, 'm');
  for (const char* kind : kinds) {
    SCOPED_TRACE(kind);
    EXPECT_LE(paint({plainColumn("", kind)}, text, 2), bound(1, client));
  }
}

// Only the columns that reach into the window are painted.
TEST(HostileTest, TenThousandColumns) {
  std::string apart;
  std::string together;
  for (std::int32_t index = 0; index < 10'000; ++index) {
    apart += column(attributesOf(std::to_string(index * 60), std::to_string(index * 60 + 60), "0", "20"));
    together += plainColumn();
  }
  EXPECT_LE(paint({apart}), bound(client.width / 60 + 1, client));
  EXPECT_LE(paint({together}), bound(10'000, client));
}

TEST(HostileTest, ManyLinesInOneHeaderAndTintsBeyondTheirRange) {
  std::string columns = plainColumn();
  columns.replace(columns.find("Two;lines"), 9, std::string(200'000, ';'));
  for (const char16_t* rate : {u"-2147483648", u"101", u"2147483647"}) {
    EXPECT_LE(paint({columns, {{"SelectedColorRate", rate}}}), bound(1, client));
  }
}

// The counts above mean something: a plain grid is painted, and with more columns it takes more.
TEST(HostileTest, APlainGridIsPainted) {
  const std::int64_t one = paint({plainColumn()});
  EXPECT_GT(one, 4 * 3);
  EXPECT_GT(paint({plainColumn() + column(attributesOf("60", "120", "0", "20"))}), one + 4);
}

}  // namespace
}  // namespace tessera
