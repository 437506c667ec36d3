// The programs from outside: what links Qt, and what happens without a display.

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/cli/ExitStatus.h"
#include "app/cli/LinuxRunDevice.h"
#include "app/cli/RunCommand.h"
#include "app/window/Hand.h"
#include "app/window/WindowScreen.h"

namespace wifi_profile::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

struct Outcome {
  int status;
  std::string out;
  std::string err;
};

// Without any display.
Outcome run(const char* program, const QStringList& arguments) {
  QProcess process;
  auto environment = QProcessEnvironment::systemEnvironment();
  for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    environment.remove(QString::fromLatin1(name));
  }
  process.setProcessEnvironment(environment);
  process.start(QString::fromLocal8Bit(program), arguments);
  EXPECT_TRUE(process.waitForFinished());
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  return {process.exitCode(), process.readAllStandardOutput().toStdString(),
          process.readAllStandardError().toStdString()};
}

std::string bytesOf(const char* program) {
  QFile file(QString::fromLocal8Bit(program));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return file.readAll().toStdString();
}

// The names of the libraries that a program needs stand in it as they are.
TEST(WindowProgram, IsTheOnlyOneThatNeedsQt) {
  EXPECT_THAT(bytesOf(WIFI_PROFILE_PROGRAM), Not(HasSubstr("libQt6")));
  EXPECT_THAT(bytesOf(WIFI_PROFILE_WINDOW_PROGRAM), HasSubstr("libQt6Quick.so"));
}

TEST(WindowProgram, SaysItsVersionWithoutADisplay) {
  const Outcome window = run(WIFI_PROFILE_WINDOW_PROGRAM, {"--version"});
  EXPECT_EQ(window.status, 0);
  EXPECT_EQ(window.err, "");
  EXPECT_EQ(window.out, run(WIFI_PROFILE_PROGRAM, {"--version"}).out);
}

TEST(WindowProgram, SaysThatThereIsNoDisplay) {
  for (const char* const program : {WIFI_PROFILE_PROGRAM, WIFI_PROFILE_WINDOW_PROGRAM}) {
    const Outcome outcome = run(program, {"run", "--device", "demo", "--ui", "window"});
    EXPECT_EQ(outcome.status, 64);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, StartsWith("wifi-profile: "));
    EXPECT_THAT(outcome.err, HasSubstr("display"));
  }
}

TEST(WindowProgram, SaysThatItIsMissing) {
  const QTemporaryDir folder;
  const QString alone = folder.filePath(QStringLiteral("wifi-profile"));
  ASSERT_TRUE(QFile::copy(QString::fromLocal8Bit(WIFI_PROFILE_PROGRAM), alone));
  const Outcome outcome =
      run(alone.toLocal8Bit().constData(), {"run", "--device", "demo", "--ui", "window"});
  EXPECT_EQ(outcome.status, 64);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, HasSubstr("wifi-profile-window"));
}

// Somebody who starts the window from a menu sees nothing of standard error.
TEST(WindowProgram, ShowsWhatKeepsARunFromBeginning) {
  cli::RunOptions options;
  options.device = "/no/such/file.json";
  options.ui = cli::Ui::window;
  std::string shown;
  QTimer person;
  const auto makeScreen = [&]() -> Result<std::shared_ptr<app::PersonScreen>> {
    auto screen = std::make_shared<window::WindowScreen>();
    QObject::connect(&person, &QTimer::timeout, [weak = std::weak_ptr(screen), &shown] {
      const auto there = weak.lock();
      QQuickItem* const finding = there ? itemNamed(there->window(), "finding0") : nullptr;
      if (!finding) return;
      shown = finding->property("text").toString().toStdString();
      there->model().askToClose();
    });
    person.start(10);
    return std::shared_ptr<app::PersonScreen>(screen);
  };
  const int status =
      cli::runCommand(options, {cli::Ui::window, makeScreen}, cli::openLinuxRunDevice);
  EXPECT_EQ(status, cli::kExitScenario);
  EXPECT_THAT(shown, HasSubstr("/no/such/file.json"));
}

}  // namespace
}  // namespace wifi_profile::testing
