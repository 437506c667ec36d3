// A fact that is known, or the reason why it is not.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace wifi_profile::facts {

// Why a fact is unknown. The numbers are the codes of the service's errors.
enum class Reason : std::int64_t {
  notJoined = 10,       // the radio is not joined to a network
  notInRange = 11,      // no access point of that name was received
  notTold = 12,         // the access point, driver or service does not report it
  notPermitted = 13,    // the user lacks the permission
  notSupported = 14,    // the driver or the kernel cannot report it
  noService = 15,       // the service that provides it is not running
  noHardware = 16,      // there is no such device
  radioOff = 17,        // Wi-Fi is switched off
  tookTooLong = 18,     // the deadline passed
  failed = 19,          // the system refused, for another reason
  outsideNetwork = 20,  // only a member of the network can determine it
  linkChanged = 21      // the link was lost or changed to another network after it was read
};

struct Unknown {
  Reason reason = Reason::notTold;
  // One or two English sentences for the log: what is missing, and what would help.
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
  // Only if the value is known.
  const T& operator*() const { return std::get<T>(value_); }
  const T* operator->() const { return &std::get<T>(value_); }
  T& operator*() { return std::get<T>(value_); }
  T* operator->() { return &std::get<T>(value_); }
  // Only if the value is unknown.
  const Unknown& why() const { return std::get<Unknown>(value_); }

  bool operator==(const Known&) const = default;

 private:
  std::variant<Unknown, T> value_;
};

}  // namespace wifi_profile::facts
