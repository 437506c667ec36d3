// A fact that was found out, or why it was not.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace wifi_profile::checks {

// Why something is not known. The numbers are the codes of the service's errors.
enum class Reason : std::int64_t {
  notJoined = 10,       // the radio is not joined to a network
  notInRange = 11,      // no access point of that name was heard
  notTold = 12,         // the access point, driver or service does not say
  notPermitted = 13,    // the user may not ask
  notSupported = 14,    // the driver or the kernel cannot tell
  noService = 15,       // the service that knows is not running
  noHardware = 16,      // there is no such device
  radioOff = 17,        // Wi-Fi is switched off
  tookTooLong = 18,     // the deadline passed
  failed = 19,          // the system refused, for a reason of its own
  outsideNetwork = 20,  // can be found out by a member of the network only
  linkChanged = 21      // the link was lost, or belongs to another network, since it was read
};

struct Unknown {
  Reason reason = Reason::notTold;
  // A whole English sentence or two for the log: what is missing, and what would help.
  std::string sentence;

  bool operator==(const Unknown&) const = default;
};

template <class T>
class Known {
 public:
  Known() : value_(Unknown{}) {}
  Known(T value) : value_(std::move(value)) {}            // NOLINT(google-explicit-constructor)
  Known(Unknown unknown) : value_(std::move(unknown)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return std::holds_alternative<T>(value_); }
  // Only of what is known.
  const T& operator*() const { return std::get<T>(value_); }
  const T* operator->() const { return &std::get<T>(value_); }
  T& operator*() { return std::get<T>(value_); }
  T* operator->() { return &std::get<T>(value_); }
  // Only of what is not.
  const Unknown& why() const { return std::get<Unknown>(value_); }

  bool operator==(const Known&) const = default;

 private:
  std::variant<Unknown, T> value_;
};

}  // namespace wifi_profile::checks
