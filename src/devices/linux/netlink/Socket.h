// A netlink socket whose every wait ends in time.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "ieee80211/Bytes.h"

struct nl_msg;
struct nl_sock;

namespace wifi_profile::machine {

// The bytes of a message's fixed fields, such as an ifaddrmsg; as long as those live.
template <class Fields>
ieee80211::Bytes octetsIn(const Fields& fields) {
  return {reinterpret_cast<const std::uint8_t*>(&fields), sizeof fields};
}

// A question to the kernel. `dump`: all there are, one answer each.
class Request {
 public:
  enum class Kind { one, dump };

  // Of generic netlink.
  Request(int family, int command, Kind kind);
  // Of rtnetlink, with the fixed fields that go with the type.
  Request(int type, ieee80211::Bytes fields, Kind kind);

  Request& put(int attribute, ieee80211::Bytes payload);
  Request& put(int attribute, std::uint32_t number);
  Request& put(int attribute, std::string_view text);  // a zero octet goes along
  Request& putFlag(int attribute);
  // An attribute that has one inside, with type 1 and an empty payload.
  Request& putEmptyList(int attribute);

 private:
  friend class NetlinkSocket;
  struct Deleter {
    void operator()(nl_msg* message) const;
  };
  std::unique_ptr<nl_msg, Deleter> message_;
};

// What the kernel sent.
struct Message {
  int type = 0;                       // of netlink
  int command = 0;                    // of generic netlink
  std::vector<std::uint8_t> payload;  // after the headers of netlink and of generic netlink
};

// Answers are bounded: a dump has at most kMostBytes altogether, of generic netlink also at most
// kMostMessages (a tunnel may come with thousands of routes, each of them small), and one
// that changed under way is asked for anew at most kMostRestarts times; then it counts as it came.
// Messages of others than the kernel are passed over. Not opened until it is used.
class NetlinkSocket {
 public:
  static constexpr std::size_t kMostMessages = 4096;
  static constexpr std::size_t kMostBytes = std::size_t{8} << 20U;
  static constexpr int kMostRestarts = 3;

  // `protocol`: NETLINK_GENERIC or NETLINK_ROUTE.
  explicit NetlinkSocket(int protocol) : protocol_(protocol) {}

  // 0, or errno's number: the kernel's own, ETIMEDOUT, ECANCELED, or EMSGSIZE for too much. After
  // anything but the kernel's own error, the next question has a fresh socket.
  int ask(Request& request, const Patience& patience, std::vector<Message>& answers);

  // For events: joins a multicast group, and forgets what came before.
  int listen(int group);
  // The next one of those that came since. Errors as above; ENOBUFS: some were lost.
  int nextEvent(const Patience& patience, Message& event);
  // All of them so far, without waiting. 0, or ENOBUFS: some were lost; others as above.
  int takeEvents(std::vector<Message>& events);

 private:
  struct Closer {
    void operator()(nl_sock* socket) const;
  };
  // What an answer's messages add up to.
  struct Progress {
    bool ended = false;
    bool interrupted = false;
    int error = 0;
    std::size_t bytes = 0;
  };

  int open();
  int askOnce(Request& request, const Patience& patience, std::vector<Message>& answers,
              bool& interrupted);
  // Receives what has come. 0, or errno's number: EAGAIN: nothing has.
  int receive(ieee80211::Bytes& received);
  // Waits and receives.
  int await(const Patience& patience, ieee80211::Bytes& received);
  void keepEvents(ieee80211::Bytes received);
  void take(ieee80211::Bytes received, std::uint32_t sequence, Progress& progress,
            std::vector<Message>& answers) const;

  int protocol_;
  std::unique_ptr<nl_sock, Closer> socket_;
  std::vector<std::uint8_t> buffer_;
  std::deque<Message> events_;
};

// Why an answer is missing: `subject` names it, such as "the link".
checks::Unknown unknownFor(int error, std::string_view subject);

}  // namespace wifi_profile::machine
