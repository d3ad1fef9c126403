// A small grid that is painted on a recording canvas.

#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "expr/xexpr_program.h"
#include "geometry/grid_metrics.h"
#include "render/paint_pipeline.h"
#include "support/fake_data_set.h"
#include "support/recording_canvas.h"

namespace tessera {

// An expression that the test answers.
class FakeProgram : public XExprProgram {
 public:
  using Body = std::function<bool(EvalState&, XValue&)>;
  explicit FakeProgram(Body body) : body_(std::move(body)) {}
  const XValue* evaluate(EvalState& state) const override { return body_(state, value_) ? &value_ : nullptr; }

 private:
  Body body_;
  mutable XValue value_;
};

using Lines = std::vector<std::string>;

// Columns stand side by side, 100 wide, behind the indicator (none at first); headers are 20 and rows 20
// high.
class PaintFixture : public ::testing::Test {
 protected:
  PaintFixture();

  ColumnRecord& addColumn(const char16_t* name);
  void bind(std::vector<XString> names, const std::vector<std::vector<const char16_t*>>& rows);
  // All displayable rows on the page; bind() has them there.
  void showAll();
  void select(std::initializer_list<std::int32_t> rows);
  // Measured anew.
  PaintResult paint();
  // What a paint does from its first line that starts with `first` on.
  Lines paintFrom(const std::string& first);
  // The lines of a paint that start with `prefix`.
  Lines paintOnly(const std::string& prefix);

  GridConfig config;
  GridSettings settings;
  GridMetrics metrics;
  Size client{400, 100};
  PageView page;
  FocusModel focus;
  RowTree rows;
  DataLink link;
  ImageCache images;
  EvalState eval;
  bool editorOpen = false;
  std::shared_ptr<FakeDataSet> data;
  RecordingCanvas canvas{{400, 100}};
  PaintPipeline pipeline;
};

}  // namespace tessera
