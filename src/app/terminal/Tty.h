// The process's terminal: shows frames and reads keys. Only this class and Terminfo use ncurses.
#pragma once

#include <memory>
#include <optional>

#include "app/terminal/Key.h"
#include "app/terminal/Marks.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::terminal {

// Main thread only, except `restoreTerminalNow`, which is armed while the terminal is in use. One
// instance at a time in a process. Also sets the process's `LC_CTYPE`, which character widths need:
// from the environment, or to C.UTF-8 if that is not UTF-8.
class Tty final {
 public:
  static Result<std::unique_ptr<Tty>> open(bool color);
  Tty(const Tty&) = delete;
  Tty& operator=(const Tty&) = delete;
  // Restores the terminal, unless it is released.
  ~Tty();

  // The descriptor to wait on for keys.
  int descriptor() const;
  Extent extent() const;
  const Marks& marks() const;

  void put(const Frame& frame);
  // Redraws the whole screen with the next frame.
  void repaint();

  // Returns the next available key; empty: none. Skips keys that have no meaning here.
  std::optional<Key> nextKey();
  // Returns true if no more keys can come: the terminal is gone.
  bool isGone() const;

  // Call when the terminal's size has changed.
  void updateSize();
  // `release` restores the terminal, and `resume` takes it into use again.
  void release();
  void resume();
  bool isReleased() const;
  // Returns true if the process is in the terminal's foreground.
  bool isInForeground() const;

 private:
  struct State;
  explicit Tty(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace wifi_profile::terminal
