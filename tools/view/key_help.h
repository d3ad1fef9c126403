// The window with the list of keys.

#pragma once

#include <QDialog>

namespace tessera {

class KeyHelp : public QDialog {
 public:
  explicit KeyHelp(QWidget* parent);
};

}  // namespace tessera
