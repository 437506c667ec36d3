// A connection to a message bus, for calls to services.
//
// It only makes calls: it listens to no signals and offers no objects. A call never starts a
// service: it goes to the unique name of the current owner of the service's name (`ownerOf`), so it
// cannot activate a service, nor reach another one that has taken the name over meanwhile.
//
// Any thread; calls by several threads wait for each other. A call ends at the caller's deadline,
// and within 50 ms of being cancelled. The first call connects; so does the next call after the
// connection was lost.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "devices/linux/Deadline.h"
#include "devices/linux/bus/BusValue.h"

namespace wifi_profile::linux::bus {

// Why a call failed.
struct BusError {
  enum class Kind {
    noBus,         // there is no bus, or it refuses this user
    noService,     // the name has no owner, or the owner disappeared before it answered
    noSuchThing,   // the service has no such object, interface, method or property
    notPermitted,  // the bus or the service refuses this user
    tookTooLong,   // the deadline passed
    cancelled,     // the caller cancelled the work
    unreadable,    // the answer exceeds 4 MiB, or is nested too deep (see readMessage)
    failed,        // the service reported an error of its own
  };
  Kind kind = Kind::failed;
  std::string name;     // the error's name on the bus, such as "org.freedesktop.DBus.Error.Failed"
  std::string message;  // the service's text: untrusted, at most 200 bytes

  bool operator==(const BusError&) const = default;
};

struct BusAnswer {
  // The return values. Texts and byte arrays longer than 4096 bytes are empty values.
  std::vector<BusValue> values;
  std::optional<BusError> error;

  bool isGood() const { return !error; }
  // Returns the first value; an empty value if there is none.
  const BusValue& first() const;
};

// A variant that holds a boolean, for setting a property.
struct BooleanVariant {
  bool value = false;
};
// An a{sv} whose values are texts.
using BusOptions = std::map<std::string, std::string>;
using BusArgument = std::variant<std::string, BooleanVariant, BusOptions>;

struct BusCall {
  std::string owner;  // a unique name, from `ownerOf`
  std::string path;   // an object path; an invalid one gives noSuchThing
  std::string interface;
  std::string method;
  std::vector<BusArgument> arguments;
};

class Bus {
 public:
  // Connections to the system bus, to the session bus, or to the bus at an address
  // ("unix:path=/..."). Without a session bus, every call gives noBus.
  static std::unique_ptr<Bus> system();
  static std::unique_ptr<Bus> session();
  static std::unique_ptr<Bus> at(std::string address);

  ~Bus();
  Bus(const Bus&) = delete;
  Bus& operator=(const Bus&) = delete;

  // Sends all calls, then waits for all answers, which takes as long as one round trip. Returns one
  // answer for each call, in the order of the calls. At most kCallsAtATime calls, because the bus
  // limits the number of outstanding answers.
  static constexpr std::size_t kCallsAtATime = 64;
  std::vector<BusAnswer> call(const std::vector<BusCall>& calls, const Deadline& deadline);
  BusAnswer call(const BusCall& one, const Deadline& deadline);

  // Returns the unique name of the owner of a service's name, as a text. noService: it has no
  // owner.
  BusAnswer ownerOf(const std::string& service, const Deadline& deadline);

 private:
  class Connection;
  explicit Bus(std::unique_ptr<Connection> connection);

  std::unique_ptr<Connection> connection_;
};

// Calls of org.freedesktop.DBus.Properties.
BusCall getProperty(std::string owner, std::string path, std::string interface, std::string name);
BusCall getProperties(std::string owner, std::string path, std::string interface);

}  // namespace wifi_profile::linux::bus
