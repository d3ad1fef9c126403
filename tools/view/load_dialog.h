// Shows how far the reading of a file is, and lets the person stop it.

#pragma once

#include <QProgressDialog>

#include "components/load_progress.h"

namespace tessera {

// Appears when the reading takes longer than a person likes to wait without a sign. While it works the events
// of the program run; as long as it is not seen it keeps no input from the other windows.
class LoadDialog {
 public:
  LoadDialog(QWidget* parent, const QString& file);

  // Borrows the dialog.
  LoadProgress progress();
  bool wasCancelled() const { return dialog_.wasCanceled(); }

 private:
  static constexpr int steps = 1000;

  QProgressDialog dialog_;
};

}  // namespace tessera
