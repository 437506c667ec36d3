#include "app/cli/ProgressLine.h"

#include <algorithm>
#include <fmt/format.h>
#include <sys/ioctl.h>
#include <utility>

#include "runtime/SafeText.h"

namespace wifi_profile::cli {
namespace {

constexpr int kWidestBar = 30;  // characters
constexpr int kUsualColumns = 80;
constexpr std::string_view kEraseLine = "\r\x1b[K";

void put(std::FILE* out, std::string_view text) { std::fwrite(text.data(), 1, text.size(), out); }

int columnsOf(std::FILE* terminal) {
  winsize size{};
  const bool known = ioctl(fileno(terminal), TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUsualColumns;
}

// Returns the bar and activity on one line. On a narrow terminal the bar is shorter, and excess
// text is cut off.
std::string barLine(double fraction, const std::string& activity, int columns) {
  const int width = std::clamp(columns * 3 / 8, 5, kWidestBar);
  const auto filled = static_cast<int>(fraction * width);
  const std::string line = fmt::format("[{:=<{}}{:<{}}] {:3.0f} %  {}", "", filled, "",
                                       width - filled, fraction * 100, activity);
  return line.substr(0, static_cast<std::size_t>(columns - 1));
}

}  // namespace

void ProgressLine::showProgress(double fraction) {
  const MutexLock lock(mutex_);
  fraction_ = std::clamp(fraction, 0.0, 1.0);
  draw();
}

void ProgressLine::showActivity(std::string_view what) {
  const MutexLock lock(mutex_);
  activity_ = runtime::safeText(what);
  draw();
}

void ProgressLine::printLine(std::string_view text) {
  const MutexLock lock(mutex_);
  if (shows_ == Shows::linesAtTheEnd) {
    waiting_ += runtime::safeText(text) + "\n";
    return;
  }
  const bool drawAgain = isDrawn_;
  erase();
  put(out_, runtime::safeText(text) + "\n");
  if (drawAgain) draw();
  std::fflush(out_);
}

void ProgressLine::clear() {
  const MutexLock lock(mutex_);
  erase();
  put(out_, std::exchange(waiting_, {}));
  std::fflush(out_);
}

void ProgressLine::draw() {
  if (shows_ != Shows::linesAndBar) return;
  put(out_, std::string(kEraseLine) + barLine(fraction_, activity_, columnsOf(out_)));
  isDrawn_ = true;
  std::fflush(out_);
}

void ProgressLine::erase() {
  if (isDrawn_) put(out_, kEraseLine);
  isDrawn_ = false;
}

}  // namespace wifi_profile::cli
