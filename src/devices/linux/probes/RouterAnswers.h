// Parses the answers of routers. Pure functions; any device in the network may have sent the data.
// Addresses are IPv4 addresses.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wifi_profile::linux::probes {

// Returns the address in its usual notation; empty if it is not an address that a host may have.
std::optional<std::string> hostAddress(const std::string& text);

// Returns the outer address from an answer to NAT-PMP's request for it (RFC 6886, 3.2). Empty if
// the router refuses, and for any other datagram.
std::optional<std::string> addressFromNatPmp(std::string_view datagram);

// Returns the URL of the router's description from an answer to a UPnP search. Empty if that is not
// at the gateway, by HTTP.
std::optional<std::string> descriptionUrl(std::string_view answer, const std::string& gateway);

// A UPnP service that may know the outer address.
struct UpnpService {
  std::string type;        // "urn:...", of letters, digits and ":._-"
  std::string controlUrl;  // an HTTP URL at the gateway
};

// Returns at most two services from a description found at `location`. Services of other hosts are
// left out.
std::vector<UpnpService> upnpServices(const std::string& description, const std::string& location,
                                      const std::string& gateway);

// Returns the outer address from a service's answer.
std::optional<std::string> addressFromUpnp(const std::string& answer);

}  // namespace wifi_profile::linux::probes
