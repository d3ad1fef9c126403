#include "tools/view/status_line.h"

#include <QMessageBox>

namespace tessera {

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent), said_(new QLabel), errorButton_(new QToolButton), place_(new QLabel) {
  said_->setTextFormat(Qt::PlainText);
  place_->setTextFormat(Qt::PlainText);
  // A long text gives way instead of making the window wider.
  said_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  addWidget(said_, 1);
  errorButton_->setAutoRaise(true);
  errorButton_->setFocusPolicy(Qt::NoFocus);
  errorButton_->setStyleSheet("QToolButton { color: #b3261e; font-weight: bold; }");
  errorButton_->hide();
  connect(errorButton_, &QToolButton::clicked, this, &StatusLine::showErrors);
  addPermanentWidget(errorButton_);
  addPermanentWidget(place_);
}

void StatusLine::say(const QString& text) {
  if (text == said_->text()) return;
  said_->setText(text);
  said_->setToolTip(text.isEmpty() ? text : "<p>" + text.toHtmlEscaped() + "</p>");
  Q_EMIT changed();
}

void StatusLine::addError(const QString& text) {
  ++errors_[text];
  errorButton_->setText(errorCount() == 1 ? tr("1 error") : tr("%1 errors").arg(errorCount()));
  errorButton_->show();
  say(text);
}

void StatusLine::forgetErrors() {
  errors_.clear();
  errorButton_->hide();
}

void StatusLine::showErrors() {
  QStringList lines;
  for (const auto& [text, count] : errors_) {
    lines << (count == 1 ? text : tr("%1 (%2 times)").arg(text, QString::number(count)));
  }
  QMessageBox box(QMessageBox::Warning, tr("Errors"), lines.join('\n'), QMessageBox::Close, window());
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace tessera
