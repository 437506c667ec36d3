// A netlink socket. No operation waits beyond its deadline.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

#include "analysis/ieee80211/Bytes.h"
#include "devices/linux/Deadline.h"
#include "diagnostic/platform/Result.h"

struct nl_msg;
struct nl_sock;

namespace wifi_profile::linux::netlink {

// Returns the bytes of a message's fixed fields, such as an ifaddrmsg. They are valid as long as
// `fields`.
template <class Fields>
ieee80211::Bytes octetsIn(const Fields& fields) {
  return {reinterpret_cast<const std::uint8_t*>(&fields), sizeof fields};
}

// A request to the kernel. `dump`: for all objects, with one answer each.
class Request {
 public:
  enum class Kind { one, dump };

  // A request of generic netlink.
  Request(int family, int command, Kind kind);
  // A request of rtnetlink, with the fixed fields that belong to the type.
  Request(int type, ieee80211::Bytes fields, Kind kind);

  Request& put(int attribute, ieee80211::Bytes payload);
  Request& put(int attribute, std::uint32_t number);
  Request& put(int attribute, std::string_view text);  // adds a zero octet
  Request& putFlag(int attribute);
  // Adds an attribute that contains one attribute of type 1 with an empty payload.
  Request& putEmptyList(int attribute);

 private:
  friend class NetlinkSocket;
  struct Deleter {
    void operator()(nl_msg* message) const;
  };
  std::unique_ptr<nl_msg, Deleter> message_;
};

// A message from the kernel.
struct Message {
  int type = 0;                       // netlink's message type
  int command = 0;                    // generic netlink's command
  std::vector<std::uint8_t> payload;  // after the headers of netlink and of generic netlink
};

// Answers are bounded: a dump has at most kMostBytes in total and, of generic netlink, at most
// kMostMessages (a tunnel may come with thousands of small routes). A dump that changed under way
// is requested again at most kMostRestarts times, then used as it is. Messages that are not from
// the kernel are ignored. The socket is opened at its first use.
class NetlinkSocket {
 public:
  static constexpr std::size_t kMostMessages = 4096;
  static constexpr std::size_t kMostBytes = std::size_t{8} << 20U;
  static constexpr int kMostRestarts = 3;

  // `protocol`: NETLINK_GENERIC or NETLINK_ROUTE.
  explicit NetlinkSocket(int protocol) : protocol_(protocol) {}

  // Sends a request and collects the answers. Returns 0 or errno's number: the kernel's own,
  // ETIMEDOUT, ECANCELED, or EMSGSIZE for an answer that is too long. After any error but the
  // kernel's own, the next request uses a new socket.
  int ask(Request& request, const Deadline& deadline, std::vector<Message>& answers);

  // Joins a multicast group and discards earlier events.
  int listen(int group);
  // Waits for the next event. Errors as for `ask`; ENOBUFS: events were lost.
  int nextEvent(const Deadline& deadline, Message& event);
  // Returns all events so far, without waiting. 0, or ENOBUFS: events were lost; other errors as
  // for `ask`.
  int takeEvents(std::vector<Message>& events);

 private:
  struct Closer {
    void operator()(nl_sock* socket) const;
  };
  // The state of an answer that is being received.
  struct Progress {
    bool ended = false;
    bool interrupted = false;
    int error = 0;
    std::size_t bytes = 0;
  };

  int open();
  int askOnce(Request& request, const Deadline& deadline, std::vector<Message>& answers,
              bool& interrupted);
  // Receives one datagram without waiting. Returns 0 or errno's number; EAGAIN: there is none.
  int receive(ieee80211::Bytes& received);
  // Waits for a datagram and receives it.
  int await(const Deadline& deadline, ieee80211::Bytes& received);
  void keepEvents(ieee80211::Bytes received);
  void take(ieee80211::Bytes received, std::uint32_t sequence, Progress& progress,
            std::vector<Message>& answers) const;

  int protocol_;
  std::unique_ptr<nl_sock, Closer> socket_;
  std::vector<std::uint8_t> buffer_;
  std::deque<Message> events_;
};

// Explains errno's number. `subject` names what is missing, such as "the link".
Error unknownFor(int error, std::string_view subject);

}  // namespace wifi_profile::linux::netlink
