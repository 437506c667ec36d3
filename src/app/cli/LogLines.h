// The diagnostics log of the command line: writes errors to standard error and into the trace.
#pragma once

#include "app/cli/ProgressLine.h"
#include "diagnostic/platform/DiagnosticLog.h"
#include "diagnostic/platform/Trace.h"

namespace wifi_profile::cli {

// Any thread. `line` and `trace` must outlive it.
class LogLines final : public DiagnosticLog {
 public:
  LogLines(ProgressLine& line, Trace& trace) : line_(line), trace_(trace) {}

  bool isEnabled(int /*category*/, LogLevel level) const override {
    return level == LogLevel::error;
  }
  void write(int category, LogLevel level, const std::string& text) override;

 private:
  ProgressLine& line_;
  Trace& trace_;
};

}  // namespace wifi_profile::cli
