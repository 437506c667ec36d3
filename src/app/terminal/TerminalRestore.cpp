#include "app/terminal/TerminalRestore.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <unistd.h>

namespace wifi_profile::terminal {
namespace {

// Signals that end the process and have no other handler.
constexpr std::array kDeadly{SIGSEGV,   SIGBUS,  SIGABRT, SIGFPE,  SIGILL,  SIGQUIT,
                             SIGSYS,    SIGTRAP, SIGXCPU, SIGUSR1, SIGUSR2, SIGALRM,
                             SIGVTALRM, SIGPROF, SIGIO,   SIGPWR};

// Data for the signal handler. Written only while no terminal is armed.
struct Armed {
  std::array<char, 1024> sequence{};
  std::size_t length = 0;
  termios modes{};
};
Armed armed;
std::atomic<int> armedTerminal = -1;
static_assert(std::atomic<int>::is_always_lock_free);

std::array<struct sigaction, kDeadly.size()> actionsBefore;
std::terminate_handler terminateBefore = nullptr;

// The handler of a stack overflow needs a stack of its own.
alignas(16) std::array<char, 65536> spareStack;

bool isFault(int signal) {
  return signal == SIGSEGV || signal == SIGBUS || signal == SIGFPE || signal == SIGILL;
}

void crashed(int signal, siginfo_t* info, void* /*context*/) {
  const int error = errno;
  restoreTerminalNow();
  const auto place = std::find(kDeadly.begin(), kDeadly.end(), signal);
  sigaction(signal, &actionsBefore[static_cast<std::size_t>(place - kDeadly.begin())], nullptr);
  errno = error;
  // A fault recurs when the handler returns; a signal sent by a process does not.
  if (!isFault(signal) || info->si_code <= 0) raise(signal);
}

void terminated() {
  restoreTerminalNow();
  if (terminateBefore) terminateBefore();
  std::abort();
}

}  // namespace

void armRestore(int terminal, const termios& modes, std::string_view sequence) {
  disarmRestore();
  armed.length = std::min(sequence.size(), armed.sequence.size() - 1);
  std::copy_n(sequence.begin(), armed.length, armed.sequence.begin());
  armed.modes = modes;
  armedTerminal = terminal;
}

void disarmRestore() { armedTerminal = -1; }

void restoreTerminalNow() {
  const int terminal = armedTerminal.exchange(-1);
  if (terminal < 0 || tcgetpgrp(terminal) != getpgrp()) return;
  for (std::size_t written = 0; written < armed.length;) {
    const ssize_t more = write(terminal, armed.sequence.data() + written, armed.length - written);
    if (more <= 0 && errno != EINTR) break;
    if (more > 0) written += static_cast<std::size_t>(more);
  }
  tcsetattr(terminal, TCSANOW, &armed.modes);
}

CrashGuard::CrashGuard() {
  terminateBefore = std::set_terminate(terminated);
  stack_t stack{};
  if (sigaltstack(nullptr, &stack) == 0 && (stack.ss_flags & SS_DISABLE) != 0) {
    stack = {.ss_sp = spareStack.data(), .ss_flags = 0, .ss_size = spareStack.size()};
    sigaltstack(&stack, nullptr);
  }
  for (std::size_t i = 0; i < kDeadly.size(); ++i) {
    sigaction(kDeadly[i], nullptr, &actionsBefore[i]);
    if (actionsBefore[i].sa_handler == SIG_IGN) continue;
    struct sigaction action {};
    action.sa_sigaction = crashed;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    sigaction(kDeadly[i], &action, nullptr);
  }
}

CrashGuard::~CrashGuard() {
  std::set_terminate(terminateBefore);
  for (std::size_t i = 0; i < kDeadly.size(); ++i)
    sigaction(kDeadly[i], &actionsBefore[i], nullptr);
}

}  // namespace wifi_profile::terminal
