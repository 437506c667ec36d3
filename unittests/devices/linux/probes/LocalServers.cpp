#include "devices/linux/probes/LocalServers.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <list>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

namespace wifi_profile::linux::probes {

std::string ownAddress() {
  const int id = getpid();
  return "127." + std::to_string(id / 62500 % 250 + 2) + "." + std::to_string(id / 250 % 250) +
         "." + std::to_string(id % 250 + 1);
}

Descriptor boundSocket(const std::string& address, int type, std::uint16_t port) {
  const auto at = addressOf(address, port, "");
  if (!at) throw std::invalid_argument(address);
  Descriptor socket(::socket(at->family(), type | SOCK_CLOEXEC, 0));
  const int yes = 1;
  setsockopt(socket.number(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes));
  if (bind(socket.number(), at->get(), at->size) != 0) {
    throw std::system_error(errno, std::generic_category(), "bind to " + address);
  }
  return socket;
}

std::uint16_t portOf(const Descriptor& socket) {
  sockaddr_in6 address{};  // the port stands at the same place for IPv4
  socklen_t size = sizeof(address);
  getsockname(socket.number(), reinterpret_cast<sockaddr*>(&address), &size);
  return ntohs(address.sin6_port);
}

TcpServer::TcpServer(Serve serve, const std::string& address, std::uint16_t port)
    : serve_(std::move(serve)), listener_(boundSocket(address, SOCK_STREAM, port)) {
  if (listen(listener_.number(), 16) != 0) {
    throw std::system_error(errno, std::generic_category(), "listen");
  }
  thread_ = std::thread([this] { accept(); });
}

TcpServer::~TcpServer() {
  ended_.request_stop();
  shutdown(listener_.number(), SHUT_RDWR);  // wakes its thread
  thread_.join();
}

void TcpServer::accept() {
  std::list<Descriptor> sockets;
  std::list<std::thread> threads;
  while (waitFor(listener_.number(), POLLIN, longDeadline(ended_.get_token())) !=
         Waited::cancelled) {
    Descriptor socket(accept4(listener_.number(), nullptr, nullptr, SOCK_CLOEXEC));
    if (!socket) continue;
    ++connections_;
    const int number = sockets.emplace_back(std::move(socket)).number();
    threads.emplace_back([this, number] {
      serve_(number);
      shutdown(number, SHUT_RDWR);
    });
  }
  for (const Descriptor& socket : sockets) shutdown(socket.number(), SHUT_RDWR);
  for (std::thread& thread : threads) thread.join();
}

UdpServer::UdpServer(Answer answer, const std::string& address, std::uint16_t port)
    : answer_(std::move(answer)), socket_(boundSocket(address, SOCK_DGRAM, port)) {
  thread_ = std::thread([this] { run(); });
}

UdpServer::~UdpServer() {
  ended_.request_stop();
  shutdown(socket_.number(), SHUT_RDWR);  // wakes its thread
  thread_.join();
}

void UdpServer::run() {
  while (waitFor(socket_.number(), POLLIN, longDeadline(ended_.get_token())) != Waited::cancelled) {
    std::array<char, 2048> buffer{};
    sockaddr_storage from{};
    socklen_t size = sizeof(from);
    const ssize_t length = recvfrom(socket_.number(), buffer.data(), buffer.size(), MSG_DONTWAIT,
                                    reinterpret_cast<sockaddr*>(&from), &size);
    if (length < 0) continue;
    ++questions_;
    for (const std::string& text : answer_({buffer.data(), static_cast<std::size_t>(length)})) {
      sendto(socket_.number(), text.data(), text.size(), 0, reinterpret_cast<sockaddr*>(&from),
             size);
    }
  }
}

std::uint16_t refusedPort() { return portOf(boundSocket(kHere, SOCK_STREAM)); }

}  // namespace wifi_profile::linux::probes
