#pragma once

#include "diagnostic/platform/Trace.h"

namespace wifi_profile::linux {

struct NoTrace final : Trace {
  void event(std::string_view /*name*/, const Fields& /*fields*/) override {}
};

}  // namespace wifi_profile::linux
