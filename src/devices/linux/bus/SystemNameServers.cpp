#include "devices/linux/bus/SystemNameServers.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstring>
#include <fstream>

#include "devices/linux/probes/Sockets.h"

namespace wifi_profile::linux::bus {
namespace {

constexpr std::size_t kMostSystemServers = 16;
constexpr std::size_t kLongestFile = std::size_t{64} * 1024;

// Returns the address as text; empty for an invalid one and for a link-local IPv6 one.
std::string textOf(int family, const void* octets) {
  std::array<char, INET6_ADDRSTRLEN> text{};
  if (inet_ntop(family, octets, text.data(), text.size()) == nullptr) return {};
  const std::string result = text.data();
  return family == AF_INET6 && result.starts_with("fe80:") ? "" : result;
}

std::string normalized(const std::string& text) {
  std::array<unsigned char, 16> octets{};
  for (const int family : {AF_INET, AF_INET6}) {
    if (inet_pton(family, text.c_str(), octets.data()) == 1) return textOf(family, octets.data());
  }
  return {};
}

// Whether the server is systemd-resolved.
bool isResolved(const std::string& server) {
  return server == "127.0.0.53" || server == "127.0.0.54";
}

std::string firstOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text(kLongestFile, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
  return text;
}

}  // namespace

std::vector<std::string> nameServersIn(std::string_view resolvConf) {
  constexpr std::string_view kKey = "nameserver", kBlanks = " \t";
  std::vector<std::string> servers;
  while (!resolvConf.empty() && servers.size() < kMostSystemServers) {
    const std::size_t end = std::min(resolvConf.find('\n'), resolvConf.size());
    std::string_view line = resolvConf.substr(0, end);
    resolvConf.remove_prefix(std::min(end + 1, resolvConf.size()));
    if (!line.starts_with(kKey)) continue;
    line.remove_prefix(kKey.size());
    const std::size_t first = line.find_first_not_of(kBlanks);
    if (first == 0 || first == std::string_view::npos) continue;
    line = line.substr(first, line.find_first_of(" \t\r", first) - first);
    const std::string server = normalized(std::string(line));
    if (!server.empty()) servers.push_back(server);
  }
  return servers;
}

std::vector<std::string> nameServersOf(int interface, const BusValue& servers) {
  std::vector<std::string> found;
  for (const BusValue& server : servers.list()) {  // a structure of interface, family and octets
    if (server.list().size() < 3 || found.size() == kMostSystemServers) continue;
    const auto link = server.list()[0].integer();
    const auto family = server.list()[1].integer();
    const auto octets = server.list()[2].bytes();
    if (!link || (*link != 0 && *link != interface) || !octets) continue;
    const bool ofIPv4 = family == AF_INET && octets->size() == 4;
    if (!ofIPv4 && !(family == AF_INET6 && octets->size() == 16)) continue;
    const std::string text = textOf(ofIPv4 ? AF_INET : AF_INET6, octets->data());
    if (!text.empty()) found.push_back(text);
  }
  return found;
}

std::optional<std::vector<std::string>> nameServersThrough(
    int interface, std::vector<std::string> servers,
    const std::function<bool(const std::string& server)>& isOfLink,
    const std::function<std::optional<int>(const std::string& server)>& towards) {
  std::erase_if(servers, [&](const std::string& server) {
    return !isOfLink(server) && towards(server).value_or(interface) != interface;
  });
  if (servers.empty()) return {};
  return servers;
}

std::optional<std::vector<std::string>> readSystemNameServers(Bus& system, int interface,
                                                              const Deadline& deadline,
                                                              const std::string& resolvConf) {
  auto servers = nameServersIn(firstOf(resolvConf));
  if (std::ranges::any_of(servers, isResolved)) {
    const BusAnswer owner = system.ownerOf("org.freedesktop.resolve1", deadline);
    if (!owner.isGood()) return {};
    const BusAnswer told =
        system.call(getProperty(owner.first().text().value_or(""), "/org/freedesktop/resolve1",
                                "org.freedesktop.resolve1.Manager", "DNS"),
                    deadline);
    servers = nameServersOf(interface, told.first());
  }
  if (servers.empty() ||
      std::ranges::any_of(servers, [](const auto& one) { return probes::isHere(one, {}); }))
    return {};
  return servers;
}

}  // namespace wifi_profile::linux::bus
