// The trace: a record of the events between the diagnostic and its environment, if one is wanted.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Object.h"
#include "diagnostic/platform/Platform.h"

namespace wifi_profile {

// Receives events in the order in which they occur. Any thread.
class Trace : public Interface {
 public:
  // The other fields of an event, in output order; nil is written as null.
  using Fields = std::vector<std::pair<std::string_view, ObjectRef>>;

  virtual void event(std::string_view name, const Fields& fields) = 0;
};

// Passes an event to the installed trace. Does nothing, not even call `makeFields`, if there is
// none.
template <class MakeFields>
void traceEvent(std::string_view name, MakeFields makeFields) {
  if (const auto trace = InstalledPlatform::find(&Platform::trace))
    trace->event(name, makeFields());
}
inline void traceEvent(std::string_view name) {
  traceEvent(name, [] { return Trace::Fields(); });
}

}  // namespace wifi_profile
