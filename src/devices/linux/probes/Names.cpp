#include "devices/linux/probes/Names.h"

#include <algorithm>
#include <ares.h>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstring>
#include <map>
#include <memory>
#include <netdb.h>
#include <poll.h>
#include <set>
#include <unistd.h>

#include "devices/linux/probes/Sockets.h"

namespace wifi_profile::linux::probes {
namespace {

constexpr int kTries = 2;
constexpr std::size_t kMostServers = 4;
constexpr std::size_t kMostAddresses = 16;
constexpr std::chrono::milliseconds kInAll{8000};
constexpr std::chrono::milliseconds kForTheOther{300};  // wait for the other IP version's addresses

bool isAresReady() {
  static const bool kReady = ares_library_init(ARES_LIB_INIT_ALL) == ARES_SUCCESS;
  return kReady;
}

// Returns the servers in the library's notation. Omits zones, because the socket is bound to the
// interface.
std::string listOf(const std::vector<std::string>& servers) {
  std::string list;
  std::size_t count = 0;
  for (std::string server : servers) {
    if (const std::size_t zone = server.find('%'); zone != std::string::npos) {
      const std::size_t end = server.find(']', zone);
      server.erase(zone, end == std::string::npos ? end : end - zone);
    }
    const bool numeric =
        server.find_first_not_of("0123456789abcdefABCDEF.:[]") == std::string::npos;
    if (server.empty() || !numeric || ++count > kMostServers) continue;
    list += (list.empty() ? "" : ",") + server;
  }
  return list;
}

std::string problemOf(int status) {
  switch (status) {
    case ARES_SUCCESS:
    case ARES_ENODATA:
      return "no address of this name";
    case ARES_ENOTFOUND:
      return "no such name";
    case ARES_ETIMEOUT:
    case ARES_ECANCELLED:
    case ARES_EDESTRUCTION:
      return "timed out";
    case ARES_ECONNREFUSED:
    case ARES_EREFUSED:
      return "refused";
    case ARES_EBADRESP:
    case ARES_EFORMERR:
      return "malformed answer";
    case ARES_EBADNAME:
      return "malformed name";
    default:
      return "server failed";
  }
}

// The query for the addresses of one IP version.
struct Query {
  int family;
  int status = ARES_ETIMEOUT;
  bool done = false;
  std::vector<std::string> addresses = {};
};

std::string numericOf(const sockaddr* address, socklen_t size) {
  std::array<char, NI_MAXHOST> text{};
  if (getnameinfo(address, size, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST) != 0)
    return {};
  return text.data();
}

void take(void* argument, int status, int /*timeouts*/, ares_addrinfo* found) {
  auto& query = *static_cast<Query*>(argument);
  query.status = status;
  query.done = true;
  if (found == nullptr) return;
  for (const ares_addrinfo_node* node = found->nodes; node != nullptr; node = node->ai_next) {
    if (query.addresses.size() == kMostAddresses / 2) break;
    // A server may add addresses of the other IP version.
    if (node->ai_family != query.family) continue;
    std::string text = numericOf(node->ai_addr, node->ai_addrlen);
    if (!text.empty()) query.addresses.push_back(std::move(text));
  }
  ares_freeaddrinfo(found);
}

bool isOfThisMachine(const ares_addr_port_node& server, const std::vector<Address>& own) {
  std::array<char, INET6_ADDRSTRLEN> text{};
  inet_ntop(server.family, &server.addr, text.data(), text.size());
  return isHere(text.data(), own);
}

std::vector<ares_addr_port_node> serversOf(ares_channel channel) {
  ares_addr_port_node* first = nullptr;
  if (ares_get_servers_ports(channel, &first) != ARES_SUCCESS) return {};
  const std::unique_ptr<ares_addr_port_node, decltype(&ares_free_data)> owned(first,
                                                                              ares_free_data);
  std::vector<ares_addr_port_node> servers;
  for (const auto* server = first; server != nullptr; server = server->next) {
    servers.push_back(*server);
  }
  return servers;
}

// Sets the servers, each for kTries rounds. The library doubles its timeout in every round of its
// own, so it makes one round, over a list that names each server kTries times.
void setServers(ares_channel channel, const std::vector<ares_addr_port_node>& servers) {
  std::vector<ares_addr_port_node> rounds;
  for (int i = 0; i < kTries; ++i) rounds.insert(rounds.end(), servers.begin(), servers.end());
  for (std::size_t i = 0; i < rounds.size(); ++i) {
    rounds[i].next = i + 1 < rounds.size() ? &rounds[i + 1] : nullptr;
  }
  ares_set_servers_ports(channel, rounds.empty() ? nullptr : rounds.data());
}

class Resolver {
 public:
  Resolver(const Route& route, const Deadline& deadline) : route_(route), deadline_(deadline) {
    std::array<char, 2> lookups{"b"};  // name servers only
    ares_options options{};
    options.flags = ARES_FLAG_NOSEARCH | ARES_FLAG_NOALIASES;
    options.timeout = static_cast<int>(route.nameTryTime.count());
    options.tries = 1;
    options.lookups = lookups.data();
    options.sock_state_cb = [](void* self, ares_socket_t socket, int readable, int writable) {
      auto& sockets = static_cast<Resolver*>(self)->sockets_;
      const int events = (readable != 0 ? POLLIN : 0) | (writable != 0 ? POLLOUT : 0);
      if (events == 0) {
        sockets.erase(socket);
      } else {
        sockets[socket] = static_cast<short>(events);
      }
    };
    options.sock_state_cb_data = this;
    // The library cannot bind its sockets to an interface, and reads for as long as data arrives,
    // so these functions replace its own.
    static constexpr ares_socket_functions kSockets{openSocketFor, closeSocket, connectSocket,
                                                    receive, sendParts};
    const int mask = ARES_OPT_FLAGS | ARES_OPT_TIMEOUTMS | ARES_OPT_TRIES | ARES_OPT_LOOKUPS |
                     ARES_OPT_SOCK_STATE_CB;
    if (!isAresReady() || ares_init_options(&channel_, &options, mask) != ARES_SUCCESS) {
      channel_ = nullptr;
      return;
    }
    ares_set_socket_functions(channel_, &kSockets, this);
    const std::string list = route.nameServers ? listOf(*route.nameServers) : "";
    hasServers_ =
        !route.nameServers ||
        (!list.empty() && ares_set_servers_ports_csv(channel_, list.c_str()) == ARES_SUCCESS);
    auto servers = serversOf(channel_);
    // A resolver on this machine cannot be reached through an interface, and forwards to the link's
    // servers by itself. It is left out if there are other servers.
    const auto own = ownAddresses().value_or(std::vector<Address>{});
    const auto here = [&own](const auto& server) { return isOfThisMachine(server, own); };
    if (!route.interface.empty() && !route.asksAsSystem && !std::ranges::all_of(servers, here)) {
      std::erase_if(servers, here);
      bound_ = true;
    }
    setServers(channel_, servers);
  }
  ~Resolver() {
    if (channel_ != nullptr) ares_destroy(channel_);  // calls `take` for unfinished queries
  }
  Resolver(const Resolver&) = delete;
  Resolver& operator=(const Resolver&) = delete;

