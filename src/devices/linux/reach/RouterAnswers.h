// What routers answer, as values. Pure functions over what any device in the network may have sent.
// Addresses are of IPv4.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wifi_profile::machine {

// The text of an address as it is usually written, if a host may have it.
std::optional<std::string> hostAddress(const std::string& text);

// The outer address in an answer to NAT-PMP's question for it (RFC 6886, 3.2). Empty where the
// router refuses, and for anything else.
std::optional<std::string> addressFromNatPmp(std::string_view datagram);

// Where the router describes itself, from an answer to a search of UPnP. Empty where that is not at
// the gateway, by HTTP.
std::optional<std::string> descriptionUrl(std::string_view answer, const std::string& gateway);

// What may know the outer address.
struct UpnpService {
  std::string type;        // "urn:...", of letters, digits and ":._-"
  std::string controlUrl;  // at the gateway, by HTTP
};

// At most two, from a description that was found at `location`. Those of other hosts are left out.
std::vector<UpnpService> upnpServices(const std::string& description, const std::string& location,
                                      const std::string& gateway);

// The outer address in a service's answer.
std::optional<std::string> addressFromUpnp(const std::string& answer);

}  // namespace wifi_profile::machine
