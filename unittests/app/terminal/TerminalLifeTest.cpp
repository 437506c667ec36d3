// What becomes of the terminal: other sizes, other kinds, and every way out.

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

#include "app/terminal/TerminalRun.h"

namespace wifi_profile::testing {
namespace {

class LifeOfATerminal : public ::testing::Test {
 protected:
  TerminalRun run{{80, 24}};
  Tmux& tmux = run.tmux;

  void startList(const std::string& environment = "") {
    run.start("pick-another", "--pick", environment);
    tmux.screenWhere([](const std::string& screen) {
      return screen.find("Werkstatt") != std::string::npos &&
             screen.find("Looking for") == std::string::npos;
    });
  }
  // The program's own process; the shell's job is nothing else.
  int process() {
    int found = -1;
    EXPECT_TRUE(comesTrue([&] {
      found = tmux.processInForeground();
      return fileContent("/proc/" + std::to_string(found) + "/comm").starts_with("wifi-profile");
    }));
    return found;
  }
  void expectSame(const std::string& screen) {
    tmux.screenWhere([&](const std::string& now) { return now == screen; });
  }
};

TEST_F(LifeOfATerminal, FollowsItsSizeAndComesBack) {
  startList();
  const std::string before = tmux.screen();
  tmux.resize({20, 6});
  const std::string small = tmux.screenWith({"[Next]"});
  EXPECT_NE(small.find("\n›   azur-gast"), std::string::npos) << small;
  tmux.resize({10, 3});
  tmux.screenWith({"Too", "small"});
  tmux.resize({80, 24});
  expectSame(before);
  tmux.press({"q", "Left", "Enter"});
  run.status();
  run.expectTerminalAsBefore();
}

TEST_F(LifeOfATerminal, FollowsItsSizeWhileTestsRun) {
  run.start("demo", "");
  tmux.screenWith({"tests done"});
  tmux.resize({20, 6});
  tmux.screenWhere([](const std::string& screen) {
    return screen.find("Checking Wi-Fi.\n") != std::string::npos ||
           screen.find(" Report\n") != std::string::npos;
  });
  tmux.resize({80, 24});
  tmux.screenWith({" Report\n", "PgUp PgDn Page"});
  tmux.press({"q"});
  EXPECT_EQ(run.status(), 0);
}

TEST_F(LifeOfATerminal, GoesToTheShellWhileStoppedAndComesBack) {
  startList();
  tmux.press({"Down"});
  const std::string before = tmux.screenWith({"›   Café Linde"});
  tmux.press({"C-z"});
  tmux.screenWith({"Stopped"});
  EXPECT_NE(tmux.output("echo  right-$((40 + 2))").find("right-42\n"), std::string::npos);
  tmux.resize({60, 20});
  tmux.enter("clear; fg; echo ended-with-$?");
  const std::string narrower = tmux.screenWith({"›   Café Linde", "[ Next ]"});
  EXPECT_EQ(narrower.find("Stopped"), std::string::npos) << narrower;
  tmux.resize({80, 24});
  expectSame(before);
  tmux.press({"Down"});
  tmux.screenWith({"›   Nordlicht"});
  tmux.press({"q", "Left", "Enter"});
  run.status();
  run.expectTerminalAsBefore();
}

TEST_F(LifeOfATerminal, LeavesTheShellAloneInTheBackground) {
  startList();
  tmux.press({"C-z"});
  tmux.screenWith({"Stopped"});
  tmux.enter("bg; clear");
  EXPECT_NE(tmux.output("echo  right-$((40 + 2))").find("right-42\n"), std::string::npos);
  tmux.enter("clear; fg; echo ended-with-$?");
  tmux.screenWith({"›   azur-gast", "[ Next ]"});
  tmux.press({"q", "Left", "Enter"});
  run.status();
  run.expectTerminalAsBefore();
}

TEST_F(LifeOfATerminal, IsRestoredWhenTheProgramIsKilledWhileStopped) {
  startList();
  tmux.press({"C-z"});
  tmux.screenWith({"Stopped"});
  tmux.enter("clear; kill %1; wait %1; echo waited-$((40 + 2))");
  tmux.screenWith({"waited-42"});
  tmux.enter("");  // the shell says what has become of its job
  run.expectTerminalAsBefore();
}

// A sanitizer's own answer to these signals is another status.
constexpr const char* kWithoutSanitizers =
    "ASAN_OPTIONS=handle_segv=0:handle_sigbus=0:handle_sigfpe=0:handle_sigill=0 "
    "TSAN_OPTIONS=handle_segv=0:handle_sigbus=0:handle_sigfpe=0:handle_sigill=0";

struct Killed {
  int signal;
  int status;
};

class EndByASignal : public LifeOfATerminal, public ::testing::WithParamInterface<Killed> {};

TEST_P(EndByASignal, RestoresTheTerminal) {
  startList(kWithoutSanitizers);
  ASSERT_EQ(::kill(process(), GetParam().signal), 0);
  EXPECT_EQ(run.status(), GetParam().status);
  run.expectTerminalAsBefore();
}

TEST_P(EndByASignal, RestoresATerminalWithoutASecondScreen) {
  startList(std::string("TERM=linux ") + kWithoutSanitizers);
  ASSERT_EQ(::kill(process(), GetParam().signal), 0);
  EXPECT_EQ(run.status(), GetParam().status);
  run.expectTerminalAsBefore();
}

INSTANTIATE_TEST_SUITE_P(
    Signal, EndByASignal,
    ::testing::Values(Killed{SIGINT, 130}, Killed{SIGTERM, 130}, Killed{SIGHUP, 130},
                      Killed{SIGQUIT, 128 + SIGQUIT}, Killed{SIGSEGV, 128 + SIGSEGV},
                      Killed{SIGABRT, 128 + SIGABRT}, Killed{SIGBUS, 128 + SIGBUS},
                      Killed{SIGFPE, 128 + SIGFPE}, Killed{SIGILL, 128 + SIGILL},
                      Killed{SIGUSR1, 128 + SIGUSR1}, Killed{SIGUSR2, 128 + SIGUSR2},
                      Killed{SIGALRM, 128 + SIGALRM}, Killed{SIGXCPU, 128 + SIGXCPU}),
    [](const auto& killed) { return std::string("SIG") + sigabbrev_np(killed.param.signal); });

TEST_F(LifeOfATerminal, IsRestoredWheneverTheProgramIsToldToEndWhileItStarts) {
  for (int wait = 0; wait < 100; wait += 5) {
    run.start("pick-another", "--pick");
    const int program = process();
    std::this_thread::sleep_for(std::chrono::milliseconds(wait));
    ASSERT_EQ(::kill(program, SIGTERM), 0);
    EXPECT_THAT(run.status(), ::testing::AnyOf(130, 128 + SIGTERM)) << wait;
    run.expectTerminalAsBefore();
  }
}

TEST_F(LifeOfATerminal, GoesToTheShellWhenTheProgramIsStoppedRightAfterItsFirstChange) {
  for (int i = 0; i < 5; ++i) {
    run.start("pick-another", "--pick");
    const int program = process();
    const int terminal =
        open(("/proc/" + std::to_string(program) + "/fd/0").c_str(), O_RDONLY | O_NOCTTY);
    EXPECT_TRUE(comesTrue([terminal] {
      termios modes{};
      for (int look = 0; look < 10'000; ++look) {
        tcgetattr(terminal, &modes);
        if ((modes.c_lflag & ECHO) == 0) return true;
      }
      return false;
    }));
    ASSERT_EQ(::kill(program, SIGTSTP), 0);
    close(terminal);
    tmux.screenWith({"Stopped"});
    run.expectTerminalAsBefore();
    tmux.enter("clear; fg; echo ended-with-$?");
    tmux.screenWith({"Werkstatt"});
    tmux.press({"q", "Left", "Enter"});
    run.status();
    run.expectTerminalAsBefore();
  }
}

TEST_F(LifeOfATerminal, IsRestoredAtCtrlC) {
  startList();
  tmux.press({"C-c"});
  EXPECT_EQ(run.status(), 130);
  run.expectTerminalAsBefore();
}

TEST_F(LifeOfATerminal, IsRestoredAtASecondCtrlCThatEndsAtOnce) {
  run.start("demo", "");
  tmux.screenWith({"tests done"});
  tmux.press({"C-c", "C-c"});
  EXPECT_EQ(run.status(), 130);
  run.expectTerminalAsBefore();
}

TEST_F(LifeOfATerminal, AsksBeforeItStops) {
  ScreenBook book(tmux, "stop", {80, 24});
  startList();
  tmux.press({"q"});
  book.add("question", tmux.screenWith({"Stop the diagnostic?", "[>Continue<]"}));
  tmux.press({"Enter"});
  book.add("continued", tmux.screenWhere([](const std::string& screen) {
    return screen.find("Stop the") == std::string::npos;
  }));
  tmux.press({"?"});
  book.add("help", tmux.screenWith({" Keys"}));
  tmux.press({"Escape"});
  tmux.screenWhere(
      [](const std::string& screen) { return screen.find(" Keys") == std::string::npos; });
  tmux.press({"q", "Left", "Enter"});
  EXPECT_GT(run.status(), 7);
  EXPECT_EQ(fileContent(run.record()), "");
  run.expectTerminalAsBefore();
}

TEST_F(LifeOfATerminal, StopsWhileTestsRun) {
  run.start("demo", "");
  tmux.screenWith({"tests done"});
  tmux.press({"q"});
  tmux.screenWith({"Stop the diagnostic?"});
  tmux.press({"Left", "Enter"});
  EXPECT_GT(run.status(), 7);
  run.expectTerminalAsBefore();
}

TEST_F(LifeOfATerminal, EndsTheProgramWhenItGoes) {
  startList();
  const int program = process();
  tmux.kill();
  EXPECT_TRUE(comesTrue([&] { return ::kill(program, 0) != 0; }));
}

TEST_F(LifeOfATerminal, HasNoColoursWhereNoneAreWanted) {
  startList("NO_COLOR=1");
  EXPECT_EQ(tmux.screenWithColours().find("\x1b[36m"), std::string::npos);
  tmux.press({"C-c"});
  run.status();
  startList();
  EXPECT_NE(tmux.screenWithColours().find("[36m"), std::string::npos) << tmux.screenWithColours();
  tmux.press({"C-c"});
  run.status();
}

class KindOfTerminal : public LifeOfATerminal, public ::testing::WithParamInterface<const char*> {};

TEST_P(KindOfTerminal, ShowsTheListAndTheReport) {
  ScreenBook book(tmux, std::string("term-") + GetParam(), {80, 24});
  startList(std::string("TERM=") + GetParam());
  book.add("list", tmux.screen());
  tmux.press({"Down", "Enter"});
  book.add("chosen", tmux.screenWith({" Café Linde\n\n"}));
  tmux.press({"n"});
  book.add("report", tmux.screenWith({" Report\n", "Enter Explain"}));
  tmux.press({"q"});
  EXPECT_EQ(run.status(), 0);
  run.expectTerminalAsBefore();
}

INSTANTIATE_TEST_SUITE_P(Term, KindOfTerminal,
                         ::testing::Values("linux", "xterm-256color", "tmux-256color", "screen",
                                           "vt100"),
                         [](const auto& kind) {
                           std::string name = kind.param;
                           std::erase(name, '-');
                           return name;
                         });

TEST_F(LifeOfATerminal, ShowsPlainSignsWhereTheLocaleIsNotOfUtf8) {
  startList("LC_ALL=C");
  const std::string seen = tmux.screen();
  EXPECT_NE(seen.find("  * Zuhause\n"), std::string::npos) << seen;
  EXPECT_NE(seen.find(">   azur-gast\n    Café Linde\n"), std::string::npos) << seen;
  tmux.press({"C-c"});
  run.status();
}

TEST_F(LifeOfATerminal, IsNotUsedWhereItsCursorCannotBeMoved) {
  run.start("pick-another", "--pick", "TERM=dumb");
  EXPECT_EQ(run.status(), 64);
  EXPECT_NE(run.messages().find("TERM \"dumb\" cannot move the cursor"), std::string::npos)
      << run.messages();
}

TEST_F(LifeOfATerminal, ShowsNamesAsTheyAreWithoutObeyingThem) {
  startList();
  tmux.press({"End", "Enter"});
  tmux.screenWith({"( Done )"});
  tmux.paste("茶室 é👍 مقهى");
  tmux.screenWith({"茶室 é👍 مقهى", "[ Done ]"});
  tmux.press({"BSpace", "Left", "C-w"});
  tmux.screenWith({"茶室 é👍 ه"});
  tmux.press({"Home"});
  tmux.type("abcdefghijklmnopqrstuvwxyz0123456789");
  tmux.screenWith({"0123456789"});
  tmux.press({"End", "Enter"});
  tmux.screenWith({"✓ abcdefghijklmnopqrstuvwxyz0123456789茶室 é👍 ه"});
  tmux.press({"C-c"});
  run.status();
}

}  // namespace
}  // namespace wifi_profile::testing
