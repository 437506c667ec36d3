// Any JSON as values that managers gave over D-Bus, in which a text that begins with "0x" stands
// for bytes: facts made of them keep their ranges. And any text as resolv.conf.

#include "Require.h"
#include "analysis/facts/IpAddresses.h"
#include "devices/linux/bus/AccessPointList.h"
#include "devices/linux/bus/Iwd.h"
#include "devices/linux/bus/ProfileFacts.h"
#include "devices/linux/bus/Supplicant.h"
#include "devices/linux/bus/SystemNameServers.h"
#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"
#include "runtime/JsonReader.h"

using namespace wifi_profile;
using namespace wifi_profile::linux;

namespace {

linux::bus::BusValue bytesOf(const std::string& digits) {
  std::string bytes;
  for (std::size_t at = 2; at + 2 <= digits.size(); at += 2) {
    bytes += static_cast<char>(std::strtol(digits.substr(at, 2).c_str(), nullptr, 16));
  }
  return linux::bus::BusValue(linux::bus::BusValue::Bytes{bytes});
}

linux::bus::BusValue valueOf(const ObjectRef& json) {
  if (const auto text = as<Text>(json)) {
    // D-Bus has no NUL in its texts.
    const std::string held = text->string().c_str();  // NOLINT: cuts
    return held.starts_with("0x") ? bytesOf(held) : linux::bus::BusValue(held);
  }
  if (const auto number = as<Number>(json)) {
    return std::visit(
        [](auto held) { return linux::bus::BusValue(linux::bus::BusValue::Content(held)); },
        number->value());
  }
  linux::bus::BusValue::List list;
  linux::bus::BusValue::Map map;
  if (const auto array = as<Array>(json)) {
    for (const ObjectRef& element : array->elements()) list.push_back(valueOf(element));
    return linux::bus::BusValue(std::move(list));
  }
  if (const auto dictionary = as<Dictionary>(json)) {
    for (const auto& [key, entry] : dictionary->entries()) map[key.c_str()] = valueOf(entry);
    return linux::bus::BusValue(std::move(map));
  }
  return linux::bus::BusValue(false);
}

void check(const facts::SavedNetwork& network) {
  require(!network.ssid.empty() && network.ssid.size() <= 32, "a name has 1 to 32 bytes");
  require(network.accessPoints >= 0, "access points are counted");
}

void readNetworkManager(const linux::bus::BusValue& value) {
  if (const auto network = linux::bus::savedNetworkFrom(value)) check(*network);
  if (const auto profile =
          linux::bus::activeProfileFrom({value, value.at("device"), value.at("dhcp")})) {
    for (const auto* settings : {&profile->ipv4, &profile->ipv6}) {
      require(settings->dnsServers.size() <= 64, "servers of a profile are bounded");
    }
    const auto& url = profile->captivePortalApi;
    require(!url || (!url->empty() && url->size() <= 2048), "an address has up to 2048 bytes");
  }
  require(linux::bus::dnsServersFrom(value, value.at("ip6")).size() <= 64,
          "servers of a link are bounded");
  const auto point = linux::bus::accessPointFrom(value, std::chrono::hours(1));
  if (!point) return;
  require(point->bssid.size() == 17 && point->isSecondHand, "a BSSID is an address");
  require(!point->ssid || (!point->ssid->empty() && point->ssid->size() <= 32), "names as above");
  require(!point->signal || (*point->signal >= -100 && *point->signal <= -40), "signals are dBm");
  require(!point->age || (point->age->count() >= 0 && *point->age <= std::chrono::hours(1)),
          "it was heard since the start");
}

void readOthers(const linux::bus::BusValue& value) {
  if (const auto network = linux::bus::savedNetworkFromSupplicant(value)) check(*network);
  for (const auto& network : linux::bus::savedNetworksFromIwd(value)) check(network);
  for (const std::string& server : linux::bus::nameServersOf(3, value)) {
    require(facts::ipv4KindOf(server) || facts::ipv6KindOf(server), "servers are addresses");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  const auto servers = linux::bus::nameServersIn(text);
  require(servers.size() <= 16, "name servers of the system are bounded");
  for (const std::string& server : servers) {
    require(facts::ipv4KindOf(server) || facts::ipv6KindOf(server), "and addresses");
  }
  const auto read = runtime::readJson(text);
  if (!read) return 0;
  const linux::bus::BusValue value = valueOf(*read);
  readNetworkManager(value);
  readOthers(value);
  return 0;
}
