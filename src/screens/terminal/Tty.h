// The process's terminal: frames go out, keys come in. The only file that knows ncurses.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "screens/terminal/Key.h"
#include "screens/terminal/Marks.h"

namespace wifi_profile {

// Main thread only, but for `restoreTerminalNow`, which is armed while the terminal is in use. One
// at a time in a process. It also sets the process's `LC_CTYPE`, which the widths of characters
// need: from the environment, or to C.UTF-8 where that is no UTF-8.
class Tty final {
 public:
  // The terminal, in use; or why not: "found ..., expected ...".
  static std::variant<std::unique_ptr<Tty>, std::string> open(bool color);
  Tty(const Tty&) = delete;
  Tty& operator=(const Tty&) = delete;
  // Puts the terminal right, unless it is released.
  ~Tty();

  // To wait for keys on.
  int descriptor() const;
  Extent extent() const;
  const Marks& marks() const;

  void put(const Frame& frame);
  // Everything is put anew with the next frame.
  void repaint();

  // The next key that has come; nothing: none has. The names of keys that mean nothing here are
  // left out.
  std::optional<Key> nextKey();
  // Whether it can never have one again.
  bool isGone() const;

  // The terminal has another size.
  void resized();
  // Puts the terminal right, and takes it into use again.
  void release();
  void takeBack();
  bool isReleased() const;
  // Whether the process is the one that a person at the terminal talks to.
  bool isInForeground() const;

 private:
  struct State;
  explicit Tty(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace wifi_profile
