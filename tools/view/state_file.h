// Keeps a file that tells what the window shows.

#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QTimer>
#include <string>

#include "tools/view/viewer_window.h"

namespace tessera {

// One JSON object, written anew as a whole whenever it changes: whoever reads finds the old one or the new
// one. For programs that drive the window by mouse and keyboard; they see here what a person sees.
class StateFile : public QObject {
 public:
  // `window` is borrowed.
  StateFile(ViewerWindow& window, const std::string& path);

 private:
  QJsonObject describe() const;
  void describeGrid(Tessera& grid, QJsonObject& state) const;
  void update();

  ViewerWindow& window_;
  QString path_;
  QByteArray written_;
  QTimer timer_;
};

}  // namespace tessera
