#include "devices/linux/probes/HttpServers.h"

#include <array>

namespace wifi_profile::linux::probes {

std::string hear(int connection) {
  std::string text;
  char byte = 0;
  while (!text.ends_with("\r\n\r\n")) {
    if (recv(connection, &byte, 1, 0) != 1) return {};
    text += byte;
  }
  return text;
}

bool say(int connection, const std::string& text) {
  return send(connection, text.data(), text.size(), MSG_NOSIGNAL) ==
         static_cast<ssize_t>(text.size());
}

void untilClosed(int connection) {
  std::array<char, 256> buffer{};
  while (recv(connection, buffer.data(), buffer.size(), 0) > 0) {
  }
}

TcpServer::Serve answering(std::string text) {
  return [text](int connection) {
    if (!hear(connection).empty()) say(connection, text);
  };
}

std::string page(const std::string& status, const std::string& body, const std::string& headers) {
  return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) +
         "\r\nConnection: close\r\n" + headers + "\r\n" + body;
}

std::string urlOf(const TcpServer& server, const std::string& path, const std::string& scheme) {
  return scheme + "://" + kHere + ":" + std::to_string(server.port()) + path;
}

}  // namespace wifi_profile::linux::probes
