// A connection to a message bus, for asking services.
//
// It only asks: it listens to no signals and offers nothing. No service is started by being asked:
// calls go to the unique name of whoever owns the service's name at the moment (`ownerOf`), so they
// can neither wake up a service nor reach another one that took the name over meanwhile.
//
// Any thread; calls by several threads wait for each other. A call ends at the deadline of the
// caller's patience, and within 50 ms of being called off. Connecting is done by the first call
// and, when the bus went away, by the next one.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "devices/linux/Patience.h"
#include "devices/linux/bus/BusValue.h"

namespace wifi_profile::machine {

// Why there is no answer.
struct BusError {
  enum class Kind {
    noBus,         // there is none, or it does not let us in
    noService,     // nobody owns the name, or the owner went away before it answered
    noSuchThing,   // the service has no such object, interface, method or property
    notPermitted,  // bus or service refuse this user
    tookTooLong,   // the deadline passed
    calledOff,     //
    unreadable,    // an answer of more than 4 MiB, or nested deeper than anything asked for
    failed,        // the service says so, for a reason of its own
  };
  Kind kind = Kind::failed;
  std::string name;     // the error's name on the bus, such as "org.freedesktop.DBus.Error.Failed"
  std::string message;  // in the service's words: untrusted, at most 200 bytes

  bool operator==(const BusError&) const = default;
};

struct BusAnswer {
  // What the method returned. Texts and byte arrays longer than 4096 bytes are nothing.
  std::vector<BusValue> values;
  std::optional<BusError> error;

  bool isGood() const { return !error; }
  // Nothing where there are fewer.
  const BusValue& first() const;
};

// A variant with a boolean, as the argument that sets a property.
struct BooleanVariant {
  bool value = false;
};
// a{sv} with texts only.
using BusOptions = std::map<std::string, std::string>;
using BusArgument = std::variant<std::string, BooleanVariant, BusOptions>;

struct BusCall {
  std::string owner;  // a unique name, from `ownerOf`
  std::string path;   // an object path; one that is none gives noSuchThing
  std::string interface;
  std::string method;
  std::vector<BusArgument> arguments;
};

class Bus {
 public:
  // The bus of the system, of the session, or at an address ("unix:path=/..."). Where a session has
  // none, every call gives noBus.
  static std::unique_ptr<Bus> system();
  static std::unique_ptr<Bus> session();
  static std::unique_ptr<Bus> at(std::string address);

  ~Bus();
  Bus(const Bus&) = delete;
  Bus& operator=(const Bus&) = delete;

  // Sends all calls, then waits for all answers: as many round trips as one. The answers are in the
  // order of the calls, always as many. At most kCallsAtATime calls: the bus limits how many
  // answers may be outstanding.
  static constexpr std::size_t kCallsAtATime = 64;
  std::vector<BusAnswer> call(const std::vector<BusCall>& calls, const Patience& patience);
  BusAnswer call(const BusCall& one, const Patience& patience);

  // The unique name of the owner of a service's name, as a text; noService where nobody owns it.
  BusAnswer ownerOf(const std::string& service, const Patience& patience);

 private:
  class Connection;
  explicit Bus(std::unique_ptr<Connection> connection);

  std::unique_ptr<Connection> connection_;
};

// Calls of the interface that every object with properties has.
BusCall getProperty(std::string owner, std::string path, std::string interface, std::string name);
BusCall getProperties(std::string owner, std::string path, std::string interface);

}  // namespace wifi_profile::machine
