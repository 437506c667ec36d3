// What the servers of web tests say.
#pragma once

#include <string>

#include "devices/linux/probes/LocalServers.h"

namespace wifi_profile::linux::probes {

// Reads up to the end of a request's header; empty when the connection ended before.
std::string hear(int connection);
// False when the other side is gone.
bool say(int connection, const std::string& text);
// Reads until the other side closes, or the server ends.
void untilClosed(int connection);

// A server that gives everybody the same answer.
TcpServer::Serve answering(std::string text);
// "HTTP/1.1 STATUS" with a body.
std::string page(const std::string& status, const std::string& body,
                 const std::string& headers = "");

std::string urlOf(const TcpServer& server, const std::string& path = "/",
                  const std::string& scheme = "http");

}  // namespace wifi_profile::linux::probes