  bool isUsable() const { return channel_ != nullptr; }
  bool hasServers() const { return hasServers_; }

  // Whether a socket could not be opened because this machine has no more descriptors or memory.
  bool isExhausted() const { return exhausted_; }

  void ask(const std::string& name) {
    for (Query& query : queries_) {
      ares_addrinfo_hints hints{};
      hints.ai_flags = ARES_AI_NOSORT;
      hints.ai_family = query.family;
      hints.ai_socktype = SOCK_STREAM;
      ares_getaddrinfo(channel_, name.c_str(), nullptr, &hints, take, &query);
    }
    Deadline left = deadline_;
    bool oneHasAddresses = false;
    while (std::any_of(queries_.begin(), queries_.end(), [](const Query& q) { return !q.done; })) {
      if (left.isOver()) break;
      process(left);
      if (oneHasAddresses || addresses().empty()) continue;
      oneHasAddresses = true;
      left = left.atMost(kForTheOther);
    }
  }

  std::vector<std::string> addresses() const {
    std::vector<std::string> all = queries_[0].addresses;
    all.insert(all.end(), queries_[1].addresses.begin(), queries_[1].addresses.end());
    return all;
  }

  std::string problem() const {
    // A missing IPv4 address says less than the result of the other query.
    const int status = queries_[0].status == ARES_ENODATA ? queries_[1].status : queries_[0].status;
    // The library reports any server without a usable answer as one that refused.
    return problemOf(status == ARES_ECONNREFUSED && failure_ != 0 ? failure_ : status);
  }

 private:
  static ares_socket_t openSocketFor(int family, int type, int protocol, void* self) {
    auto& resolver = *static_cast<Resolver*>(self);
    Descriptor socket =
        openSocket(family, type, protocol, resolver.bound_ ? resolver.route_.interface : "");
    if (!socket && isExhaustion(errno)) resolver.exhausted_ = true;
    if (type == SOCK_DGRAM && socket) resolver.datagrams_.insert(socket.number());
    return socket.release();
  }

  static int closeSocket(ares_socket_t socket, void* self) {
    static_cast<Resolver*>(self)->datagrams_.erase(socket);
    return ::close(socket);
  }

  static int connectSocket(ares_socket_t socket, const sockaddr* to, ares_socklen_t size,
                           void* self) {
    Address address;
    address.size = std::min<socklen_t>(size, sizeof(address.storage));
    std::memcpy(&address.storage, to, address.size);
    setZone(address, static_cast<Resolver*>(self)->route_.interface);
    return ::connect(socket, address.get(), address.size);
  }

