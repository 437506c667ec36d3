// The diagnostics log, by category and level.
#pragma once

#include <string>
#include <string_view>

#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Platform.h"

namespace wifi_profile {

enum class LogLevel { debug, info, error };

constexpr std::string_view nameOf(LogLevel level) {
  return level == LogLevel::error ? "error" : level == LogLevel::info ? "info" : "debug";
}

// The destination of log lines. Any thread.
class DiagnosticLog : public Interface {
 public:
  virtual bool isEnabled(int category, LogLevel level) const = 0;
  virtual void write(int category, LogLevel level, const std::string& text) = 0;
};

// A handle of one category of the installed log.
class DiagnosticLogHandle {
 public:
  DiagnosticLogHandle(DiagnosticLog& log, int category) : log_(log), category_(category) {}

  // Writes the text that `compose` returns. Calls `compose` only if errors are enabled.
  template <class Compose>
  void error(Compose compose) const {
    if (log_.isEnabled(category_, LogLevel::error)) {
      log_.write(category_, LogLevel::error, compose());
    }
  }

 private:
  DiagnosticLog& log_;
  int category_;
};

inline DiagnosticLogHandle DiagnosticLogHandleForCategory(int category) {
  return {*InstalledPlatform::get(&Platform::log, "the diagnostics log"), category};
}

}  // namespace wifi_profile
