// Check marks and radio buttons.

#include "geometry/hit_test.h"
#include "interaction/check_cells.h"
#include "tests/interaction/interaction_fixture.h"

namespace tessera::test {
namespace {

XValue realOf(float value) {
  XValue result;
  result.setFloat(value);
  return result;
}

TEST(CheckValues, Table) {
  const auto text = [](const char16_t* value) { return XValue::ofText(value); };
  struct Row {
    XValue value, byMouse, byKey, radio;
    bool isSet;
  };
  const Row table[] = {
      {text(u"T"), text(u"F"), text(u"F"), text(u"T"), true},
      {text(u"True"), text(u"F"), text(u"F"), text(u"T"), true},
      {text(u"F"), text(u"T"), text(u"T"), text(u"T"), false},
      {text(u"False"), text(u"T"), text(u"T"), text(u"T"), true},
      {text(u"0"), text(u"F"), text(u"T"), text(u"T"), false},
      {text(u""), text(u"F"), text(u"T"), text(u"T"), true},
      {text(u"f"), text(u"F"), text(u"T"), text(u"T"), false},
      {text(u"x"), text(u"F"), text(u"T"), text(u"T"), true},
      {XValue::ofInt(0), XValue::ofInt(1), XValue::ofInt(1), XValue::ofInt(1), false},
      {XValue::ofInt(-3), XValue::ofInt(0), XValue::ofInt(0), XValue::ofInt(1), true},
      {XValue::ofInt64(0), XValue::ofInt(1), XValue::ofInt(1), XValue::ofInt(1), false},
      {XValue::ofInt64(std::int64_t{1} << 40), XValue::ofInt(0), XValue::ofInt(0), XValue::ofInt(1), true},
      {XValue::ofDouble(0), XValue::ofDouble(1), XValue::ofDouble(1), XValue::ofDouble(1), false},
      {realOf(0.5), XValue::ofDouble(0), XValue::ofDouble(0), XValue::ofDouble(1), true},
      {XValue::ofBool(true), XValue::ofBool(true), XValue::ofBool(true), XValue::ofBool(true), false},
      {XValue(), XValue(), XValue(), XValue(), false},
      {XValue::null(), XValue::null(), XValue::null(), XValue::null(), false},
  };
  for (std::size_t row = 0; row < std::size(table); ++row) {
    EXPECT_EQ(checkedByMouse(table[row].value), table[row].byMouse) << row;
    EXPECT_EQ(checkedByKey(table[row].value), table[row].byKey) << row;
    EXPECT_EQ(radioSetValue(table[row].value), table[row].radio) << row;
    EXPECT_EQ(isRadioSet(table[row].value), table[row].isSet) << row;
  }
}

// Column a holds numbers under a check mark, b texts, c numbers under radio buttons.
class Marks : public GridTest {
 protected:
  Marks() {
    setColumns("a 0 60 0 20\nb 60 120 0 20\nc 120 180 0 20", [](GridTest& test) {
      for (const char* id : {"a", "b"}) test.column(id).child.type = CellKind::Check;
      test.column("c").child.type = CellKind::Radio;
    });
    setFormats({{u"a", columnInteger}, {u"b"}, {u"c", columnInteger}}, 3);
    for (std::int32_t row = 1; row <= 3; ++row) {
      data->SetTextByName(row, u"a", u"0");
      data->SetTextByName(row, u"b", u"x");
      data->SetTextByName(row, u"c", u"0");
    }
    services.take();
    writes.clear();
  }
  bool pressMark(const char* id, std::int32_t row) {
    const Rect cell = cellRect(parts.frame(), column(id), row - 1);
    return editors.activateCell((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2, position(id),
                                parts.rows.find(row));
  }
};

TEST_F(Marks, KeysFlipChecks) {
  press(key::space);
  EXPECT_EQ(cellText(1, "a"), "1");
  press(key::enter);
  EXPECT_EQ(cellText(1, "a"), "0");
  column("a").child.editable = u"false";
  press(key::space);
  press(key::enter);
  EXPECT_EQ(cellText(1, "a"), "0");
  EXPECT_EQ(services.take(), "OnKeyDown 32 0; OnKeyDown 13 0; OnKeyDown 32 0; OnKeyDown 13 0; ");
}

TEST_F(Marks, PressesFlipAnyCell) {
  EXPECT_TRUE(pressMark("a", 3));
  EXPECT_EQ(cellText(3, "a"), "1");
  EXPECT_TRUE(pressMark("b", 2));
  EXPECT_EQ(cellText(2, "b"), "F") << "by mouse only false becomes true";
  EXPECT_TRUE(pressMark("b", 2));
  EXPECT_EQ(cellText(2, "b"), "T");
  EXPECT_FALSE(editors.activateCell(18, 30, position("a"), parts.rows.find(1))) << "beside the mark";
  EXPECT_EQ(focusText(), "1 a") << "the mouse moves the focus";
}

TEST_F(Marks, ARadioIsTheOnlyOneOfItsColumn) {
  EXPECT_TRUE(pressMark("c", 2));
  EXPECT_EQ(cellText(2, "c"), "1");
  writes.clear();
  EXPECT_TRUE(pressMark("c", 2)) << "it was done already";
  EXPECT_TRUE(writes.empty());
  focus.setColumnPosition(u"c");
  focus.setRowPosition(3);
  column("c").child.editable = u"false";
  press(key::enter);
  EXPECT_EQ(cellText(2, "c") + cellText(3, "c"), "01") << "the key does not ask whether it may";
  EXPECT_EQ(writes, (std::vector<std::string>{"2 3", "3 3"}));
  EXPECT_EQ(parts.drawHolds, 0);
}

TEST_F(Marks, ARadioOverTextsClearsThemAll) {
  column("b").child.type = CellKind::Radio;
  for (std::int32_t row = 1; row <= 3; ++row) data->SetTextByName(row, u"b", u"F");
  writes.clear();
  setRadio(parts, services, column("b"), 2);
  EXPECT_EQ(cellText(1, "b") + cellText(2, "b") + cellText(3, "b"), "0T0");
}

// A write runs the host; one that takes the ground away ends the walk through the rows.
TEST_F(Marks, TheWalkOfARadioMayBeCutShort) {
  data->SetTextByName(1, u"c", u"1");
  whenWritten = [this] { refresh(); };
  EXPECT_TRUE(pressMark("c", 2));
  EXPECT_EQ(cellText(2, "c"), "0");
  const auto pressInside = [this](std::function<void()> act) {
    setFormats({{u"a", columnInteger}, {u"b"}, {u"c", columnInteger}}, 3);
    for (std::int32_t row = 1; row <= 3; ++row) data->SetTextByName(row, u"c", row == 2 ? u"0" : u"1");
    whenWritten = std::move(act);
    EXPECT_TRUE(pressMark("c", 2));
    EXPECT_EQ(parts.drawHolds, 0);
    std::string column;
    for (std::int32_t row = 1; row <= data->rowCount(); ++row) column += cellText(row, "c") + ' ';
    return column;
  };
  EXPECT_EQ(pressInside([this] { deleteRow(3); }), "0 0 ");
  EXPECT_EQ(pressInside([this] { data->appendRows(1); }), "0 1 0  ") << "nobody has another number";
  const auto swapRows = [this] {
    deleteRow(1);
    data->InsertRow(1);
  };
  EXPECT_EQ(pressInside(swapRows), " 0 1 ") << "as many rows, but others";
}

}  // namespace
}  // namespace tessera::test
