#include "devices/linux/bus/ProfileFacts.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>

#include "analysis/ieee80211/Network.h"
#include "devices/linux/bus/ProfileSecurity.h"

namespace wifi_profile::linux::bus {

using facts::ActiveProfile;
using facts::AddressMethod;
using facts::AddressSettings;

namespace {

constexpr std::size_t kMostSetServers = 64;
constexpr std::size_t kLongestUrl = 2048;

std::optional<AddressMethod> methodFrom(std::string_view text) {
  if (text == "auto" || text == "dhcp") return AddressMethod::automatic;
  // IPv6 only: the kernel follows the network's routers.
  if (text == "ignore") return AddressMethod::automatic;
  if (text == "manual") return AddressMethod::manual;
  if (text == "link-local") return AddressMethod::linkLocal;
  if (text == "shared") return AddressMethod::shared;
  if (text == "disabled") return AddressMethod::disabled;
  return std::nullopt;
}

// Returns an IPv6 address of 16 bytes as text; empty for other bytes.
std::optional<std::string> textOfIpv6(const BusValue& value) {
  const auto bytes = value.bytes();
  if (!bytes || bytes->size() != sizeof(in6_addr)) return std::nullopt;
  std::array<char, INET6_ADDRSTRLEN> text{};
  inet_ntop(AF_INET6, bytes->data(), text.data(), text.size());
  return text.data();
}

// Returns as text an IPv4 address that is sent as a number in network byte order.
std::optional<std::string> textOfIpv4(const BusValue& value) {
  const auto number = value.integer();
  if (!number || *number < 0 || *number > UINT32_MAX) return std::nullopt;
  const auto address = static_cast<std::uint32_t>(*number);
  std::array<char, INET_ADDRSTRLEN> text{};
  inet_ntop(AF_INET, &address, text.data(), text.size());
  return text.data();
}

std::optional<std::string> serverFrom(const BusValue& value) {
  if (auto text = value.text(); text && !text->empty()) return text;
  if (auto text = value.at("address").text(); text && !text->empty()) return text;
  if (auto text = textOfIpv6(value)) return text;
  return textOfIpv4(value);
}

void addServers(const BusValue& list, std::vector<std::string>& servers) {
  for (const BusValue& value : list.list()) {
    if (servers.size() == kMostSetServers) return;
    if (auto server = serverFrom(value)) servers.push_back(std::move(*server));
  }
}

std::optional<AddressSettings> addressSettingsFrom(const BusValue& section) {
  AddressSettings settings;
  const auto method = methodFrom(section.at("method").text().value_or(""));
  if (!method) return std::nullopt;
  settings.method = *method;
  addServers(section.at("dns-data"), settings.dnsServers);
  if (settings.dnsServers.empty()) addServers(section.at("dns"), settings.dnsServers);
  settings.ignoresNetworkDns = section.at("ignore-auto-dns").boolean().value_or(false);
  const bool hasOwn = !section.at("address-data").list().empty() ||
                      !section.at("addresses").list().empty() ||
                      !section.at("gateway").text().value_or("").empty();
  settings.hasExtraAddresses = settings.method == AddressMethod::automatic && hasOwn;
  return settings;
}

bool hasProxy(const BusValue& proxy) {
  constexpr std::int64_t kByScript = 1;
  // Without a script of the profile's own, it is the network that may name one.
  return proxy.at("method").integer() == kByScript &&
         (!proxy.at("pac-url").text().value_or("").empty() ||
          proxy.map().contains("pac-script"));  // a script too long for BusValue still counts
}

// NetworkManager's NMMetered: 1 yes, 2 no, 3 probably, 4 probably not.
std::optional<bool> meteredFrom(const BusValue& value) {
  switch (value.integer().value_or(0)) {
    case 1:
    case 3:
      return true;
    case 2:
    case 4:
      return false;
    default:
      return std::nullopt;
  }
}

std::optional<bool> meteredFrom(const ActiveProfileSources& sources) {
  if (const auto told = meteredFrom(sources.device.at("Metered"))) return told;
  if (const auto set = meteredFrom(sources.settings.at("connection").at("metered"))) return set;
  // Telephones put this text into their DHCP answers.
  for (const char* const key : {"vendor_encapsulated_options", "vendor_class_identifier"}) {
    const std::string option = sources.dhcp4Options.at(key).text().value_or("");
    if (option.find("ANDROID_METERED") != std::string::npos) return true;
  }
  return std::nullopt;
}

}  // namespace

Result<ActiveProfile> activeProfileFrom(const ActiveProfileSources& sources) {
  const auto ipv4 = addressSettingsFrom(sources.settings.at("ipv4"));
  const auto ipv6 = addressSettingsFrom(sources.settings.at("ipv6"));
  if (!ipv4 || !ipv6) {
    return Error{Reason::notTold, "NetworkManager does not say how the profile sets addresses up."};
  }
  ActiveProfile profile;
  profile.ipv4 = *ipv4;
  profile.ipv6 = *ipv6;
  profile.hasProxy = hasProxy(sources.settings.at("proxy"));
  profile.metered = meteredFrom(sources);
  profile.captivePortalApi = captivePortalApiFrom(sources.dhcp4Options);
  return profile;
}

std::optional<facts::SavedNetwork> savedNetworkFrom(const BusValue& settings) {
  const BusValue& connection = settings.at("connection");
  const BusValue& wireless = settings.at("802-11-wireless");
  if (connection.at("type").text() != "802-11-wireless") return std::nullopt;
  if (wireless.at("mode").text() == "ap") return std::nullopt;
  const auto ssid = wireless.at("ssid").bytes();
  if (!ssid || ssid->empty() || ssid->size() > ieee80211::kLongestSsid) return std::nullopt;
  facts::SavedNetwork network;
  network.ssid = *ssid;
  network.security = securityFromProfile(settings);
  network.isHidden = wireless.at("hidden").boolean().value_or(false);
  network.joinsByItself = connection.at("autoconnect").boolean().value_or(true);
  network.metered = meteredFrom(connection.at("metered"));
  network.lastJoined = dateFromUnixTime(connection.at("timestamp").integer().value_or(0));
  network.accessPoints =
      static_cast<int>(std::min(wireless.at("seen-bssids").list().size(), kLongestBusList));
  return network;
}

std::vector<std::string> dnsServersFrom(const BusValue& ip4Config, const BusValue& ip6Config) {
  std::vector<std::string> servers;
  addServers(ip4Config.at("NameserverData"), servers);
  if (servers.empty()) addServers(ip4Config.at("Nameservers"), servers);
  addServers(ip6Config.at("Nameservers"), servers);
  return servers;
}

std::optional<std::string> captivePortalApiFrom(const BusValue& dhcp4Options) {
  // DHCP clients' names for the option, the oldest last.
  for (const char* const key :
       {"captive_portal", "v4_captive_portal", "default_url", "unknown_114", "option_114"}) {
    auto url = dhcp4Options.at(key).text();
    if (url && !url->empty() && url->size() <= kLongestUrl) return url;
  }
  return std::nullopt;
}

std::optional<Date> dateFromUnixTime(std::int64_t seconds) {
  constexpr std::int64_t kReferenceDate = 978'307'200;
  constexpr std::int64_t kLatest = 253'402'300'799;
  if (seconds <= 0 || seconds > kLatest) return std::nullopt;
  return Date{static_cast<double>(seconds - kReferenceDate)};
}

}  // namespace wifi_profile::linux::bus
