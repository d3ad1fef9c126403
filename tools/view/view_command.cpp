#include "tools/view/view_command.h"

#include <QApplication>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "tools/view/state_file.h"
#include "tools/view/viewer_window.h"

namespace tessera {

namespace {

constexpr int noDisplay = 2;
constexpr int badInput = 2;

bool isSet(const char* variable) {
  const char* const value = std::getenv(variable);
  return value && *value;
}

bool mayHaveDisplay() { return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM"); }

// Qt ends the process when the display does not answer: then this is the last word.
void sayFatal(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type != QtFatalMsg) return;
  std::fprintf(stderr, "tessera: the display cannot be used: %s\n",
               qPrintable(text.section('\n', 0, 0).trimmed()));
  std::_Exit(noDisplay);
}

int showWindow(const ViewOptions& options, ProgramStreams streams) {
  ViewerWindow window;
  if (!options.file.empty()) {
    const auto result = window.open(options.file);
    if (result.fault) {
      streams.err << "tessera: " << result.fault->message() << '\n';
      return badInput;
    }
    if (!result.opened) return 0;
  }
  std::optional<StateFile> state;
  if (!options.statePath.empty()) state.emplace(window, options.statePath);
  window.show();
  return QApplication::exec();
}

}  // namespace

int runView(const ViewOptions& options, ProgramStreams streams) {
  if (!mayHaveDisplay()) {
    streams.err << "tessera: there is no display to show a window on (DISPLAY is not set)\n";
    return noDisplay;
  }
  std::array<char, 8> name = {'t', 'e', 's', 's', 'e', 'r', 'a', 0};
  std::array<char*, 2> arguments = {name.data(), nullptr};
  int count = 1;
  const QtMessageHandler before = qInstallMessageHandler(sayFatal);
  QApplication application(count, arguments.data());
  qInstallMessageHandler(before);
  QApplication::setApplicationDisplayName(QString());
  return showWindow(options, streams);
}

}  // namespace tessera
