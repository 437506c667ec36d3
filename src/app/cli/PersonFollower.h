// Follows a run's trace on behalf of the person's screen.
#pragma once

#include "app/cli/DiagnosticRun.h"
#include "diagnostic/platform/Trace.h"

namespace wifi_profile::cli {

// Reports the current test to the run, and reports each action of the person that replaces a step
// of the script. Any thread. `run` must outlive the events.
class PersonFollower final : public Trace {
 public:
  explicit PersonFollower(DiagnosticRun& run) : run_(run) {}
  void event(std::string_view name, const Fields& fields) override;

 private:
  DiagnosticRun& run_;
};

}  // namespace wifi_profile::cli
