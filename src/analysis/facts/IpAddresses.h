// Kinds of IP addresses. Accepts any text; a text that is not an address has no kind. Pure
// functions; any thread.
#pragma once

#include <optional>
#include <string>

namespace wifi_profile::facts {

enum class Ipv4Kind {
  privateUse,   // RFC 1918: 10/8, 172.16/12, 192.168/16
  sharedSpace,  // between a provider's translator and its customers: RFC 6598: 100.64/10, and RFC
                // 6333 (IPv4 in IPv6): 192.0.0/24
  linkLocal,    // RFC 3927: 169.254/16, chosen by the device
  loopback,     // RFC 1122: 127/8
  noHost,       // 0/8, and 224/4 and above: not the address of a host
  global        // all others
};

// Takes a dotted address: four decimal numbers. Empty for any other text.
std::optional<Ipv4Kind> ipv4KindOf(const std::string& address);

// True for privateUse and sharedSpace: another translator is between the address and the Internet.
bool isBehindTranslation(Ipv4Kind kind);

// True if `address` is in `subnet`, such as 192.168.43.0/24. False if either text is invalid.
bool isInSubnet(const std::string& address, const std::string& subnet);

enum class Ipv6Kind {
  global,       // RFC 4291 and IANA: 2000::/3
  uniqueLocal,  // RFC 4193: fc00::/7
  other         // loopback, link-local, multicast, unassigned
};

// Takes an address without a scope. Empty for any other text.
std::optional<Ipv6Kind> ipv6KindOf(const std::string& address);

}  // namespace wifi_profile::facts
