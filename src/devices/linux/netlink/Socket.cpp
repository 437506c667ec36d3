#include "devices/linux/netlink/Socket.h"

#include <cerrno>
#include <cstring>
#include <iterator>
#include <netlink/genl/genl.h>
#include <netlink/msg.h>
#include <netlink/netlink.h>
#include <new>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <system_error>

namespace wifi_profile::linux::netlink {

namespace {

// The kernel fills the buffer that it gets, up to 32 KiB at a time.
constexpr std::size_t kBufferBytes = std::size_t{64} << 10U;
// Events come in bursts while no thread reads.
constexpr int kEventBufferBytes = 256 << 10;

int flagsOf(Request::Kind kind) {
  return NLM_F_REQUEST | (kind == Request::Kind::dump ? NLM_F_DUMP : NLM_F_ACK);
}

void require(bool done) {
  if (!done) throw std::bad_alloc();  // the only reason why building a message fails
}

// Returns errno's number from an error message or a dump's end; 0: success.
int errorOf(const nlmsghdr* header) {
  int error = 0;
  if (static_cast<std::size_t>(nlmsg_datalen(header)) < sizeof error) return 0;
  std::memcpy(&error, nlmsg_data(header), sizeof error);
  return error < 0 ? -error : 0;
}

Message messageOf(const nlmsghdr* header, int protocol) {
  Message message;
  message.type = header->nlmsg_type;
  const auto* data = static_cast<const std::uint8_t*>(nlmsg_data(header));
  auto size = static_cast<std::size_t>(nlmsg_datalen(header));
  if (protocol == NETLINK_GENERIC && size >= GENL_HDRLEN) {
    message.command = data[0];
    data += GENL_HDRLEN;
    size -= GENL_HDRLEN;
  }
  message.payload.assign(data, data + size);
  return message;
}

}  // namespace

void Request::Deleter::operator()(nl_msg* message) const { nlmsg_free(message); }

Request::Request(int family, int command, Kind kind) : message_(nlmsg_alloc()) {
  require(message_ && genlmsg_put(message_.get(), NL_AUTO_PORT, NL_AUTO_SEQ, family, 0,
                                  flagsOf(kind), static_cast<std::uint8_t>(command), 1));
}

Request::Request(int type, ieee80211::Bytes fields, Kind kind)
    : message_(nlmsg_alloc_simple(type, flagsOf(kind))) {
  std::vector<std::uint8_t> copy(fields.begin(), fields.end());
  require(message_ && nlmsg_append(message_.get(), copy.data(), copy.size(), NLMSG_ALIGNTO) == 0);
}

Request& Request::put(int attribute, ieee80211::Bytes payload) {
  require(nla_put(message_.get(), attribute, static_cast<int>(payload.size()), payload.data()) ==
          0);
  return *this;
}

Request& Request::put(int attribute, std::uint32_t number) {
  require(nla_put_u32(message_.get(), attribute, number) == 0);
  return *this;
}

Request& Request::put(int attribute, std::string_view text) {
  require(nla_put_string(message_.get(), attribute, std::string(text).c_str()) == 0);
  return *this;
}

Request& Request::putFlag(int attribute) {
  require(nla_put_flag(message_.get(), attribute) == 0);
  return *this;
}

Request& Request::putEmptyList(int attribute) {
  nlattr* list = nla_nest_start(message_.get(), attribute);
  require(list && nla_put(message_.get(), 1, 0, nullptr) == 0);
  nla_nest_end(message_.get(), list);
  return *this;
}

void NetlinkSocket::Closer::operator()(nl_sock* socket) const { nl_socket_free(socket); }

int NetlinkSocket::open() {
  if (socket_) return 0;
  std::unique_ptr<nl_sock, Closer> socket(nl_socket_alloc());
  require(socket != nullptr);
  errno = 0;
  if (nl_connect(socket.get(), protocol_) < 0) return errno != 0 ? errno : EIO;
  if (nl_socket_set_nonblocking(socket.get()) < 0) return errno != 0 ? errno : EIO;
  buffer_.resize(kBufferBytes);
  socket_ = std::move(socket);
  return 0;
}

int NetlinkSocket::ask(Request& request, const Deadline& deadline, std::vector<Message>& answers) {
  for (int restarts = 0;; ++restarts) {
    bool interrupted = false;
    const int error = askOnce(request, deadline, answers, interrupted);
    if (error != 0 || !interrupted || restarts == kMostRestarts) return error;
  }
}

int NetlinkSocket::askOnce(Request& request, const Deadline& deadline,
                           std::vector<Message>& answers, bool& interrupted) {
  answers.clear();
  if (const int error = open(); error != 0) return error;
  nlmsghdr* header = nlmsg_hdr(request.message_.get());
  header->nlmsg_pid = nl_socket_get_local_port(socket_.get());
  header->nlmsg_seq = nl_socket_use_seq(socket_.get());
  if (send(nl_socket_get_fd(socket_.get()), header, header->nlmsg_len, 0) < 0) {
    const int error = errno;
    socket_.reset();
    return error;
  }
  Progress progress;
  while (!progress.ended) {
    ieee80211::Bytes received;
    int error = await(deadline, received);
    if (error == 0) {
      take(received, header->nlmsg_seq, progress, answers);
      const bool tooMany = protocol_ == NETLINK_GENERIC && answers.size() > kMostMessages;
      if (tooMany || progress.bytes > kMostBytes) error = EMSGSIZE;
    }
    if (error == 0) continue;
    // Answers still under way must not be taken for another request's.
    socket_.reset();
    return error;
  }
  interrupted = progress.interrupted;
  return progress.error;
}

int NetlinkSocket::receive(ieee80211::Bytes& received) {
  sockaddr_nl from{};
  iovec place{buffer_.data(), buffer_.size()};
  msghdr message{};
  message.msg_name = &from;
  message.msg_namelen = sizeof from;
  message.msg_iov = &place;
  message.msg_iovlen = 1;
  const auto size = recvmsg(nl_socket_get_fd(socket_.get()), &message, 0);
  if (size < 0) return errno == EINTR ? EAGAIN : errno;
  if ((static_cast<unsigned>(message.msg_flags) & MSG_TRUNC) != 0) return EMSGSIZE;
  const bool fromKernel = from.nl_family == AF_NETLINK && from.nl_pid == 0;
  received = {buffer_.data(), fromKernel ? static_cast<std::size_t>(size) : 0};
  return 0;
}

int NetlinkSocket::await(const Deadline& deadline, ieee80211::Bytes& received) {
  while (true) {
    // Checked in every round, because a socket that is always ready never waits.
    if (deadline.isCancelled()) return ECANCELED;
    if (deadline.isOver()) return ETIMEDOUT;
    if (const int error = receive(received); error != EAGAIN) return error;
    waitFor(nl_socket_get_fd(socket_.get()), POLLIN, deadline);
  }
}

void NetlinkSocket::take(ieee80211::Bytes received, std::uint32_t sequence, Progress& progress,
                         std::vector<Message>& answers) const {
  progress.bytes += received.size();
  auto left = static_cast<int>(received.size());
  // The netlink functions take non-const headers, but do not write through them.
  auto* header = reinterpret_cast<nlmsghdr*>(const_cast<std::uint8_t*>(received.data()));
  for (; nlmsg_ok(header, left) != 0 && !progress.ended; header = nlmsg_next(header, &left)) {
    if (header->nlmsg_seq != sequence) continue;
    if ((header->nlmsg_flags & NLM_F_DUMP_INTR) != 0) progress.interrupted = true;
    if (header->nlmsg_type == NLMSG_DONE || header->nlmsg_type == NLMSG_ERROR) {
      progress.ended = true;
      progress.error = errorOf(header);
    } else if (header->nlmsg_type >= NLMSG_MIN_TYPE) {
      answers.push_back(messageOf(header, protocol_));
    }
  }
}

int NetlinkSocket::listen(int group) {
  if (const int error = open(); error != 0) return error;
  // If the system allows less, events are lost earlier.
  nl_socket_set_buffer_size(socket_.get(), kEventBufferBytes, 0);
  errno = 0;
  if (nl_socket_add_membership(socket_.get(), group) < 0) return errno != 0 ? errno : EIO;
  events_.clear();
  ieee80211::Bytes received;
  // Bounded, because events may arrive as fast as they are read.
  for (std::size_t count = 0; count < kMostMessages; ++count) {
    const int error = receive(received);
    if (error == EAGAIN) return 0;
    if (error != 0 && error != ENOBUFS) return error;
  }
  return 0;
}

int NetlinkSocket::nextEvent(const Deadline& deadline, Message& event) {
  if (const int error = open(); error != 0) return error;
  while (events_.empty()) {
    ieee80211::Bytes received;
    if (const int error = await(deadline, received); error != 0) return error;
    keepEvents(received);
  }
  event = std::move(events_.front());
  events_.pop_front();
  return 0;
}

int NetlinkSocket::takeEvents(std::vector<Message>& events) {
  events.clear();
  int error = open();
  // Bounded, because events may arrive as fast as they are read.
  for (std::size_t count = 0; error == 0 && count < kMostMessages; ++count) {
    ieee80211::Bytes received;
    error = receive(received);
    if (error == 0) keepEvents(received);
  }
  events.assign(std::move_iterator(events_.begin()), std::move_iterator(events_.end()));
  events_.clear();
  return error == EAGAIN ? 0 : error;
}

void NetlinkSocket::keepEvents(ieee80211::Bytes received) {
  auto left = static_cast<int>(received.size());
  auto* header = reinterpret_cast<nlmsghdr*>(const_cast<std::uint8_t*>(received.data()));
  for (; nlmsg_ok(header, left) != 0; header = nlmsg_next(header, &left)) {
    if (header->nlmsg_type >= NLMSG_MIN_TYPE) events_.push_back(messageOf(header, protocol_));
  }
}

Error unknownFor(int error, std::string_view subject) {
  const std::string what(subject);
  switch (error) {
    case ENODEV:
    case ENXIO:
      return {Reason::noHardware, "The Wi-Fi interface is gone, and with it " + what +
                                      ". Plug it in again, or use another one."};
    case EPERM:
    case EACCES:
      return {Reason::notPermitted, "This user may not ask the kernel for " + what +
                                        "; that needs the capability CAP_NET_ADMIN. Run as root."};
    case EOPNOTSUPP:
    case EPROTONOSUPPORT:
    case EAFNOSUPPORT:
      return {Reason::notSupported, "The driver or the kernel cannot tell " + what +
                                        ". Use another Wi-Fi device, or a newer kernel."};
    case ENETDOWN:
    case ERFKILL:
      return {Reason::radioOff, "Wi-Fi is off, so the kernel could not tell " + what +
                                    ". Switch it on and try again."};
    case ETIMEDOUT:
      return {Reason::tookTooLong, "The kernel did not tell " + what + " in time. Try again."};
    case ECANCELED:
      return {Reason::tookTooLong,
              "The kernel was asked for " + what + ", but the work was cancelled. Start again."};
    default:
      return {Reason::failed, "The kernel did not tell " + what + ": " +
                                  std::generic_category().message(error) + ". Try again."};
  }
}

}  // namespace wifi_profile::linux::netlink
