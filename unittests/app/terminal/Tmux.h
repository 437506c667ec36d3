// A terminal as a person has it: a shell in a tmux of its own.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/terminal/Frame.h"

namespace wifi_profile::testing {

// One private server with one pane, in which a shell waits at "$ ". Killed at the end. Every wait
// has a deadline; one that is missed fails the test, with the screen.
class Tmux {
 public:
  explicit Tmux(terminal::Extent extent);
  Tmux(const Tmux&) = delete;
  Tmux& operator=(const Tmux&) = delete;
  ~Tmux();

  // A line for the shell.
  void enter(const std::string& commandLine);
  // Keys by tmux's names: "Enter", "Down", "C-u", "x".
  void press(const std::vector<std::string>& keys);
  // Characters, all at once.
  void type(const std::string& text);
  // As a terminal pastes.
  void paste(const std::string& text);
  void resize(terminal::Extent extent);
  // The terminal goes, with its shell.
  void kill();

  // The screen as it is now; its lines without blanks at their ends.
  std::string screen() const;
  // The same, with the sequences of its colours.
  std::string screenWithColours() const;
  // Waits for a screen with all of these texts, and returns it.
  std::string screenWith(const std::vector<std::string>& texts) const;
  std::string screenWhere(const std::function<bool(const std::string&)>& isRight) const;
  // Waits until the shell has its prompt again, and runs `commandLine` in it: its output.
  std::string output(const std::string& commandLine);

  // Whether a program's second screen covers the shell's.
  bool showsSecondScreen() const;

  // The process that the shell has in the foreground; -1: none but itself.
  int processInForeground() const;

 private:
  std::string tmux(const std::vector<std::string>& arguments) const;

  const std::string socket_;
  int outputs_ = 0;
};

// Waits for a condition, at most as long as a wait of `Tmux`. Whether it came.
bool comesTrue(const std::function<bool()>& condition);

// Whole screens of one test, beside those that are kept in unittests/golden/screens/NAME-80x24.txt.
// Written anew where WIFI_PROFILE_WRITE_GOLDEN is set. Compared at the end.
class ScreenBook {
 public:
  ScreenBook(const Tmux& tmux, const std::string& name, terminal::Extent extent);
  ScreenBook(const ScreenBook&) = delete;
  ScreenBook& operator=(const ScreenBook&) = delete;
  ~ScreenBook();

  // `screen` is as it was seen; it may still be on its way to what is kept, and is waited for.
  void add(const std::string& caption, const std::string& screen);

 private:
  const Tmux& tmux_;
  const std::string path_;
  const bool writes_;
  const std::string kept_;
  std::string pages_;
};

}  // namespace wifi_profile::testing
