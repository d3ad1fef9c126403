#include "interaction/scroll_messages.h"

namespace tessera {

void ScrollController::hscroll(ScrollCode code) {
  if (!parts_.window) return;
  const GridFrame frame = parts_.frame();
  const ColumnScroll scroll{parts_.config.columns, parts_.page, parts_.focus, frame};
  switch (code) {
    case ScrollCode::LineBack:
      return moveColumns(-1);
    case ScrollCode::LineOn:
      return moveColumns(1);
    case ScrollCode::PageBack:
      return moveColumns(-scroll.PageColumns());
    case ScrollCode::PageOn:
      return moveColumns(scroll.PageColumns());
    case ScrollCode::ThumbPosition:
    case ScrollCode::ThumbTrack:
      return moveColumns(
          subClamped(parts_.window->trackingPosition(Bar::Horizontal), parts_.page.ColumnStop));
  }
}

void ScrollController::vscroll(ScrollCode code) {
  if (!parts_.window) return;
  const std::int32_t capacity = parts_.frame().rowCapacity();
  switch (code) {
    case ScrollCode::LineBack:
      return moveRows(-1);
    case ScrollCode::LineOn:
      return moveRows(1);
    case ScrollCode::PageBack:
      return moveRows(-capacity);
    case ScrollCode::PageOn:
      return moveRows(capacity);
    case ScrollCode::ThumbPosition:
    case ScrollCode::ThumbTrack:
      return moveRows(subClamped(parts_.window->trackingPosition(Bar::Vertical), parts_.page.TopOrdinal));
  }
}

void ScrollController::wheel(std::int32_t delta) {
  if (!parts_.window) return;
  const std::int32_t capacity = parts_.frame().rowCapacity();
  const std::int32_t lines = parts_.window->wheelLines();
  // A whole page is the largest unsigned number, which reads as -1.
  const std::int32_t rows = lines < 0 ? capacity : std::min(lines, capacity);
  moveRows(delta < 1 ? rows : -rows);
}

void ScrollController::moveColumns(std::int32_t steps) {
  const GridFrame frame = parts_.frame();
  ColumnScroll scroll{parts_.config.columns, parts_.page, parts_.focus, frame};
  bool moved = false;
  for (; steps > 0 && scroll.StepRight() != 0; --steps) moved = true;
  for (; steps < 0 && scroll.StepLeft() != 0; ++steps) moved = true;
  if (moved) hasMoved();
}

void ScrollController::moveRows(std::int32_t rows) {
  const std::int32_t capacity = parts_.frame().rowCapacity();
  const bool moved = rows > 0 ? parts_.page.RowsDown(parts_.rows, capacity, rows)
                              : parts_.page.RowsUp(parts_.rows, capacity, subClamped(0, rows));
  if (moved) hasMoved();
}

void ScrollController::hasMoved() {
  editors_.list().close(false);
  services_.Repaint(nullptr);
}

}  // namespace tessera
