// Puts a terminal right when there is no time for anything else.
#pragma once

#include <string_view>
#include <termios.h>

namespace wifi_profile {

// From now on a terminal has to be put right: by `sequence`, which is written to it, and by its
// modes. Main thread. What is longer than 1023 bytes is cut off.
void armRestore(int terminal, const termios& modes, std::string_view sequence);
// The terminal is right.
void disarmRestore();

// Puts the terminal right, at most once after it was armed, unless other processes have it now.
// Async-signal-safe; any thread.
void restoreTerminalNow();

// While it lives, an exception that nothing handles, a crash (SIGSEGV, SIGABRT, ...) and every
// other signal that ends a process and is not handled (SIGUSR1, SIGALRM, SIGXCPU, ...) puts the
// terminal right, and then does what it did before. Those that are ignored stay ignored. SIGINT,
// SIGTERM and SIGHUP are the host's.
class CrashGuard final {
 public:
  CrashGuard();
  CrashGuard(const CrashGuard&) = delete;
  CrashGuard& operator=(const CrashGuard&) = delete;
  ~CrashGuard();
};

}  // namespace wifi_profile
