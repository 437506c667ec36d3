// Follows a run for the person who looks at it.
#pragma once

#include "host/DiagnosticRun.h"
#include "platform/Trace.h"

namespace wifi_profile {

// Tells the run which test is under way, and what of a script a person has done in its stead. Any
// thread. `run` must outlive the events.
class PersonFollower final : public Trace {
 public:
  explicit PersonFollower(DiagnosticRun& run) : run_(run) {}
  void event(std::string_view name, const Fields& fields) override;

 private:
  DiagnosticRun& run_;
};

}  // namespace wifi_profile
