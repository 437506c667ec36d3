#include "app/terminal/Tty.h"

#define NCURSES_NOMACROS
#include <array>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <curses.h>
#include <fcntl.h>
#include <langinfo.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

#include "app/terminal/KeyDecoder.h"
#include "app/terminal/TerminalRestore.h"
#include "app/terminal/Terminfo.h"

namespace wifi_profile::terminal {
namespace {

constexpr const char* kPasteOn = "\x1b[?2004h";
constexpr const char* kPasteOff = "\x1b[?2004l";
// Codes that no ncurses key has.
constexpr int kPasteBegins = 0x7001;
constexpr int kPasteEnds = 0x7002;
constexpr int kEscapeDelay = 50;  // milliseconds until an Esc is a key, not the start of a sequence

enum Pair : short { kRed = 1, kYellow, kGreen, kCyan };

// Sets LC_CTYPE to a UTF-8 locale. Returns true if the environment's locale is UTF-8, so that the
// terminal probably shows more than ASCII.
bool useUtf8() {
  const bool known = std::setlocale(LC_CTYPE, "") != nullptr;
  if (known && std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0) return true;
  std::setlocale(LC_CTYPE, "C.UTF-8");
  return false;
}

// Opens the controlling terminal; null: the process has none.
FILE* openTerminal(const char* mode, int flags) {
  const int descriptor = open("/dev/tty", flags | O_CLOEXEC | O_NOCTTY);
  return descriptor < 0 ? nullptr : fdopen(descriptor, mode);
}

// ncurses installs handlers for signals that the host or this screen handles. Keeps their previous
// actions.
class KeptSignals {
 public:
  KeptSignals() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], nullptr, &kept_[i]);
  }
  ~KeptSignals() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) sigaction(kSignals[i], &kept_[i], nullptr);
  }
  KeptSignals(const KeptSignals&) = delete;
  KeptSignals& operator=(const KeptSignals&) = delete;

 private:
  static constexpr std::array kSignals{SIGINT, SIGTERM, SIGTSTP, SIGWINCH};
  std::array<struct sigaction, kSignals.size()> kept_{};
};

std::optional<Key::Name> nameOf(int code) {
  switch (code) {
    case KEY_UP:
      return Key::Name::up;
    case KEY_DOWN:
      return Key::Name::down;
    case KEY_LEFT:
      return Key::Name::left;
    case KEY_RIGHT:
      return Key::Name::right;
    case KEY_PPAGE:
      return Key::Name::pageUp;
    case KEY_NPAGE:
      return Key::Name::pageDown;
    case KEY_HOME:
      return Key::Name::home;
    case KEY_END:
      return Key::Name::end;
    case KEY_ENTER:
      return Key::Name::enter;
    case KEY_BACKSPACE:
      return Key::Name::backspace;
    case KEY_DC:
      return Key::Name::erase;
    case KEY_BTAB:
      return Key::Name::backTab;
    default:
      return std::nullopt;
  }
}

attr_t attributesOf(Style style) {
  switch (style) {
    case Style::dim:
      return WA_DIM;
    case Style::heading:
    case Style::chosen:
    case Style::notice:
    case Style::keyName:
    case Style::problem:
      return WA_BOLD;
    case Style::title:
    case Style::cursor:
      return WA_REVERSE;
    case Style::titleOn:
      return WA_REVERSE | WA_BOLD;
    case Style::titleOff:
      return WA_REVERSE | WA_DIM;
    case Style::field:
      return WA_UNDERLINE;
    default:
      return WA_NORMAL;
  }
}

short pairOf(Style style) {
  switch (style) {
    case Style::problem:
      return kRed;
    case Style::look:
    case Style::notice:
      return kYellow;
    case Style::good:
      return kGreen;
    case Style::chosen:
    case Style::bar:
      return kCyan;
    default:
      return 0;
  }
}

}  // namespace

