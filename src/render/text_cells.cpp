#include "render/cell_painters.h"

namespace tessera {
namespace {

bool isFocusCell(const PaintContext& context, const CellJob& job) {
  const FocusModel& focus = context.model.focus;
  return focus.FocusColumn && focus.FocusRow == job.row.row && focus.FocusColumn->value().id == job.column.id;
}

void paintTextCell(const PaintContext& context, const CellJob& job, bool hasButton) {
  DrawStyle style(job.column.view);
  if (hasButton) style.rightMargin = addClamped(style.rightMargin, buttonRoom);
  drawCell({context.canvas, context.model.eval, job.ground}, style, job.rect, job.text, job.clipLeft);
}

}  // namespace

void paintPlainCell(const PaintContext& context, const CellJob& job) { paintTextCell(context, job, false); }

void paintEditCell(const PaintContext& context, const CellJob& job) {
  CellJob shown = job;
  if ((job.column.child.inputType & input_type::password) != 0) {
    context.scratch.mask.assign(job.text.size(), u'*');
    shown.text = context.scratch.mask;
  }
  const bool isPopup = job.column.child.subType != EditKind::Plain;
  paintTextCell(context, shown, isPopup && isFocusCell(context, job));
}

void paintDropCell(const PaintContext& context, const CellJob& job) {
  const bool hasButton = isFocusCell(context, job) && job.column.child.isEditable(context.model.eval);
  paintTextCell(context, job, hasButton);
}

}  // namespace tessera
