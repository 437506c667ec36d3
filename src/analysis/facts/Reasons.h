// The names and sentences of the reasons why a fact is unknown.
#pragma once

#include <array>
#include <string_view>
#include <utility>

#include "diagnostic/platform/Result.h"

namespace wifi_profile::facts {

struct ReasonText {
  Reason reason{};
  std::string_view sentence;
};

// By name.
inline constexpr std::array<std::pair<std::string_view, ReasonText>, 12> kReasons{
    {{"notJoined", {Reason::notJoined, "The radio is not joined to a network."}},
     {"notInRange", {Reason::notInRange, "No access point of that name was heard."}},
     {"notTold",
      {Reason::notTold, "The access point, the driver or a service does not report it."}},
     {"notPermitted", {Reason::notPermitted, "The user may not ask."}},
     {"notSupported", {Reason::notSupported, "The driver or the kernel cannot report it."}},
     {"noService", {Reason::noService, "The service that knows it is not running."}},
     {"noHardware", {Reason::noHardware, "There is no such device."}},
     {"radioOff", {Reason::radioOff, "Wi-Fi is switched off."}},
     {"tookTooLong", {Reason::tookTooLong, "It took too long."}},
     {"failed", {Reason::failed, "The system refused."}},
     {"outsideNetwork", {Reason::outsideNetwork, "Only a member of the network can find it out."}},
     {"linkChanged", {Reason::linkChanged, "The link changed during the query."}}}};

}  // namespace wifi_profile::facts
