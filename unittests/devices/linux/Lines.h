// A log for tests of threads.
#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "diagnostic/platform/DiagnosticLog.h"

namespace wifi_profile::linux {

// What was logged, by any thread.
class Lines final : public DiagnosticLog {
 public:
  bool isEnabled(int /*category*/, LogLevel /*level*/) const override { return true; }
  void write(int category, LogLevel level, const std::string& text) override {
    const std::lock_guard lock(mutex_);
    lines_.push_back(std::to_string(category) + " " + std::string(nameOf(level)) + " " + text);
  }
  std::vector<std::string> lines() const {
    const std::lock_guard lock(mutex_);
    return lines_;
  }

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> lines_;
};

}  // namespace wifi_profile::linux
