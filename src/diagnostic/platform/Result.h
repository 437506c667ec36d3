// A value, or the error that explains why there is none.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace wifi_profile {

// Why something is not known or failed. The numbers are the codes of the service's errors.
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

struct Error {
  Reason reason = Reason::notTold;
  std::string message = {};  // what failed and why, in one or two English sentences
  std::string advice = {};   // what the user can do, in one sentence; may be empty
  std::string subject = {};  // what it is about, such as a file or an interface; may be empty

  bool operator==(const Error&) const = default;
};

// Converts to true if there is a value. Default-constructed: an Error that says nothing.
template <class T>
class [[nodiscard]] Result {
 public:
  Result() : value_(Error{}) {}
  Result(T value) : value_(std::move(value)) {}      // NOLINT(google-explicit-constructor)
  Result(Error error) : value_(std::move(error)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return std::holds_alternative<T>(value_); }
  // Only if there is a value.
  const T& operator*() const& { return std::get<T>(value_); }
  T& operator*() & { return std::get<T>(value_); }
  T&& operator*() && { return std::get<T>(std::move(value_)); }
  const T* operator->() const { return &std::get<T>(value_); }
  T* operator->() { return &std::get<T>(value_); }
  // Only if there is none.
  const Error& error() const { return std::get<Error>(value_); }

  bool operator==(const Result&) const = default;

 private:
  std::variant<Error, T> value_;
};

// Success, or an error. Default-constructed: success.
template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Error error) : error_(std::move(error)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return !error_; }
  // Only if it failed.
  const Error& error() const { return *error_; }

  bool operator==(const Result&) const = default;

 private:
  std::optional<Error> error_;
};

using Status = Result<void>;

}  // namespace wifi_profile
