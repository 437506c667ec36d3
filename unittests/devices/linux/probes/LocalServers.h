// Servers of the test's own, on the loopback interface.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <vector>

#include "devices/linux/Deadline.h"
#include "devices/linux/probes/Sockets.h"

namespace wifi_profile::linux::probes {

inline const std::string kHere = "127.0.0.1";

// Long enough for every machine; what is tested ends by its own doing.
inline Deadline longDeadline(std::stop_token stop = {}) {
  return Deadline::in(std::chrono::seconds(60), std::move(stop));
}

// An address of the loopback interface for this process alone.
std::string ownAddress();

// A socket bound to the address and, when it is not 0, the port.
Descriptor boundSocket(const std::string& address, int type, std::uint16_t port = 0);
std::uint16_t portOf(const Descriptor& socket);

// Accepts connections and hands each to `serve`, on a thread of its own, until it is destroyed.
// `serve` gets a blocking socket that fails when the server ends.
class TcpServer {
 public:
  using Serve = std::function<void(int connection)>;

  explicit TcpServer(Serve serve, const std::string& address = kHere, std::uint16_t port = 0);
  ~TcpServer();
  TcpServer(const TcpServer&) = delete;
  TcpServer& operator=(const TcpServer&) = delete;

  std::uint16_t port() const { return portOf(listener_); }
  int connections() const { return connections_; }

 private:
  void accept();

  Serve serve_;
  Descriptor listener_;
  std::stop_source ended_;
  std::atomic<int> connections_ = 0;
  std::thread thread_;
};

// Answers datagrams with those that `answer` makes of them, until it is destroyed.
class UdpServer {
 public:
  using Answer = std::function<std::vector<std::string>(const std::string& question)>;

  explicit UdpServer(Answer answer, const std::string& address = kHere, std::uint16_t port = 0);
  ~UdpServer();
  UdpServer(const UdpServer&) = delete;
  UdpServer& operator=(const UdpServer&) = delete;

  std::uint16_t port() const { return portOf(socket_); }
  int questions() const { return questions_; }

 private:
  void run();

  Answer answer_;
  Descriptor socket_;
  std::stop_source ended_;
  std::atomic<int> questions_ = 0;
  std::thread thread_;
};

// A port that refuses connections.
std::uint16_t refusedPort();

}  // namespace wifi_profile::linux::probes
