// `wifi-profile-window`: the program with the window.

#include <QGuiApplication>
#include <QIcon>
#include <cstdio>
#include <cstdlib>

#include "host/ExitStatus.h"
#include "host/Program.h"
#include "screens/window/WindowScreen.h"

namespace {

using namespace wifi_profile;

// Qt ends a program that finds no display by a crash; a person gets a sentence instead.
void sayAndEnd(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type != QtCriticalMsg && type != QtFatalMsg && !qEnvironmentVariableIsSet("QT_LOGGING_RULES"))
    return;
  std::fprintf(stderr, "wifi-profile: %s\n", qPrintable(message));
  if (type == QtFatalMsg) std::_Exit(kExitUsage);
}

}  // namespace

int main(int argc, char** argv) {
  std::unique_ptr<QGuiApplication> application;
  return runProgram(
      argc, argv, Ui::window, [&]() -> std::variant<std::shared_ptr<PersonScreen>, std::string> {
        qInstallMessageHandler(sayAndEnd);
        QGuiApplication::setDesktopFileName(QStringLiteral("org.wifi_profile.WifiProfile"));
        application = std::make_unique<QGuiApplication>(argc, argv);
        QGuiApplication::setQuitOnLastWindowClosed(false);
        QGuiApplication::setWindowIcon(QIcon::fromTheme(QGuiApplication::desktopFileName()));
        return std::make_shared<WindowScreen>();
      });
}
