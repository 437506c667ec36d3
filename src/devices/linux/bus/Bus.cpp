#include "devices/linux/bus/Bus.h"

#include <cerrno>
#include <functional>
#include <future>
#include <mutex>
#include <poll.h>
#include <sdbus-c++/sdbus-c++.h>
#include <system_error>

#include "devices/linux/Workers.h"
#include "devices/linux/bus/MessageReader.h"

namespace wifi_profile::linux::bus {

namespace {

using ErrorKind = BusError::Kind;
constexpr std::size_t kLongestMessage = 200;

// The end of an error's name on the bus, and the error's kind. The beginning differs from service
// to service.
struct Ending {
  std::string_view ending;
  ErrorKind kind;
};
constexpr Ending kEndings[] = {
    {"DBus.Error.ServiceUnknown", ErrorKind::noService},
    {"DBus.Error.NameHasNoOwner", ErrorKind::noService},
    // The owner disappeared before it answered; these calls have no time limit on the bus.
    {"DBus.Error.NoReply", ErrorKind::noService},
    {"DBus.Error.Disconnected", ErrorKind::noService},
    {"DBus.Error.UnknownObject", ErrorKind::noSuchThing},
    {"DBus.Error.UnknownInterface", ErrorKind::noSuchThing},
    {"DBus.Error.UnknownMethod", ErrorKind::noSuchThing},
    {"DBus.Error.UnknownProperty", ErrorKind::noSuchThing},
    {".UnknownDevice", ErrorKind::noSuchThing},
    {".UnknownConnection", ErrorKind::noSuchThing},
    {".InterfaceUnknown", ErrorKind::noSuchThing},
    {".NetworkUnknown", ErrorKind::noSuchThing},
    {".AccessDenied", ErrorKind::notPermitted},
    {".AuthFailed", ErrorKind::notPermitted},
    {".InteractiveAuthorizationRequired", ErrorKind::notPermitted},
    {".PermissionDenied", ErrorKind::notPermitted},
    {".NotAuthorized", ErrorKind::notPermitted},
};

BusAnswer failure(ErrorKind kind, std::string name = {}, std::string message = {}) {
  if (message.size() > kLongestMessage) message.resize(kLongestMessage);
  return {{}, BusError{kind, std::move(name), std::move(message)}};
}

BusAnswer failure(const sdbus::Error& error) {
  for (const Ending& known : kEndings) {
    if (error.getName().ends_with(known.ending)) {
      return failure(known.kind, error.getName(), error.getMessage());
    }
  }
  return failure(ErrorKind::failed, error.getName(), error.getMessage());
}

void append(sdbus::MethodCall& message, const BusArgument& argument) {
  if (const auto* const text = std::get_if<std::string>(&argument)) {
    message << *text;
  } else if (const auto* const boolean = std::get_if<BooleanVariant>(&argument)) {
    message << sdbus::Variant(boolean->value);
  } else {
    std::map<std::string, sdbus::Variant> options;
    for (const auto& [name, value] : std::get<BusOptions>(argument)) options.emplace(name, value);
    message << options;
  }
}

BusAnswer answerFrom(sdbus::MethodReply& reply, const sdbus::Error* error) {
  if (error) return failure(*error);
  try {
    auto values = readMessage(reply);
    return values ? BusAnswer{std::move(*values), {}} : failure(ErrorKind::unreadable);
  } catch (const sdbus::Error& damaged) {
    return failure(ErrorKind::unreadable, damaged.getName(), damaged.getMessage());
  }
}

// The calls under way. Their answers arrive while the connection is processed.
struct Pending {
  std::vector<std::optional<BusAnswer>> answers;
  std::vector<std::unique_ptr<sdbus::IProxy>> proxies;  // destroying the proxy abandons the call
  std::size_t left = 0;

