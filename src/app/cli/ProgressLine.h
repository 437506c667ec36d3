// The progress that a run shows on standard error.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "diagnostic/platform/Mutex.h"

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
  void draw() REQUIRES(mutex_);
  void erase() REQUIRES(mutex_);

  Mutex mutex_;
  std::FILE* const out_;
  const Shows shows_;
  std::string waiting_ GUARDED_BY(mutex_);  // lines
  bool isDrawn_ GUARDED_BY(mutex_) = false;
  double fraction_ GUARDED_BY(mutex_) = 0;
  std::string activity_ GUARDED_BY(mutex_);
};

}  // namespace wifi_profile::cli
