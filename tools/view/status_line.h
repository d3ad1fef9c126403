// The line at the bottom of the viewer: what was said last, the errors of the grid, and where the focus is.

#pragma once

#include <QLabel>
#include <QStatusBar>
#include <QToolButton>
#include <map>

namespace tessera {

class StatusLine : public QStatusBar {
  Q_OBJECT

 public:
  explicit StatusLine(QWidget* parent = nullptr);

  // Stays until something else is said.
  void say(const QString& text);
  void showPlace(const QString& text) { place_->setText(text); }
  // Says it, and keeps it for who looks later: a button tells how many different errors there were.
  void addError(const QString& text);
  void forgetErrors();

  QString said() const { return said_->text(); }
  QString place() const { return place_->text(); }
  // Different ones.
  int errorCount() const { return static_cast<int>(errors_.size()); }

 Q_SIGNALS:
  void changed();

 private:
  void showErrors();

  QLabel* said_;
  QToolButton* errorButton_;
  QLabel* place_;
  std::map<QString, int> errors_;  // and how often each came
};

}  // namespace tessera
