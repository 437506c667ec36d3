#pragma once

#include "platform/Trace.h"

namespace wifi_profile::machine {

struct NoTrace final : Trace {
  void event(std::string_view /*name*/, const Fields& /*fields*/) override {}
};

}  // namespace wifi_profile::machine
