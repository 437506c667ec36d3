// The services that are called, and the messages for when one does not answer.
#pragma once

#include <string>

#include "devices/linux/bus/Bus.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::bus {

// Advice, in sentences, for when a message bus cannot be reached, and for when the bus or a service
// on it refuses this user.
struct BusRemedies {
  const char* noBus;
  const char* notPermitted;
};

struct Service {
  const char* busName;
  const char* name;    // for messages
  const char* remedy;  // advice for when it is not running, a sentence
  const BusRemedies& bus;
};

extern const Service kNetworkManager;
extern const Service kIwd;
extern const Service kSupplicant;
extern const Service kBluez;
extern const Service kPortal;

// Returns the reason and the message for an error of that service.
Error unknownFrom(const BusError& error, const Service& service);
// The same for an answer. An answer without an error counts as one of a wrong type.
Error unknownFrom(const BusAnswer& answer, const Service& service);

}  // namespace wifi_profile::linux::bus
