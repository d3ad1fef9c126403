#include "tools/view/message_box.h"

#include <QAbstractButton>
#include <QPushButton>
#include <algorithm>

namespace tessera {

void tellFault(QWidget* parent, const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Critical, title, text, QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

int ask(QWidget* parent, const QString& title, const QString& text, const Answers& answers, int byEnter) {
  QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, parent);
  box.setTextFormat(Qt::PlainText);
  QList<QPushButton*> buttons;
  for (const auto& [answer, role] : answers) buttons << box.addButton(answer, role);
  box.setDefaultButton(buttons.at(byEnter));
  box.setEscapeButton(buttons.back());
  box.exec();
  const auto clicked = std::find(buttons.begin(), buttons.end(), box.clickedButton());
  return static_cast<int>(std::min<qsizetype>(clicked - buttons.begin(), buttons.size() - 1));
}

}  // namespace tessera