  void settle(std::size_t index, BusAnswer answer) {
    if (!answers[index]) --left;
    answers[index] = std::move(answer);
  }
  void settleAll(const BusAnswer& answer) {
    for (auto& one : answers) {
      if (!one) one = answer;
    }
    left = 0;
  }
};

BusAnswer overdue(const Deadline& deadline) {
  return failure(deadline.isCancelled() ? ErrorKind::cancelled : ErrorKind::tookTooLong);
}

using Connect = std::function<std::unique_ptr<sdbus::IConnection>()>;

// Connects on a worker, because connecting blocks until the bus has answered. The caller thus waits
// until its deadline at most; the library ends the work of an abandoned worker after 25 s.
class Connecting {
 public:
  explicit Connecting(Connect connect) {
    const auto task = std::make_shared<std::packaged_task<Outcome()>>(
        [connect = std::move(connect)]() -> Outcome {
          try {
            return connect();
          } catch (const sdbus::Error& refused) {  // a copy: no two threads share an exception
            return sdbus::Error(refused.getName(), refused.getMessage());
          }
        });
    result_ = task->get_future();
    job_ = Workers::shared().run([task] { (*task)(); });
    if (!job_) throw std::system_error(EAGAIN, std::generic_category());
    Workers::shared().hasten(job_);
  }

  // True: connecting has ended.
  bool wait(const Deadline& deadline) {
    while (result_.wait_for(deadline.slice()) != std::future_status::ready) {
      if (!deadline.isOver()) continue;
      Workers::shared().abandon(job_);
      return false;
    }
    return true;
  }
  // Call it once, after the end. Throws the error of connecting.
  std::unique_ptr<sdbus::IConnection> take() {
    Outcome outcome = result_.get();
    if (const auto* const refused = std::get_if<sdbus::Error>(&outcome)) throw *refused;
    return std::get<std::unique_ptr<sdbus::IConnection>>(std::move(outcome));
  }

 private:
  using Outcome = std::variant<std::unique_ptr<sdbus::IConnection>, sdbus::Error>;
  std::future<Outcome> result_;
  Workers::JobRef job_;
};

}  // namespace

class Bus::Connection {
 public:
  explicit Connection(Connect connect) : connect_(std::move(connect)) {}

  std::vector<BusAnswer> call(const std::vector<BusCall>& calls, const Deadline& deadline) {
    std::unique_lock turn(turn_, std::defer_lock);
    // Declared after the lock, so that it is destroyed before it: abandoning calls uses the
    // connection.
    Pending pending;
    pending.answers.resize(calls.size());
    pending.left = calls.size();
    // Not a timed wait, which would not notice a cancellation.
    while (!turn.try_lock() && !deadline.isOver()) {
      sleepUntil(deadline.atMost(std::chrono::milliseconds(10)));
    }
    if (!turn.owns_lock() || deadline.isOver()) {
      pending.settleAll(overdue(deadline));
    } else {
      talk(calls, pending, deadline);
    }
    std::vector<BusAnswer> answers;
    answers.reserve(pending.answers.size());
    for (auto& answer : pending.answers) answers.push_back(std::move(*answer));
    return answers;
  }

 private:
  void talk(const std::vector<BusCall>& calls, Pending& pending, const Deadline& deadline) {
    try {
      if (!connect(deadline)) return pending.settleAll(overdue(deadline));
      for (std::size_t index = 0; index < calls.size(); ++index) {
        send(calls[index], index, pending);
      }
      pump(pending, deadline);
    } catch (const sdbus::Error& lost) {
      BusAnswer why = failure(lost);
      if (why.error->kind != ErrorKind::notPermitted) why.error->kind = ErrorKind::noBus;
      loseConnection(pending, why);
    } catch (const std::exception& exhausted) {  // no thread or memory left
      loseConnection(pending, failure(ErrorKind::noBus, {}, exhausted.what()));
    }
  }

  // Whether there is a connection, and the bus has not closed it since its last use.
  bool isConnected(const Deadline& deadline) {
    try {
      // Messages received since then are late answers that are not needed, or the end of the
      // connection.
      while (connection_ && !deadline.isOver() && connection_->processPendingRequest()) continue;
    } catch (const sdbus::Error&) {
      connection_.reset();
    }
    return connection_ != nullptr;
  }

  // False: the deadline has passed, or the work is cancelled.
  bool connect(const Deadline& deadline) {
    if (isConnected(deadline)) return true;
    if (!connecting_) connecting_.emplace(connect_);
    if (!connecting_->wait(deadline)) return false;
    auto ended = std::move(*connecting_);
    connecting_.reset();
    connection_ = ended.take();
    return true;
  }

