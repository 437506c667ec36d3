// Restores a terminal when the process ends abnormally.
#pragma once

#include <string_view>
#include <termios.h>

namespace wifi_profile::terminal {

// Stores what restores the terminal: `sequence`, which is written to it, and its modes. Main
// thread. Bytes of `sequence` beyond 1023 are dropped.
void armRestore(int terminal, const termios& modes, std::string_view sequence);
// Cancels the restoring: the terminal is in its normal state.
void disarmRestore();

// Restores the terminal, at most once per `armRestore`. Does nothing if the process is not in the
// terminal's foreground. Async-signal-safe; any thread.
void restoreTerminalNow();

// During its lifetime, these events restore the terminal and then have their previous effect: an
// unhandled exception, a crash (SIGSEGV, SIGABRT, ...), and every other signal that ends the
// process and is not handled (SIGUSR1, SIGALRM, SIGXCPU, ...). Ignored signals stay ignored. The
// host handles SIGINT, SIGTERM and SIGHUP.
class CrashGuard final {
 public:
  CrashGuard();
  CrashGuard(const CrashGuard&) = delete;
  CrashGuard& operator=(const CrashGuard&) = delete;
  ~CrashGuard();
};

}  // namespace wifi_profile::terminal