  // The library reads until no data is left, which a flooding peer can prevent for ever.
  static ares_ssize_t receive(ares_socket_t socket, void* buffer, std::size_t size, int flags,
                              sockaddr* from, ares_socklen_t* fromSize, void* self) {
    auto& resolver = *static_cast<Resolver*>(self);
    if (resolver.deadline_.isOver()) {
      errno = EWOULDBLOCK;
      return -1;
    }
    const ssize_t length = recvfrom(socket, buffer, size, flags, from, fromSize);
    if (length >= 12 && resolver.datagrams_.count(socket) != 0) {
      resolver.noteCode(static_cast<const unsigned char*>(buffer)[3] & 0x0fU);
    }
    return length;
  }

  static ares_ssize_t sendParts(ares_socket_t socket, const iovec* parts, int count,
                                void* /*self*/) {
    msghdr message{};
    message.msg_iov = const_cast<iovec*>(parts);
    message.msg_iovlen = static_cast<std::size_t>(count);
    return sendmsg(socket, &message, MSG_NOSIGNAL);
  }

  // Records an error that a server answered with (RFC 1035, 4.1.1).
  void noteCode(unsigned code) {
    if (code == 2) failure_ = ARES_ESERVFAIL;
    if (code == 4) failure_ = ARES_ENOTIMP;
    if (code == 5) failure_ = ARES_EREFUSED;
  }

  void process(const Deadline& deadline) {
    std::vector<pollfd> watched;
    for (const auto& [socket, events] : sockets_) watched.push_back({socket, events, 0});
    const auto left = deadline.left();
    timeval most{left.count() / 1000, (left.count() % 1000) * 1000};
    timeval next{};
    const timeval* wait = ares_timeout(channel_, &most, &next);
    const std::chrono::milliseconds time(wait->tv_sec * 1000 + (wait->tv_usec + 999) / 1000);
    if (waitFor(watched, deadline.atMost(time)) != Waited::ready) {
      ares_process_fd(channel_, ARES_SOCKET_BAD, ARES_SOCKET_BAD);  // checks the library's timeouts
      return;
    }
    for (const auto& [socket, wanted, events] : watched) {
      if (events == 0) continue;
      ares_process_fd(channel_, (events & ~POLLOUT) != 0 ? socket : ARES_SOCKET_BAD,
                      (events & POLLOUT) != 0 ? socket : ARES_SOCKET_BAD);
    }
  }

  const Route& route_;
  const Deadline& deadline_;
  ares_channel channel_ = nullptr;
  bool hasServers_ = false;
  bool bound_ = false;  // its sockets are bound to the interface of `route_`
  bool exhausted_ = false;
  int failure_ = 0;  // the library's number for a server's unusable answer
  std::set<ares_socket_t> datagrams_;
  std::map<ares_socket_t, short> sockets_;  // sockets to watch, with poll's events
  std::array<Query, 2> queries_{Query{AF_INET}, Query{AF_INET6}};
};

// Looks a name up at one set of servers.
Result<NameAnswer> ask(const std::string& name, const Route& route, const Deadline& deadline) {
  if (deadline.isCancelled()) return cancelled();
  NameAnswer answer;
  answer.resolution.name = name;
  if (addressOf(name, 0, route.interface)) {
    answer.addresses = {name};
    answer.resolution.resolved = true;
    return answer;
  }
  if (name.empty() || name.size() > 253 || name.find('\0') != std::string::npos) {
    answer.resolution.problem = "malformed name";
    return answer;
  }
  Resolver resolver(route, deadline);
  const auto exhausted = [] { return noSocket(EMFILE, {}); };
  if (!resolver.isUsable()) return exhausted();
  if (!resolver.hasServers()) {
    answer.resolution.problem = "no name server";
    return answer;
  }
  resolver.ask(name);
  if (deadline.isCancelled()) return cancelled();
  if (resolver.isExhausted() && resolver.addresses().empty()) return exhausted();
  answer.addresses = resolver.addresses();
  answer.resolution.resolved = !answer.addresses.empty();
  if (!answer.resolution.resolved) answer.resolution.problem = resolver.problem();
  return answer;
}

// Leaves out the addresses that no site can have.
void keepSites(NameAnswer& answer) {
  if (answer.addresses.empty()) return;
  const std::string first = answer.addresses.front();
  std::erase_if(answer.addresses, [](const std::string& text) {
    const auto address = addressOf(text, 0, {});
    return !address || isOfNoSite(*address);
  });
  if (!answer.addresses.empty()) return;
  answer.resolution.resolved = false;
  answer.resolution.problem = "blocked: no site has the address " + first;
}

}  // namespace

Result<NameAnswer> resolve(const std::string& name, const Route& route, const Deadline& deadline) {
  auto answer = ask(name, route, deadline.atMost(kInAll));
  if (answer && answer->addresses != std::vector{name} && !route.interface.empty()) {
    keepSites(*answer);
  }
  return answer;
}

Result<NameAnswer> resolveAsSystem(const std::string& name, const std::vector<std::string>& servers,
                                   const Deadline& deadline) {
  auto answer = ask(name, {{}, servers}, deadline.atMost(kInAll));
  if (answer && answer->addresses != std::vector{name}) keepSites(*answer);
  return answer;
}

}  // namespace wifi_profile::linux::probes
