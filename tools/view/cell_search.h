// Looks for a text in the cells of a grid, a slice of time at a go.

#pragma once

#include <QString>
#include <QStringMatcher>
#include <chrono>
#include <cstdint>
#include <vector>

#include "control/tessera.h"

namespace tessera {

struct SearchQuery {
  QString text;
  bool matchCase = false;
  bool backwards = false;
};

// Walks row by row through the texts that the cells show, from the cell behind the focus cell (before it when
// backwards) once around to the focus cell itself. Marks, pictures and passwords show no text. Rows may come
// and go between slices.
class CellSearch {
 public:
  enum class State { Running, Found, NotFound };

  // `grid` is borrowed.
  CellSearch(Tessera& grid, const SearchQuery& query);

  // Goes on for about as long; at least one cell.
  State run(std::chrono::steady_clock::duration slice);

  // Of the hit.
  std::int32_t row() const { return row_; }
  const XString& column() const { return columns_[static_cast<std::size_t>(at_)]; }

  // The way led around an end of the rows.
  bool wrapped() const { return wrapped_; }

  std::int32_t rowsSeen() const;
  std::int32_t rowCount() const { return rows_; }

 private:
  void takeColumns();
  void takeStart();
  bool step();
  bool isHit();

  Tessera& grid_;
  QStringMatcher matcher_;
  bool backwards_;
  std::vector<XString> columns_;  // in reading order
  std::int32_t rows_ = 0;
  std::int32_t row_ = 1;
  std::int32_t at_ = -1;  // in columns_; -1: before the first
  bool wrapped_ = false;
  std::int64_t seen_ = 0;  // cells
  std::int64_t all_ = 0;   // cells to see
  XString text_;
};

}  // namespace tessera
