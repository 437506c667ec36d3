// The progress that a run shows on standard error.
#pragma once

#include <cstdio>
#include <mutex>
#include <string>
#include <string_view>

namespace wifi_profile::cli {

// A progress bar that is redrawn on one line, with log lines above it. If standard error is not a
// terminal, it prints log lines only. If a screen uses the terminal, it keeps the log lines until
// `clear`. Text is made safe for the terminal. Any thread.
class ProgressLine {
 public:
  enum class Shows { linesAndBar, lines, linesAtTheEnd };

  // Does not close `out`.
  ProgressLine(std::FILE* out, Shows shows) : out_(out), shows_(shows) {}
  ~ProgressLine() { clear(); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  // Values of `fraction` outside 0 to 1 are clamped.
  void showProgress(double fraction);
  // The current activity, in ASCII.
  void showActivity(std::string_view what);
  void printLine(std::string_view text);
  // Erases the bar and prints lines that were kept back.
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

}  // namespace wifi_profile::cli
