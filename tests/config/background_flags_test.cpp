#include "config/background_flags.h"

#include <gtest/gtest.h>

#include "config/ambient_font.h"
#include "fake_info_services.h"
#include "shared/screen.h"

namespace tessera {
namespace {

using image_mode::blended;
using image_mode::placed;
using image_mode::solid;
using image_mode::stretched;
using image_mode::transparent;

// One column with a cell of each kind.
GridConfig oneColumn() {
  GridConfig config;
  ColumnRecord column;
  column.groups.addTail({});
  config.columns.addTail(column);
  return config;
}

ColumnRecord& columnOf(GridConfig& config) { return config.columns.head()->value(); }
GroupCell& groupOf(GridConfig& config) { return columnOf(config).groups.head()->value(); }

void setImage(GridConfig& config) {
  config.background.backImage = true;
  config.background.imageHandle = std::make_shared<const Bitmap>(1, 1);
  config.background.alphaRate = 35;
}

TEST(BackgroundFlags, CellsLetAnImageThrough) {
  GridConfig config = oneColumn();
  setImage(config);
  columnOf(config).summary.imageMode = stretched;
  applyBackgroundFlags(config);
  EXPECT_EQ(columnOf(config).view.imageMode, blended);
  EXPECT_EQ(columnOf(config).view.alphaRate, 35);
  EXPECT_EQ(columnOf(config).summary.imageMode, stretched);
  EXPECT_EQ(columnOf(config).summary.alphaRate, 35);
  EXPECT_EQ(groupOf(config).imageMode, blended);
  EXPECT_EQ(groupOf(config).alphaRate, 35);
  EXPECT_EQ(columnOf(config).header.imageMode, solid);
  EXPECT_EQ(columnOf(config).header.alphaRate, 20);
  EXPECT_EQ(config.indicator.imageMode, solid);
}

TEST(BackgroundFlags, CellsAreSolidAgainWithoutTheImage) {
  GridConfig config = oneColumn();
  setImage(config);
  columnOf(config).summary.imageMode = placed | transparent;
  applyBackgroundFlags(config);
  config.background.backImage = false;
  applyBackgroundFlags(config);
  EXPECT_EQ(columnOf(config).view.imageMode, solid);
  EXPECT_EQ(columnOf(config).view.alphaRate, 35);
  EXPECT_EQ(columnOf(config).summary.imageMode, placed | transparent);
  EXPECT_EQ(groupOf(config).imageMode, solid);
  EXPECT_EQ(config.background.imageMode, solid);
}

TEST(BackgroundFlags, ModeOfTheImage) {
  const struct {
    bool on;
    bool loaded;
    std::int32_t align;
    bool transparent;
    std::uint32_t mode;
  } rows[] = {
      {true, true, align::centerCenter, false, placed},
      {true, true, align::full, false, stretched},
      {true, true, align::fullWord, false, placed},
      {true, true, align::centerCenter, true, placed | transparent},
      {true, true, align::full, true, stretched | transparent},
      {false, true, align::full, true, solid},
      {true, false, align::full, true, solid},
  };
  for (const auto& row : rows) {
    GridConfig config;
    setImage(config);
    config.background.backImage = row.on;
    if (!row.loaded) config.background.imageHandle = nullptr;
    config.background.align = row.align;
    config.background.transparent = row.transparent;
    applyBackgroundFlags(config);
    EXPECT_EQ(config.background.imageMode, row.mode);
  }
}

TEST(AmbientFont, FillsWhatIsOpenInEveryRecord) {
  GridConfig config = oneColumn();
  columnOf(config).view.setFontSize(20);
  columnOf(config).summary.setFontName("Serif");
  groupOf(config).setFontStyle(font_style::italic);
  EvalState state;
  applyAmbientFont(config, {.face = u"Sans", .points = 9, .weight = 700, .underline = true}, state);

  const LogFont& header = columnOf(config).header.font;
  EXPECT_EQ(header.lfHeight, pointsToHeight(9));
  EXPECT_EQ(header.face(), "Sans");
  EXPECT_EQ(header.lfWeight, 700);
  EXPECT_EQ(header.lfItalic, 0);
  EXPECT_EQ(header.lfUnderline, 1);
  EXPECT_EQ(columnOf(config).header.fontSize, 9);
  EXPECT_EQ(config.indicator.font, header);
  EXPECT_EQ(columnOf(config).view.font.lfHeight, pointsToHeight(20));
  EXPECT_EQ(columnOf(config).view.font.face(), "Sans");
  EXPECT_EQ(columnOf(config).summary.font.face(), "Serif");
  EXPECT_EQ(columnOf(config).summary.fontSize, 9);
  EXPECT_EQ(groupOf(config).fontStyle, font_style::italic);
  EXPECT_EQ(groupOf(config).font.lfWeight, 0);
  EXPECT_EQ(groupOf(config).fontSize, 9);
}

TEST(AmbientFont, OnlyTheBoldWeightIsBold) {
  EvalState state;
  CellStyle style;
  applyAmbientFont(style, {.face = u"Sans", .points = 9, .weight = 600}, state);
  EXPECT_EQ(style.fontStyle, 0);
}

TEST(AmbientFont, WhatAnExpressionGivesIsNotOpen) {
  EvalState state;
  const FakeProgram size(XValue::ofInt(12));
  const FakeProgram none(XValue::ofText(u"none"));
  CellStyle style;
  style.setDynamic(DynamicSlot::FontSize, &size);
  style.setDynamic(DynamicSlot::FontStyle, &none);
  applyAmbientFont(style, {.face = u"Sans", .points = 9, .weight = 700}, state);
  EXPECT_EQ(style.fontSize, 0);
  EXPECT_EQ(style.fontStyle, font_style::bold);
  EXPECT_EQ(style.font.face(), "Sans");
}

TEST(AmbientFont, AHostWithoutAStyleLeavesTheStoredOne) {
  EvalState state;
  const FakeProgram none(XValue::ofText(u"none"));
  CellStyle style;
  style.setFontStyle(font_style::italic);
  style.setDynamic(DynamicSlot::FontStyle, &none);
  applyAmbientFont(style, {.face = u"Sans", .points = 9}, state);
  EXPECT_EQ(style.fontStyle, font_style::italic);
}

}  // namespace
}  // namespace tessera
