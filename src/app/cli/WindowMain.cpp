// `wifi-profile-window`: the `run` command with a screen in a window, or without a screen.

#include <QGuiApplication>
#include <QIcon>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "app/cli/Console.h"
#include "app/cli/ExitStatus.h"
#include "app/cli/LinuxRunDevice.h"
#include "app/cli/Program.h"
#include "app/cli/RunCommand.h"
#include "app/window/WindowScreen.h"

namespace {

using namespace wifi_profile;
using namespace wifi_profile::cli;

// If Qt cannot reach the display, it prints many messages and aborts. This handler prints only the
// warning before the fatal message, which says why, and exits.
void sayAndEnd(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  static QString warning;
  if (type == QtWarningMsg) warning = message;
  if (type != QtCriticalMsg && type != QtFatalMsg) return;
  const QString& said = type == QtFatalMsg && !warning.isEmpty() ? warning : message;
  std::fprintf(stderr, "wifi-profile: --ui: %s\n", qPrintable(said.section(u'\n', 0, 0)));
  if (type == QtFatalMsg) std::_Exit(kExitUsage);
}

bool hasDisplay() {
  const auto places = {"WAYLAND_DISPLAY", "DISPLAY", "QT_QPA_PLATFORM"};
  return std::any_of(places.begin(), places.end(), environmentHas);
}

}  // namespace

int main(int argc, char** argv) {
  std::unique_ptr<QGuiApplication> application;
  const auto makeScreen = [&]() -> Result<std::shared_ptr<app::PersonScreen>> {
    if (!hasDisplay()) {
      return Error{.reason = Reason::failed,
                   .message =
                       "no display: neither WAYLAND_DISPLAY nor DISPLAY is set; "
                       "use --ui terminal",
                   .subject = "--ui window"};
    }
    qInstallMessageHandler(sayAndEnd);
    QGuiApplication::setDesktopFileName(QStringLiteral("org.wifi_profile.WifiProfile"));
    application = std::make_unique<QGuiApplication>(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QGuiApplication::setWindowIcon(QIcon::fromTheme(QGuiApplication::desktopFileName()));
    return std::shared_ptr<app::PersonScreen>(std::make_shared<window::WindowScreen>());
  };
  return runProgram(argc, argv, [&](RunOptions options) {
    if (!options.ui) options.ui = Ui::window;
    return runCommand(options, {Ui::window, makeScreen}, openLinuxRunDevice);
  });
}