  // Settles the calls with this answer. The next call connects again.
  void loseConnection(Pending& pending, const BusAnswer& answer) {
    pending.settleAll(answer);
    pending.proxies.clear();
    connection_.reset();
  }

  void send(const BusCall& call, std::size_t index, Pending& pending) {
    const auto answered = [&pending, index](sdbus::MethodReply& reply, const sdbus::Error* error) {
      pending.settle(index, answerFrom(reply, error));
    };
    try {
      auto proxy = sdbus::createProxy(*connection_, call.owner, call.path);
      sdbus::MethodCall message = proxy->createMethodCall(call.interface, call.method);
      for (const BusArgument& argument : call.arguments) append(message, argument);
      proxy->callMethod(message, answered, kNoLimit);
      pending.proxies.push_back(std::move(proxy));
    } catch (const sdbus::Error& refused) {
      // The path, interface or method is not valid. Any other error means that the connection is
      // lost.
      if (!refused.getName().ends_with(".InvalidArgs")) throw;
      pending.settle(index,
                     failure(ErrorKind::noSuchThing, refused.getName(), refused.getMessage()));
    }
  }

  void pump(Pending& pending, const Deadline& deadline) {
    while (pending.left > 0) {
      if (deadline.isOver()) return pending.settleAll(overdue(deadline));
      if (connection_->processPendingRequest()) continue;
      if (pending.left == 0) return;
      const auto poll = connection_->getEventLoopPollData();
      waitFor(poll.fd, poll.events, deadline);
    }
  }

  // Microseconds. Large, because `pump` checks the deadline, but small enough to add to a clock.
  static constexpr std::uint64_t kNoLimit = 24ULL * 60 * 60 * 1'000'000;

  const Connect connect_;
  std::optional<Connecting> connecting_;
  std::mutex turn_;  // held by the thread that uses the connection
  std::unique_ptr<sdbus::IConnection> connection_;
};

Bus::Bus(std::unique_ptr<Connection> connection) : connection_(std::move(connection)) {}
Bus::~Bus() = default;

std::unique_ptr<Bus> Bus::system() {
  return std::unique_ptr<Bus>(
      new Bus(std::make_unique<Connection>([] { return sdbus::createSystemBusConnection(); })));
}

std::unique_ptr<Bus> Bus::session() {
  return std::unique_ptr<Bus>(
      new Bus(std::make_unique<Connection>([] { return sdbus::createSessionBusConnection(); })));
}

std::unique_ptr<Bus> Bus::at(std::string address) {
  return std::unique_ptr<Bus>(new Bus(std::make_unique<Connection>([address = std::move(address)] {
    return sdbus::createSessionBusConnectionWithAddress(address);
  })));
}

std::vector<BusAnswer> Bus::call(const std::vector<BusCall>& calls, const Deadline& deadline) {
  return connection_->call(calls, deadline);
}

BusAnswer Bus::call(const BusCall& one, const Deadline& deadline) {
  return std::move(connection_->call({one}, deadline).front());
}

BusAnswer Bus::ownerOf(const std::string& service, const Deadline& deadline) {
  BusAnswer answer = call({"org.freedesktop.DBus",
                           "/org/freedesktop/DBus",
                           "org.freedesktop.DBus",
                           "GetNameOwner",
                           {service}},
                          deadline);
  if (answer.isGood() && !answer.first().text()) answer = failure(ErrorKind::unreadable);
  return answer;
}

const BusValue& BusAnswer::first() const {
  static const BusValue kNothing;
  return values.empty() ? kNothing : values.front();
}

BusCall getProperty(std::string owner, std::string path, std::string interface, std::string name) {
  return {std::move(owner),
          std::move(path),
          "org.freedesktop.DBus.Properties",
          "Get",
          {std::move(interface), std::move(name)}};
}

BusCall getProperties(std::string owner, std::string path, std::string interface) {
  return {std::move(owner),
          std::move(path),
          "org.freedesktop.DBus.Properties",
          "GetAll",
          {std::move(interface)}};
}

}  // namespace wifi_profile::linux::bus
