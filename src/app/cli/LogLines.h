// The diagnostics log of the command line: writes errors to standard error and into the trace.
#pragma once

#include "app/cli/ProgressLine.h"
#include "diagnostic/platform/DiagnosticLog.h"

namespace wifi_profile::cli {

// Any thread. `line` must outlive it.
class LogLines final : public DiagnosticLog {
 public:
  explicit LogLines(ProgressLine& line) : line_(line) {}

  bool isEnabled(int /*category*/, LogLevel level) const override {
    return level == LogLevel::error;
  }
  void write(int category, LogLevel level, const std::string& text) override;

 private:
  ProgressLine& line_;
};

}  // namespace wifi_profile::cli
