// What a person sees on standard error while a run goes on.
#pragma once

#include <cstdio>
#include <mutex>
#include <string>
#include <string_view>

namespace wifi_profile {

// One line that a bar is drawn on, over and over, with log lines above it. Where standard error is
// no terminal, log lines only; where a screen has the terminal, they wait until it is gone. Nothing
// that is shown can act on the terminal. Any thread.
class ProgressLine {
 public:
  enum class Shows { linesAndBar, lines, linesAtTheEnd };

  // `out` is not closed.
  ProgressLine(std::FILE* out, Shows shows) : out_(out), shows_(shows) {}
  ~ProgressLine() { clear(); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  // `fraction` from 0 on; above 1 shows as the full bar.
  void showProgress(double fraction);
  // What is going on, in ASCII.
  void showActivity(std::string_view what);
  void printLine(std::string_view text);
  // Takes the bar away, and prints what has waited.
  void clear();

 private:
  void draw();
  void erase();

  std::mutex mutex_;
  std::FILE* out_;
  Shows shows_;
  std::string waiting_;  // lines
  bool isDrawn_ = false;
  double fraction_ = 0;
  std::string activity_;
};

}  // namespace wifi_profile
