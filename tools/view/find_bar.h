// The bar in which a person looks for a text.

#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QWidget>
#include <optional>

#include "tools/view/cell_search.h"

namespace tessera {

// Searches between the window's events, so that the window stays alive; a hit moves the grid's focus cell.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  explicit FindBar(QWidget* parent = nullptr);

  // Borrowed; null before the grid goes. A running search ends.
  void setGrid(Tessera* grid);
  // Shows the bar with the keyboard in it.
  void open();
  // Shows the bar first when there is no text to look for.
  void find(bool backwards);
  // Ends a running search, else closes the bar; false: there was neither.
  bool giveWay();

  bool isSearching() const { return search_.has_value(); }
  QString message() const { return message_->text(); }

 Q_SIGNALS:
  void changed();
  // The person is done with the bar.
  void closed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void runSlice();
  void showHit();
  void cancel();
  void say(const QString& text);

  Tessera* grid_ = nullptr;
  QLineEdit* text_;
  QCheckBox* matchCase_;
  QLabel* message_;
  QTimer timer_;  // runs while there is a search
  std::optional<CellSearch> search_;
};

}  // namespace tessera
