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

TEST(BackgroundFlags, CellsLetAnImageThroughWhileItIsThere) {
  GridConfig config = oneColumn();
  setImage(config);
  columnOf(config).summary.imageMode = stretched;
  for (const bool on : {true, false}) {
    config.background.backImage = on;
    applyBackgroundFlags(config);
    EXPECT_EQ(columnOf(config).view.imageMode, on ? blended : solid);
    EXPECT_EQ(columnOf(config).view.alphaRate, 35);
    EXPECT_EQ(columnOf(config).summary.imageMode, stretched);
    EXPECT_EQ(columnOf(config).summary.alphaRate, 35);
    EXPECT_EQ(groupOf(config).imageMode, on ? blended : solid);
    EXPECT_EQ(columnOf(config).header.imageMode, solid);
    EXPECT_EQ(columnOf(config).header.alphaRate, 20);
  }
}

TEST(BackgroundFlags, ModeOfTheImage) {
  const struct {
    bool on, loaded;
    std::int32_t align;
    bool transparent;
    std::uint32_t mode;
  } rows[] = {{true, true, align::full, false, stretched},
              {true, true, align::fullWord, false, placed},
              {true, true, align::centerCenter, true, placed | transparent},
              {false, true, align::full, true, solid},
              {true, false, align::full, true, solid}};
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

  const ColumnRecord& column = columnOf(config);
  LogFont open;
  open.setFace("Sans");
  open.lfHeight = pointsToHeight(9);
  open.lfWeight = 700;
  open.lfUnderline = 1;
  EXPECT_EQ(column.header.font, open);
  EXPECT_EQ(column.header.fontSize, 9);
  EXPECT_EQ(config.indicator.font, open);
  EXPECT_EQ(column.view.font.lfHeight, pointsToHeight(20));
  EXPECT_EQ(column.summary.font.face(), "Serif");
  EXPECT_EQ(column.summary.fontSize, 9);
  EXPECT_EQ(groupOf(config).fontStyle, font_style::italic);
  EXPECT_EQ(groupOf(config).font.lfWeight, 0);
  CellStyle style;
  applyAmbientFont(style, {.face = u"Sans", .points = 9, .weight = 600}, state);
  EXPECT_EQ(style.fontStyle, 0) << "only the bold weight is bold";
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
  style.setFontStyle(font_style::italic);
  applyAmbientFont(style, {.face = u"Sans", .points = 9}, state);
  EXPECT_EQ(style.fontStyle, font_style::italic) << "a host without a style leaves the stored one";
}

}  // namespace
}  // namespace tessera
