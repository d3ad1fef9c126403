#include <gtest/gtest.h>

#include "config/column_record.h"
#include "config/indicator_record.h"
#include "fake_info_services.h"

namespace tessera {
namespace {

XValue text(const char16_t* value) { return XValue::ofText(value); }

// A style whose attribute of `slot` is computed by `program`.
CellStyle dynamicStyle(DynamicSlot slot, const XExprProgram& program) {
  CellStyle style;
  style.setDynamic(slot, &program);
  return style;
}

TEST(CellStyle, ColorsOfExpressions) {
  const std::pair<XValue, ColorRef> rows[] = {
      {XValue::ofInt(-1), 0xFFFFFFFF},   {text(u"red"), 0x0000FF},
      {text(u"no colour"), noColor},     {XValue(), 0xFFFFFF},
      {XValue::ofDouble(255), 0xFFFFFF}, {XValue::ofBool(true), 0xFFFFFF}};
  EvalState state;
  for (const auto& [value, expected] : rows) {
    const FakeProgram program(value);
    EXPECT_EQ(dynamicStyle(DynamicSlot::TextColor, program).effectiveTextColor(state), expected);
    EXPECT_EQ(dynamicStyle(DynamicSlot::BackColor, program).effectiveBackColor(state), expected);
    EXPECT_EQ(dynamicStyle(DynamicSlot::BorderColor, program).effectiveBorderColor(state), expected);
  }
}

TEST(CellStyle, FontAttributesOfExpressions) {
  EvalState state;
  const std::pair<XValue, std::int32_t> sizes[] = {{XValue::ofInt(12), 12},
                                                   {text(u"12"), 12},
                                                   {text(u" 9pt"), 9},
                                                   {text(u"big"), 0},
                                                   {XValue::ofDouble(12), 0}};
  for (const auto& [value, expected] : sizes) {
    const FakeProgram program(value);
    EXPECT_EQ(dynamicStyle(DynamicSlot::FontSize, program).effectiveFontSize(state), expected);
  }
  const std::pair<XValue, std::int32_t> styles[] = {
      {text(u"BoldItalic"), 3}, {text(u"none"), 0}, {text(u""), 2}, {text(u"fat"), 2}, {XValue::ofInt(1), 0}};
  for (const auto& [value, expected] : styles) {
    const FakeProgram program(value);
    CellStyle style = dynamicStyle(DynamicSlot::FontStyle, program);
    style.setFontStyle(font_style::italic);
    EXPECT_EQ(style.effectiveFontStyle(state), expected);
  }
  const std::pair<XValue, const char*> names[] = {{text(u"Sans"), "Sans"}, {XValue::ofInt(7), ""}};
  for (const auto& [value, expected] : names) {
    const FakeProgram program(value);
    CellStyle style = dynamicStyle(DynamicSlot::FontName, program);
    style.setFontName("Serif");
    EXPECT_EQ(style.effectiveFontName(state).toUtf8(), expected);
    EXPECT_EQ(style.effectiveFont(state).face(), expected);
  }
}

TEST(CellStyle, FormatsAndCursorsOfExpressions) {
  EvalState state;
  const FakeProgram mask(text(u"XX-XX"));
  const FakeProgram hand(text(u"Hand"));
  const FakeProgram unknown(text(u"paw"));
  const FakeProgram number(XValue::ofInt(9));
  EXPECT_EQ(dynamicStyle(DynamicSlot::DisplayFormat, mask).effectiveDisplayFormat(state).toUtf8(), "XX-XX");
  EXPECT_TRUE(dynamicStyle(DynamicSlot::DisplayFormat, number).effectiveDisplayFormat(state).empty());

  ViewCell view;
  view.cursor = 3;
  EXPECT_EQ(view.effectiveCursor(state), 3);
  view.setDynamic(DynamicSlot::Cursor, &hand);
  EXPECT_EQ(view.effectiveCursor(state), 9);
  HeaderCell header;
  header.cursor = 3;
  header.setDynamic(DynamicSlot::Cursor, &unknown);
  EXPECT_EQ(header.effectiveCursor(state), 0);
  header.setDynamic(DynamicSlot::Cursor, &number);
  EXPECT_EQ(header.effectiveCursor(state), 1);
}

TEST(CellStyle, AFailedRunLeavesTheStoredFields) {
  EvalState state;
  const FakeProgram failing;
  ViewCell view;
  for (std::int32_t slot = 0; slot < dynamicSlotCount; ++slot) {
    view.setDynamic(static_cast<DynamicSlot>(slot), &failing);
  }
  view.textColor = view.backColor = view.borderColor = 1;
  view.setFontSize(12);
  view.setFontStyle(font_style::bold);
  view.setFontName("Serif");
  view.displayFormat = u"XX";
  view.cursor = 5;
  EXPECT_EQ(
      view.effectiveTextColor(state) & view.effectiveBackColor(state) & view.effectiveBorderColor(state), 1u);
  EXPECT_EQ(view.effectiveFontSize(state), 12);
  EXPECT_EQ(view.effectiveFontStyle(state), font_style::bold);
  EXPECT_EQ(view.effectiveFontName(state).toUtf8(), "Serif");
  EXPECT_EQ(view.effectiveDisplayFormat(state).toUtf8(), "XX");
  EXPECT_EQ(view.effectiveCursor(state), 5);
  EXPECT_EQ(view.effectiveFont(state), view.font);
}

TEST(CellStyle, ANullProgramIsIgnored) {
  const FakeProgram program(text(u"red"));
  CellStyle style;
  style.setDynamic(DynamicSlot::TextColor, nullptr);
  EXPECT_EQ(style.dynamicFlags, 0u);
  style.setDynamic(DynamicSlot::BorderColor, &program);
  style.setDynamic(DynamicSlot::BorderColor, nullptr);
  EXPECT_EQ(style.dynamicFlags, 0x04u);
  EXPECT_EQ(style.expressions[2], &program);
  style.setDynamic(DynamicSlot::DisplayFormat, &program);
  EXPECT_EQ(style.dynamicFlags, 0x104u);
  style.clearDynamic(DynamicSlot::BorderColor);
  EXPECT_EQ(style.dynamicFlags, 0x100u);
  EXPECT_EQ(style.expressions[2], nullptr);
}

TEST(ChildSpec, Editable) {
  EvalState state;
  const std::pair<const char16_t*, bool> literals[] = {{u"true", true}, {u"False", false}, {u"false", false},
                                                       {u"no", true},   {u"", true},       {u"false ", true}};
  for (const auto& [word, expected] : literals) {
    ChildSpec child;
    child.editable = word;
    EXPECT_EQ(child.isEditable(state), expected) << XString(word).toUtf8();
  }
  const std::pair<XValue, bool> values[] = {{text(u"FALSE"), false},        {text(u"no"), true},
                                            {XValue::ofBool(false), false}, {XValue::ofBool(true), true},
                                            {XValue::ofInt(0), true},       {XValue(), true}};
  for (const auto& [value, expected] : values) {
    const FakeProgram program(value);
    ChildSpec child;
    child.editable = u"false";
    child.setDynamic(DynamicSlot::Text, &program);
    EXPECT_EQ(child.isEditable(state), expected);
  }
  const FakeProgram failing;
  ChildSpec child;
  child.editable = u"false";
  child.setDynamic(DynamicSlot::Text, &failing);
  EXPECT_FALSE(child.isEditable(state));
}

TEST(ColumnRecord, CopiesShareProgramsAndOwnTheirCells) {
  const FakeProgram program(text(u"red"));
  ColumnRecord source;
  source.child.comboItems.addTail({u"One", u"1"});
  for (std::int32_t level : {1, 2, 2}) {
    GroupCell group;
    group.level = level;
    group.textColor = static_cast<ColorRef>(source.groups.count());
    group.setDynamic(DynamicSlot::TextColor, &program);
    source.groups.addTail(group);
  }
  ColumnRecord copy;
  copy.groups.addTail({});
  copy.child.comboItems.addTail({u"Old", u"0"});
  copy = source;
  for (GroupCell& group : source.groups) group.textColor = 0x123456;
  source.child.comboItems.head()->value().text = u"changed";

  ASSERT_EQ(copy.groups.count(), 3);
  ASSERT_NE(copy.groupOfLevel(2), nullptr);
  EXPECT_EQ(copy.groupOfLevel(2)->textColor, 1u) << "of two groups of a level the first counts";
  EXPECT_EQ(copy.groupOfLevel(2)->expressions[0], &program);
  EXPECT_EQ(copy.groupOfLevel(4), nullptr);
  ASSERT_EQ(copy.child.comboItems.count(), 1);
  EXPECT_EQ(copy.child.comboItems.head()->value().text.toUtf8(), "One");
  ColumnRecord& same = copy;
  copy = same;
  EXPECT_EQ(copy.groups.count(), 3);
}

}  // namespace
}  // namespace tessera
