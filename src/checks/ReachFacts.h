// What was reached through the Wi-Fi interface.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/Date.h"

namespace wifi_profile::checks {

// A series of echoes, or of connections where echoes are not allowed.
struct Pings {
  std::string target = {};    // an address
  bool byConnecting = false;  // TCP connections; a refusal is an answer
  int sent = 0;
  std::vector<std::chrono::duration<double>> answers = {};  // round trips, in order; at most `sent`
  Date started = {};
  // It answered for its address on the link (ARP, neighbour discovery) after the pings began, if
  // nothing else.
  bool isNeighbour = false;

  bool operator==(const Pings&) const = default;
};

// A name asked of the link's servers.
struct NameResolution {
  std::string name = {};
  bool resolved = false;     // to an address at least
  std::string problem = {};  // in a few words when it was not

  bool operator==(const NameResolution&) const = default;
};

// The answer to plain HTTP for an address that answers 204, or 200 with a body that is known.
struct PortalProbe {
  enum class Answer {
    open,      // as it should be
    portal,    // redirected elsewhere, or another body
    noAnswer,  // nothing came, or something that is no HTTP
  };
  Answer answer = Answer::noAnswer;
  std::string detail = {};  // in a few words: status, where it was redirected

  bool operator==(const PortalProbe&) const = default;
};

// TCP and, with https, TLS to the site.
struct SiteReach {
  bool reached = false;
  std::string problem = {};  // in a few words when it was not

  bool operator==(const SiteReach&) const = default;
};

// A page of the site.
struct SitePage {
  bool retrieved = false;  // with status 200 and the content expected
  std::string problem = {};

  bool operator==(const SitePage&) const = default;
};

// What stands between the router and the Internet.
struct RouterOutside {
  std::optional<std::string> address =
      std::nullopt;  // IPv4, as the router tells it (UPnP-IGD, NAT-PMP)
  std::optional<std::string> secondHop = std::nullopt;  // IPv4, of the second router on the way out

  bool operator==(const RouterOutside&) const = default;
};

}  // namespace wifi_profile::checks
