// The services that are asked, and what people are told when one does not answer.
#pragma once

#include <string>

#include "checks/Known.h"
#include "devices/linux/bus/Bus.h"

namespace wifi_profile::machine {

// What to do when a message bus cannot be reached, and when it, or a service on it, does not let
// this user ask: sentences.
struct BusRemedies {
  const char* noBus;
  const char* notPermitted;
};

struct Service {
  const char* busName;
  const char* name;    // as people call it
  const char* remedy;  // a sentence: what to do when it is not running
  const BusRemedies& bus;
};

extern const Service kNetworkManager;
extern const Service kIwd;
extern const Service kSupplicant;
extern const Service kBluez;
extern const Service kPortal;

// The reason and the sentence for an error of that service.
checks::Unknown unknownFrom(const BusError& error, const Service& service);
// The same for an answer; one without an error is taken as one of a wrong type.
checks::Unknown unknownFrom(const BusAnswer& answer, const Service& service);

}  // namespace wifi_profile::machine
