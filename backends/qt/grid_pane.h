// The whole window of a grid: border, client area and scroll bars.

#pragma once

#include <QScrollBar>
#include <QWidget>
#include <array>

#include "backends/qt/grid_view.h"
#include "platform/window.h"

namespace tessera {

// A bar that comes or goes changes the client area at once, also while the window is not on the screen yet.
class GridPane : public QWidget {
 public:
  explicit GridPane(QWidget* parent);

  GridView& view() { return *view_; }
  QScrollBar& bar(Bar which) { return *bars_[static_cast<std::size_t>(which)]; }

  void setBorder(WindowBorder border);
  void showBar(Bar which, bool shown);
  // Puts everything in its place.
  void arrange();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool shown(Bar which) const { return shown_[static_cast<std::size_t>(which)]; }

  GridView* view_;
  std::array<QScrollBar*, 2> bars_;
  std::array<bool, 2> shown_{};
  WindowBorder border_ = WindowBorder::None;
};

}  // namespace tessera
