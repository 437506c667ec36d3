// A record of what happens between the diagnostic and its surroundings.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "platform/Interface.h"
#include "platform/Object.h"

namespace wifi_profile {

// Receives events in the order in which they happen. Any thread.
class Trace : public Interface {
 public:
  // Further fields of an event, in the order in which they are to be written; nil stands for null.
  using Fields = std::vector<std::pair<std::string_view, ObjectRef>>;

  virtual void event(std::string_view name, const Fields& fields) = 0;
};

}  // namespace wifi_profile
