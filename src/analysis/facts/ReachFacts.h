// Facts about what the device reached through the Wi-Fi interface.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "diagnostic/platform/Date.h"

namespace wifi_profile::facts {

// A series of echo requests, or of connections if echo requests are not allowed.
struct Pings {
  std::string target = {};    // an address
  bool byConnecting = false;  // TCP connections; a refusal counts as an answer
  int sent = 0;
  std::vector<std::chrono::duration<double>> answers = {};  // round trips, in order; at most `sent`
  Date started = {};
  // The target answered for its address on the link (ARP, neighbour discovery) after the pings
  // began, even if it answered no ping.
  bool isNeighbour = false;

  bool operator==(const Pings&) const = default;
};

// The look-up of a name with the link's name servers, and with the system's if those are others.
struct NameResolution {
  std::string name = {};
  bool resolved = false;     // to at least one address
  std::string problem = {};  // in a few words, if not resolved

  bool operator==(const NameResolution&) const = default;
};

// The answer to a plain HTTP request to an address that normally returns 204, or 200 with a known
// body.
struct PortalProbe {
  enum class Answer {
    open,      // the normal answer
    portal,    // a redirect elsewhere, or another body
    noAnswer,  // no data, or data that is not HTTP
  };
  Answer answer = Answer::noAnswer;
  std::string detail = {};  // in a few words: status, target of the redirect

  bool operator==(const PortalProbe&) const = default;
};

// A TCP connection and, with https, a TLS handshake with the site.
struct SiteReach {
  bool reached = false;
  std::string problem = {};  // in a few words, if not reached

  bool operator==(const SiteReach&) const = default;
};

// A page of the site.
struct SitePage {
  bool retrieved = false;  // with status 200 and the expected content
  std::string problem = {};

  bool operator==(const SitePage&) const = default;
};

// What is known of the path between the router and the Internet.
struct RouterOutside {
  std::optional<std::string> address =
      std::nullopt;  // IPv4, as the router reports it (UPnP-IGD, NAT-PMP)
  std::optional<std::string> secondHop = std::nullopt;  // IPv4, of the second router on the path

  bool operator==(const RouterOutside&) const = default;
};

}  // namespace wifi_profile::facts
