#include "tools/view/load_dialog.h"

#include <QCoreApplication>
#include <QLabel>

namespace tessera {

namespace {
constexpr int patience = 300;  // milliseconds
}

LoadDialog::LoadDialog(QWidget* parent, const QString& file)
    : dialog_(QString(), QCoreApplication::translate("LoadDialog", "Cancel"), 0, steps, parent) {
  auto* const label = new QLabel(QCoreApplication::translate("LoadDialog", "Reading %1").arg(file));
  label->setTextFormat(Qt::PlainText);
  dialog_.setLabel(label);
  dialog_.setWindowTitle(QCoreApplication::translate("LoadDialog", "Opening"));
  dialog_.setWindowModality(Qt::ApplicationModal);
  dialog_.setMinimumDuration(patience);
  dialog_.setMinimumWidth(360);
  dialog_.setAutoClose(false);
  dialog_.setAutoReset(false);
  dialog_.setValue(0);
}

// Without a total the bar runs to and fro.
LoadProgress LoadDialog::progress() {
  return [this](std::int64_t done, std::int64_t total) {
    const int wanted = total > 0 ? steps : 0;
    if (dialog_.maximum() != wanted) dialog_.setRange(0, wanted);
    dialog_.setValue(total > 0 ? static_cast<int>(done * steps / total) : static_cast<int>(done & 1));
    QCoreApplication::processEvents();
    return !dialog_.wasCanceled();
  };
}

}  // namespace tessera