struct Tty::State {
  // Opened separately: waiting on `in` makes it non-blocking, which must not lose output on `out`.
  FILE* in = nullptr;
  FILE* out = nullptr;
  SCREEN* screen = nullptr;
  WINDOW* keys = nullptr;  // a pad, because reading from it does not draw
  termios modes{};         // the modes before use
  bool color = false;
  bool released = false;
  bool rich = true;  // shows more than ASCII
  KeyDecoder decoder;
  std::unique_ptr<CrashGuard> guard;

  ~State() {
    if (screen) {
      delwin(keys);
      delscreen(screen);
    }
    if (in) std::fclose(in);
    if (out) std::fclose(out);
  }

  void send(std::string_view sequence) const {
    while (!sequence.empty()) {
      const ssize_t written = write(fileno(out), sequence.data(), sequence.size());
      if (written < 0 && errno != EINTR) return;
      if (written > 0) sequence.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  void arm() const { armRestore(fileno(out), modes, kPasteOff + restoringSequence(LINES)); }

  void setUp() {
    cbreak();
    noecho();
    nonl();
    keys = newpad(1, 1);
    keypad(keys, TRUE);
    nodelay(keys, TRUE);
    set_escdelay(kEscapeDelay);
    define_key("\x1b[200~", kPasteBegins);
    define_key("\x1b[201~", kPasteEnds);
    leaveok(stdscr, FALSE);
    if (color) {
      start_color();
      use_default_colors();
      const short background = -1;
      init_pair(kRed, COLOR_RED, background);
      init_pair(kYellow, COLOR_YELLOW, background);
      init_pair(kGreen, COLOR_GREEN, background);
      init_pair(kCyan, COLOR_CYAN, background);
    }
  }

  void readSize() const {
    winsize size{};
    if (ioctl(fileno(out), TIOCGWINSZ, &size) != 0 || size.ws_row == 0 || size.ws_col == 0) return;
    resizeterm(size.ws_row, size.ws_col);
  }

  // Skips a key sequence that ncurses does not know, which would otherwise be read as Esc. Returns
  // true if it skipped one.
  bool skippedUnknownSequence() const {
    const int next = wgetch(keys);
    if (next == ERR) return false;
    if (next != '[' && next != 'O') {
      ungetch(next);
      return false;
    }
    int code = wgetch(keys);
    if (code == ERR) {
      ungetch(next);
      return false;
    }
    while (next == '[' && code != ERR && (code < 0x40 || code > 0x7E)) code = wgetch(keys);
    return true;
  }
};

Tty::Tty(std::unique_ptr<State> state) : state_(std::move(state)) {}

Result<std::unique_ptr<Tty>> Tty::open(bool color) {
  auto state = std::make_unique<State>();
  const bool utf8 = useUtf8();
  state->in = openTerminal("r", O_RDONLY);
  state->out = openTerminal("w", O_WRONLY);
  if (!state->in || !state->out || tcgetattr(fileno(state->out), &state->modes) != 0) {
    return Error{Reason::failed, "cannot open /dev/tty: " + std::generic_category().message(errno),
                 "Use --ui none."};
  }
  const char* const environment = std::getenv("TERM");
  const std::string kind = environment ? environment : "";
  const Error unusable{Reason::failed, "TERM \"" + kind + "\" cannot move the cursor.",
                       "Set TERM or use --ui none."};
  winsize size{};
  ioctl(fileno(state->out), TIOCGWINSZ, &size);
  const auto sequence = restoringSequenceOf(kind, fileno(state->out), size.ws_row);
  if (!sequence) return unusable;
  // Arm the restoring before the first change of the terminal.
  state->guard = std::make_unique<CrashGuard>();
  armRestore(fileno(state->out), state->modes, kPasteOff + *sequence);
  {
    const KeptSignals kept;
    state->screen = newterm(kind.c_str(), state->out, state->in);
  }
  if (!state->screen) {
    disarmRestore();
    return unusable;
  }
  state->rich = utf8 && kind != "linux";
  state->color = color && has_colors();
  state->setUp();
  state->readSize();
  state->arm();
  state->send(kPasteOn);
  return std::unique_ptr<Tty>(new Tty(std::move(state)));
}

Tty::~Tty() { release(); }

int Tty::descriptor() const { return fileno(state_->in); }
Extent Tty::extent() const { return {.columns = COLS, .lines = LINES}; }
const Marks& Tty::marks() const { return state_->rich ? kUnicodeMarks : kAsciiMarks; }

void Tty::put(const Frame& frame) {
  if (state_->released) return;
  werase(stdscr);
  for (int line = 0; line < frame.extent().lines; ++line) {
    for (int column = 0; column < frame.extent().columns; ++column) {
      const Cell& cell = frame.at({line, column});
      if (cell.glyph.width == 0 || cell == Cell{}) continue;
      std::array<wchar_t, 2 + kMaxMarks> points{};
      for (std::size_t i = 0; i < cell.glyph.points.size(); ++i) {
        points[i] = static_cast<wchar_t>(cell.glyph.points[i]);
      }
      cchar_t put{};
      setcchar(&put, points.data(), attributesOf(cell.style),
               state_->color ? pairOf(cell.style) : short{0}, nullptr);
      mvwadd_wch(stdscr, line, column, &put);
    }
  }
  curs_set(frame.caret ? 1 : 0);
  if (frame.caret) wmove(stdscr, frame.caret->line, frame.caret->column);
  wrefresh(stdscr);
}

void Tty::repaint() {
  if (!state_->released) clearok(stdscr, TRUE);
}

std::optional<Key> Tty::nextKey() {
  for (int code = wgetch(state_->keys); code != ERR; code = wgetch(state_->keys)) {
    std::optional<Key> key;
    if (code == kPasteBegins) {
      state_->decoder.pasteBegins();
    } else if (code == kPasteEnds) {
      key = state_->decoder.pasteEnds();
    } else if (code >= KEY_MIN) {
      if (const auto name = nameOf(code)) key = state_->decoder.named(*name);
    } else if (code != 0x1B || !state_->skippedUnknownSequence()) {
      key = state_->decoder.byte(static_cast<unsigned char>(code));
    }
    if (key) return key;
  }
  return std::nullopt;
}

bool Tty::isGone() const {
  pollfd wait{.fd = descriptor(), .events = POLLIN, .revents = 0};
  if (poll(&wait, 1, 0) <= 0) return false;
  if ((wait.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) return true;
  int waiting = 0;
  return ioctl(descriptor(), FIONREAD, &waiting) != 0 || waiting == 0;
}

void Tty::updateSize() {
  if (state_->released) return;
  state_->readSize();
  state_->arm();
}

void Tty::release() {
  if (state_->released) return;
  state_->released = true;
  disarmRestore();
  state_->send(kPasteOff);
  if (!hasSecondScreen()) {
    // Clears the last line, where the shell's prompt appears.
    wmove(stdscr, LINES - 1, 0);
    wclrtoeol(stdscr);
    wrefresh(stdscr);
  }
  endwin();
}

void Tty::resume() {
  if (!state_->released) {
    reset_prog_mode();
  } else {
    state_->released = false;
    // The shell may have changed its modes.
    tcgetattr(fileno(state_->out), &state_->modes);
    def_shell_mode();
    reset_prog_mode();
    wrefresh(curscr);
    keypad(state_->keys, TRUE);  // otherwise only at the next read of a key
    state_->send(kPasteOn);
  }
  state_->readSize();
  state_->arm();
  repaint();
}

bool Tty::isReleased() const { return state_->released; }

bool Tty::isInForeground() const { return tcgetpgrp(fileno(state_->out)) == getpgrp(); }

}  // namespace wifi_profile::terminal
