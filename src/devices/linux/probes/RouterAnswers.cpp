#include "devices/linux/probes/RouterAnswers.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cctype>
#include <cstring>
#include <miniupnpc/miniupnpc.h>
#include <miniupnpc/upnpreplyparse.h>

#include "devices/linux/probes/Http.h"

// Uses only the parsers of the UPnP library: its network functions block, and read without a limit.

namespace wifi_profile::linux::probes {
namespace {

// Returns the value of the header "LOCATION".
std::string locationIn(std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.size() < 9 || strncasecmp(line.data(), "location:", 9) != 0) continue;
    line.remove_prefix(9);
    const std::size_t first = line.find_first_not_of(" \t");
    const std::size_t last = line.find_last_not_of(" \t\r");
    return first == std::string_view::npos ? "" : std::string(line.substr(first, last - first + 1));
  }
  return {};
}

bool isOfGateway(const std::string& url, const std::string& gateway) {
  const auto parts = partsOf(url);
  return parts && parts->scheme == "http" && parts->host == gateway;
}

bool isServiceType(std::string_view text) {
  return text.starts_with("urn:") && std::all_of(text.begin(), text.end(), [](unsigned char c) {
           return std::isalnum(c) != 0 || c == ':' || c == '.' || c == '_' || c == '-';
         });
}

template <std::size_t size>
std::string textOf(const char (&field)[size]) {
  return {field, strnlen(field, size)};
}

}  // namespace

std::optional<std::string> hostAddress(const std::string& text) {
  in_addr address{};
  if (inet_pton(AF_INET, text.c_str(), &address) != 1) return {};
  const std::uint32_t number = ntohl(address.s_addr);
  if (number >> 24U == 0 || number >> 28U >= 14) return {};  // "this network", multicast, reserved
  std::array<char, INET_ADDRSTRLEN> written{};
  inet_ntop(AF_INET, &address, written.data(), written.size());
  return written.data();
}

std::optional<std::string> addressFromNatPmp(std::string_view datagram) {
  // Version 0, the answer to request 0, result 0 (success). The router's time and the address
  // follow.
  constexpr std::string_view kSuccess("\0\x80\0\0", 4);
  constexpr std::size_t kAddressAt = 8;
  if (datagram.size() < kAddressAt + sizeof(in_addr) || !datagram.starts_with(kSuccess)) return {};
  std::array<char, INET_ADDRSTRLEN> written{};
  inet_ntop(AF_INET, datagram.data() + kAddressAt, written.data(), written.size());
  return hostAddress(written.data());
}

std::optional<std::string> descriptionUrl(std::string_view answer, const std::string& gateway) {
  std::string location = locationIn(answer);
  return isOfGateway(location, gateway) ? std::optional(std::move(location)) : std::nullopt;
}

std::vector<UpnpService> upnpServices(const std::string& description, const std::string& location,
                                      const std::string& gateway) {
  IGDdatas found{};
  parserootdesc(description.data(), static_cast<int>(description.size()), &found);
  const std::string base = textOf(found.urlbase);
  std::vector<UpnpService> services;
  for (const IGDdatas_service* service : {&found.first, &found.second}) {
    const std::string type = textOf(service->servicetype);
    const std::string url =
        resolvedUrl(base.empty() ? location : base, textOf(service->controlurl));
    if (isServiceType(type) && isOfGateway(url, gateway)) services.push_back({type, url});
  }
  return services;
}

std::optional<std::string> addressFromUpnp(const std::string& answer) {
  NameValueParserData data{};
  ParseNameValue(answer.data(), static_cast<int>(answer.size()), &data);
  const char* value = GetValueFromNameValueList(&data, "NewExternalIPAddress");
  const std::string text = value == nullptr ? "" : value;
  ClearNameValueList(&data);
  return hostAddress(text);
}

}  // namespace wifi_profile::linux::probes
