// A record of the events between the diagnostic and its environment.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Object.h"

namespace wifi_profile {

// Receives events in the order in which they occur. Any thread.
class Trace : public Interface {
 public:
  // The other fields of an event, in output order; nil is written as null.
  using Fields = std::vector<std::pair<std::string_view, ObjectRef>>;

  virtual void event(std::string_view name, const Fields& fields) = 0;
};

}  // namespace wifi_profile
