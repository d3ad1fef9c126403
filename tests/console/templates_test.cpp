// Where the columns of a template stand, scroll, widen and lead the focus.

#include "console/scratch_folder.h"
#include "console/session.h"

namespace tessera {
namespace {

std::string sidesOf(const std::string& numbers) {
  std::istringstream sides(numbers);
  std::string attributes, number;
  for (const char* name : {"left", "right", "top", "bottom"}) {
    std::getline(sides, number, ',');
    attributes += std::string(" ") + name + "='" + number + "'";
  }
  return attributes;
}

// One column a semicolon: "ID LEFT RIGHT TOP BOTTOM" of the view, then "fix", "hidden", "head=LEFT,RIGHT,TOP,
// BOTTOM" when the header is no line of 20 above it, and "ref=" when it does not show TEXT.
std::string columnInfo(const std::string& text) {
  std::istringstream columns(text);
  std::string info;
  for (std::string column; std::getline(columns, column, ';');) {
    std::istringstream words(column);
    std::string id, left, right, top, bottom, header, reference = "TEXT";
    bool isHidden = false;
    words >> id >> left >> right >> top >> bottom;
    std::string place = sidesOf(left + ',' + right + ",0,20");
    for (std::string word; words >> word;) {
      if (word == "fix") header += " fix='true'";
      if (word == "hidden") isHidden = true;
      if (word.starts_with("ref=")) reference = word.substr(4);
      if (word.starts_with("head=")) place = sidesOf(word.substr(5));
    }
    info += "<COLUMN id='" + id + "' refcolid='" + reference + "'" + (isHidden ? " view='false'" : "") +
            "><HEADER" + place + header + "/><VIEW" + sidesOf(left + ',' + right + ',' + top + ',' + bottom) +
            "/><CHILD type='edit'/></COLUMN>";
  }
  return "\"<GRID>" + info + "</GRID>\"";
}

// Four rows under a template, with the focus; the indicator is 16 wide.
class Template : public Session {
 public:
  explicit Template(const std::string& text, int width = 250, int height = 101) : Session("rows.xml") {
    run("size " + std::to_string(width) + " " + std::to_string(height) + "; put ColumnInfo " +
        columnInfo(text) + "; focus in");
  }
  // "ID ROW" of the focus cell.
  std::string focus() {
    std::istringstream words(run("show"));
    std::string row, column;
    words >> row >> row >> column;
    return column + row;
  }
  // "ID:LEFT-RIGHT" of every header, or of every view.
  std::string places(bool ofViews = false) {
    std::istringstream lines(run("columns"));
    std::string text, id, word, header, view;
    for (std::string line; std::getline(lines, line);) {
      std::istringstream(line) >> id >> word >> header >> word >> view;
      int left = 0, top = 0, right = 0;
      std::sscanf((ofViews ? view : header).c_str(), "%d,%d,%d", &left, &top, &right);
      text += (text.empty() ? "" : " ") + id + ':' + std::to_string(left) + '-' + std::to_string(right);
    }
    return text;
  }
  std::string bar() {
    const std::string bars = run("bars");
    return bars.substr(0, bars.find('\n'));
  }
};

TEST(Templates, TheWayOfTheFocus) {
  const ScratchFolder folder;
  struct Row {
    const char* columns;
    const char* start;
    const char* keys;  // L, R, U, D, H(ome), E(nd), F (Ctrl+End), and S for a step of the bar
    const char* way;
  };
  const char* twoLines = "a 0 60 0 40;b 60 120 0 20;d 120 180 0 20;c 60 120 20 40;e 120 180 20 40";
  const char* noMatch = "a 0 50 0 20;b 50 100 0 20;wide 30 100 20 40";
  const char* gaps = "a 0 60 0 20;flat 60 60 0 20;b 60 120 0 20;h 0 60 30 40 hidden;low 0 60 35 40";
  const char* fixedBefore = "f 0 60 0 20 fix;g 60 120 0 20 fix;x 120 180 0 20;y 180 240 0 20;z 240 300 0 20";
  const Row table[] = {
      {"a 0 60 0 20;h 60 90 0 20 hidden;b 60 120 0 20;c 120 180 0 20", "a", "LURRRLDUFRDL",
       "a1 a1 b1 c1 a2 c1 c2 c1 c4 c4 c4 b4"},
      {twoLines, "b", "DDDUUUU", "c1 b2 c2 b2 c1 b1 b1"},
      {twoLines, "d", "DDUURRRRRLLLLL", "e1 d2 e1 d1 a1 c1 e1 a2 b2 a2 e1 c1 a1 d1"},
      {twoLines, "d", "RDDUUHEH", "a1 a2 a3 a2 a1 a1 e1 a1"},
      {twoLines, "c", "FRDUUH", "e4 e4 e4 d4 e3 a3"},
      {noMatch, "a", "DRDDUUL", "a1 b1 wide1 a2 a2 a2 wide1"},
      {noMatch, "wide", "RLLLRRR", "a2 wide1 b1 a1 b1 wide1 a2"},
      {gaps, "a", "RDRRLLLLRRR", "b1 b1 low1 a2 low1 b1 a1 a1 b1 low1 a2"},
      {gaps, "low", "DUUDDD", "a2 low1 a1 low1 a2 low2"},
      {"top 0 60 0 5 hidden;a 0 60 5 20;last 0 60 30 40 hidden", "a", "LRRRRLD", "a1 a2 a3 a4 a4 a3 a4"},
      {fixedBefore, "f", "RRRRRLLLLLL", "g1 x1 y1 z1 f2 z1 y1 x1 g1 f1 f1"},
      {fixedBefore, "z", "LLLRRDUHE", "y1 x1 g1 x1 y1 y2 y1 f1 z1"},
      {"f 0 60 0 20 fix;x 60 120 0 20;y 120 180 20 40", "x", "RRLL", "y1 f2 y1 x1"},
      // Scrolled, x and y lie under f.
      {"f 0 60 0 40 fix;x 60 120 0 20;y 60 120 20 40;z 120 240 0 40;w 240 300 0 40", "y", "SUD", "y1 x1 y1"},
      {"b 60 120 0 20;a 0 60 0 20", "b", "HEH", "a1 b1 a1"},
      {"h 0 60 0 20 hidden;a 60 120 0 20", "a", "HE", "a1 a1"},
      {"a 0 60 0 20;b 0 60 20 40", "b", "HE", "b1 b1"},
      {"a 0 60 0 20;b 10 50 20 40", "b", "HE", "b1 b1"},
      {"b 10 50 20 40;a 0 60 0 20", "b", "HE", "b1 b1"},
  };
  for (const Row& row : table) {
    Template grid(row.columns, 200);
    std::string way;
    grid.run(std::string("put ColumnPosition ") + row.start);
    for (const char key : std::string(row.keys)) {
      constexpr std::string_view letters = "LRUDHEFS";
      constexpr const char* commands[] = {"key Left", "key Right", "key Up",       "key Down",
                                          "key Home", "key End",   "key End ctrl", "message 276 1 0"};
      grid.run(commands[letters.find(key)]);
      way += (way.empty() ? "" : " ") + grid.focus();
    }
    EXPECT_EQ(way, row.way) << row.columns << " from " << row.start << ": " << row.keys;
  }
}

constexpr const char* fiveColumns =
    "a 0 100 0 20;b 100 200 0 20;c 200 300 0 20;d 300 400 0 20;e 400 500 0 20";

TEST(Templates, TheHorizontalBar) {
  const ScratchFolder folder;
  struct Row {
    const char* columns;
    int width;
    const char* bar;
  };
  const Row table[] = {
      {fiveColumns, 516, "hidden"},
      {fiveColumns, 515, "1-2"},
      {fiveColumns, 416, "1-3"},  // one more than it takes: the step itself refuses there
      {fiveColumns, 415, "1-3"},
      {fiveColumns, 66, "1-6"},
      {"a 0 100 0 20 fix;b 100 200 0 20;c 200 300 0 20", 266, "1-2"},
      {"a 0 100 0 20 fix;b 100 400 0 20", 266, "1-1"},
      {"a 0 100 0 20;b 0 100 20 40;c 100 200 0 20", 166, "1-2"},  // equal lefts are one stop
  };
  for (const Row& row : table) {
    const std::string bar = Template(row.columns, row.width).bar();
    const bool shown = bar.find("shown") != std::string::npos;
    EXPECT_EQ(shown ? bar.substr(8, bar.find(' ', 8) - 8) : "hidden", row.bar)
        << row.columns << " in " << row.width;
  }
}

TEST(Templates, Commands) {
  const ScratchFolder folder;
  struct Row {
    const char* what;
    const char* columns;
    int width;
    const char* commands;
    const char* headers;
    const char* views;  // empty: as the headers
  };
  const char* three = "a 0 60 0 20;b 60 120 0 20;c 120 180 0 20";
  const char* twoFixed = "a 0 30 0 20 fix;b 30 60 0 20 fix;c 60 120 0 20;d 120 180 0 20";
  const Row table[] = {
      {"step right", fiveColumns, 266, "message 276 1 0", "a:-84-16 b:16-116 c:116-216 d:216-316 e:316-416",
       ""},
      {"as far as it goes", fiveColumns, 266,
       "message 276 1 0; message 276 1 0; message 276 1 0; message 276 1 0; message 276 1 0",
       "a:-284--184 b:-184--84 c:-84-16 d:16-116 e:116-216", ""},
      {"and back", fiveColumns, 266, "message 276 3 0; message 276 3 0; message 276 0 0",
       "a:-184--84 b:-84-16 c:16-116 d:116-216 e:216-316", ""},
      {"fixed columns stay", "f 0 80 0 20 fix;b 80 180 0 20;c 180 280 0 20;d 280 400 0 20", 216,
       "message 276 1 0", "f:16-96 b:-4-96 c:96-196 d:196-316", ""},
      {"a page beside fixed columns", "f 0 80 0 20 fix;b 80 180 0 20;c 180 280 0 20;d 280 400 0 20", 216,
       "message 276 3 0", "f:16-96 b:-104--4 c:-4-96 d:96-216", ""},
      {"narrower than the fixed columns", "f 0 500 0 20 fix;a 500 600 0 20;b 600 650 0 20", 316,
       "message 276 1 0; message 276 1 0; message 276 1 0", "f:16-516 a:416-516 b:516-566", ""},
      {"the last column", fiveColumns, 266, "put ColumnPosition e",
       "a:-284--184 b:-184--84 c:-84-16 d:16-116 e:116-216", ""},
      {"a column in the middle", fiveColumns, 266, "put ColumnPosition c",
       "a:-84-16 b:16-116 c:116-216 d:216-316 e:316-416", ""},
      {"back to the first", fiveColumns, 266, "put ColumnPosition e; put ColumnPosition a",
       "a:16-116 b:116-216 c:216-316 d:316-416 e:416-516", ""},
      {"wider than the page", "a 0 100 0 20;wide 100 900 0 20;c 900 1000 0 20", 266,
       "put ColumnPosition wide", "a:-84-16 wide:16-816 c:816-916", ""},
      {"a wider window", fiveColumns, 266, "put ColumnPosition e; size 466 101",
       "a:-84-16 b:16-116 c:116-216 d:216-316 e:316-416", ""},
      {"a window wider by a column", fiveColumns, 266, "put ColumnPosition e; size 316 101",
       "a:-284--184 b:-184--84 c:-84-16 d:16-116 e:116-216", ""},
      {"a window wider by more than that", fiveColumns, 266, "put ColumnPosition e; size 317 101",
       "a:-184--84 b:-84-16 c:16-116 d:116-216 e:216-316", ""},
      {"right from the fixed columns", "f 0 60 0 20 fix;v 60 120 0 20;w 120 180 0 20;x 180 240 0 20", 166,
       "put ColumnPosition x; put ColumnPosition f; key Right", "f:16-76 v:76-136 w:136-196 x:196-256", ""},
      {"Tab from the fixed columns", "f 0 60 0 20 fix;v 60 120 0 20;w 120 180 0 20;x 180 240 0 20", 166,
       "put ColumnPosition x; put ColumnPosition f; key Tab", "f:16-76 v:76-136 w:136-196 x:196-256", ""},
      {"Home without a target", "a 0 60 0 20;b 60 120 0 20;c 120 180 0 20;d 180 240 0 20;v 70 150 20 40", 120,
       "put ColumnPosition v; key Home; key End", "a:-44-16 b:16-76 c:76-136 d:136-196 v:26-106", ""},
      // Drags of an edge.
      {"within five pixels", three, 250, "mouse down 71 10; mouse move 81 10", "a:16-86 b:86-146 c:146-206",
       ""},
      {"out of reach", three, 250, "mouse down 70 10; mouse move 90 10", "a:16-76 b:76-136 c:136-196", ""},
      {"above the header", three, 250, "mouse down 76 0; mouse move 90 10", "a:16-76 b:76-136 c:136-196", ""},
      {"the last row of the header", three, 250, "mouse down 76 1; mouse move 86 1",
       "a:16-86 b:86-146 c:146-206", ""},
      {"to the least width and beyond", three, 250, "mouse down 138 10; mouse move 81 10; mouse move 80 10",
       "a:16-76 b:76-81 c:81-141", ""},
      {"to the right end and beyond", three, 250, "mouse down 138 10; mouse move 249 10; mouse move 250 10",
       "a:16-76 b:76-247 c:247-307", ""},
      {"in reach of the indicator", "a 0 3 0 20;b 3 60 0 20", 250, "mouse down 21 10; mouse move 40 10",
       "a:16-19 b:19-76", ""},
      {"just out of its reach", "a 0 3 0 20;b 3 60 0 20", 250, "mouse down 22 10; mouse move 32 10",
       "a:16-29 b:29-86", ""},
      {"equally near: the later one", "a 0 60 0 20;b 0 68 0 20;c 68 180 0 20", 250,
       "mouse down 80 10; mouse move 90 10", "a:16-76 b:16-94 c:94-206", ""},
      {"the nearest inner edge", "a 0 40 0 20;d 0 100 20 40;b 40 100 0 20;c 100 180 0 40", 250,
       "mouse down 116 10; mouse move 61 10; mouse move 60 10", "a:16-56 d:16-61 b:56-61 c:61-141", ""},
      {"a fixed edge", twoFixed, 166, "message 276 1 0; mouse down 46 10; mouse move 56 10",
       "a:16-56 b:56-86 c:26-86 d:86-146", ""},
      {"the zone's edge is the fixed one's", twoFixed, 166,
       "message 276 1 0; mouse down 80 10; mouse move 90 10", "a:16-46 b:46-86 c:26-86 d:86-146", ""},
      {"more than five pixels behind it", twoFixed, 166,
       "message 276 1 0; mouse down 81 10; mouse move 91 10", "a:16-46 b:46-86 c:16-86 d:86-146", ""},
      {"a view that reaches under the next header",
       "a 0 90 0 20 head=0,60,0,20;b 90 120 0 20 head=60,120,0,20;c 120 180 0 20", 250,
       "mouse down 76 10; mouse move 80 10", "a:16-80 b:80-140 c:140-200", "a:16-110 b:110-140 c:140-200"},
      {"columns set while dragging", three, 250, "mouse down 76 10; refresh; mouse move 90 10",
       "a:16-76 b:76-136 c:136-196", ""},
      {"no header", three, 250, "put ViewHeader false; mouse down 76 0; mouse move 90 0",
       "a:16-76 b:76-136 c:136-196", ""},
      // Widths by the texts.
      {"fit", three, 250, "call FitArrange", "a:16-30 b:30-44 c:44-58", ""},
      {"fit by a text below the page", three, 250,
       "size 250 41; data rows SetText 4 2 \"wide text\"; call FitArrange", "a:16-78 b:78-140 c:140-202", ""},
      {"fit no wider than the page", three, 250,
       "data rows SetText 1 2 \"a text that is a good deal wider than the whole page can be\"; call "
       "FitArrange",
       "a:16-245 b:245-474 c:474-703", ""},
      {"fit a hidden column", "a 0 60 0 20;h 60 120 0 20 hidden;c 120 180 0 20", 250, "call FitArrange",
       "a:16-30 h:30-90 c:90-104", ""},
      {"fit a page too small", three, 20, "call FitArrange", "a:16-76 b:76-136 c:136-196", ""},
      {"fit without rows", three, 250,
       "data rows DeleteRow 1; data rows DeleteRow 1; data rows DeleteRow 1; data rows DeleteRow 1; call "
       "FitArrange",
       "a:16-21 b:21-26 c:26-31", ""},
      {"fit lines above the last",
       "d 0 120 0 20 head=0,120,0,20;a 0 60 20 40 ref=ROW head=0,60,20,40;"
       "b 60 120 20 40 ref=ROW head=60,120,20,40;c 120 180 0 40 ref=ROW head=120,180,0,40",
       250, "call FitArrange", "d:16-44 a:16-30 b:30-44 c:44-58", ""},
      {"fit lines above that need more",
       "d 0 120 0 20 head=0,120,0,20;a 0 60 20 40 ref=ROW head=0,60,20,40;"
       "b 60 120 20 40 ref=ROW head=60,120,20,40;c 120 180 0 40 ref=ROW head=120,180,0,40",
       250, "data rows SetText 1 2 \"wide text\"; call FitArrange", "d:16-78 a:16-30 b:30-78 c:78-92", ""},
      {"fit by a summary that shows", three, 250,
       "put ColumnInfo \"<GRID><COLUMN id='a' refcolid='ROW'><HEADER right='60' bottom='20'/>"
       "<VIEW right='60' bottom='20'/><VIEWSUMMARY text='in all'/></COLUMN></GRID>\"; put ViewSummary 1; "
       "call FitArrange",
       "a:16-50", ""},
      {"fit by a summary that does not", three, 250,
       "put ColumnInfo \"<GRID><COLUMN id='a' refcolid='ROW'><HEADER right='60' bottom='20'/>"
       "<VIEW right='60' bottom='20'/><VIEWSUMMARY text='in all'/></COLUMN></GRID>\"; call FitArrange",
       "a:16-30", ""},
      {"fit while scrolled", three, 120,
       "put ColumnPosition c; data rows SetText 1 2 \"wide text\"; call FitArrange",
       "a:-108--46 b:-46-16 c:16-78", ""},
  };
  for (const Row& row : table) {
    SCOPED_TRACE(row.what);
    Template grid(row.columns, row.width);
    grid.run(row.commands);
    EXPECT_EQ(grid.places(), row.headers);
    EXPECT_EQ(grid.places(true), *row.views ? row.views : row.headers);
  }
}

}  // namespace
}  // namespace tessera
