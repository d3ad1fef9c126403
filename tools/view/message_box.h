// Messages and questions in windows of their own.

#pragma once

#include <QMessageBox>
#include <initializer_list>
#include <utility>

namespace tessera {

// Texts hold names of files and what stands in them, so nothing of them is taken for markup.
void tellFault(QWidget* parent, const QString& title, const QString& text);

// The number of the answer, from 0; the last one is that of Escape.
using Answers = std::initializer_list<std::pair<QString, QMessageBox::ButtonRole>>;
int ask(QWidget* parent, const QString& title, const QString& text, const Answers& answers, int byEnter = 0);

}  // namespace tessera
