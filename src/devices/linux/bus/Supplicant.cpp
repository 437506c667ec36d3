#include "devices/linux/bus/Supplicant.h"

#include <algorithm>
#include <charconv>

#include "analysis/ieee80211/Network.h"
#include "devices/linux/bus/ProfileFacts.h"
#include "devices/linux/bus/ProfileSecurity.h"
#include "devices/linux/bus/Services.h"

namespace wifi_profile::linux::bus {

using facts::SavedNetwork;

namespace {

constexpr auto kRootPath = "/fi/w1/wpa_supplicant1";
constexpr auto kRoot = "fi.w1.wpa_supplicant1";
constexpr auto kInterface = "fi.w1.wpa_supplicant1.Interface";
constexpr auto kNetwork = "fi.w1.wpa_supplicant1.Network";

std::optional<std::string> bytesOfHex(std::string_view digits) {
  if (digits.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  for (; !digits.empty(); digits.remove_prefix(2)) {
    unsigned char byte = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + 2, byte, 16);
    if (read.ptr != digits.data() + 2) return std::nullopt;
    bytes.push_back(static_cast<char>(byte));
  }
  return bytes;
}

// Parses a name in quotes, or its bytes in hexadecimal.
std::optional<std::string> ssidFrom(std::string_view text) {
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  auto ssid = quoted ? std::string(text.substr(1, text.size() - 2)) : bytesOfHex(text);
  return ssid && !ssid->empty() && ssid->size() <= ieee80211::kLongestSsid ? ssid : std::nullopt;
}

}  // namespace

std::optional<SavedNetwork> savedNetworkFromSupplicant(const BusValue& properties) {
  const auto ssid = ssidFrom(properties.at("ssid").text().value_or(""));
  if (!ssid) return std::nullopt;
  SavedNetwork network;
  network.ssid = *ssid;
  network.security = securityFromSupplicant(properties);
  network.isHidden = properties.at("scan_ssid").text() == "1";
  network.joinsByItself = properties.at("disabled").text() != "1";
  return network;
}

Result<Supplicant::Object> Supplicant::find(const std::string& interface,
                                            const Deadline& deadline) {
  const BusAnswer owner = bus_.ownerOf(kSupplicant.busName, deadline);
  if (!owner.isGood()) return unknownFrom(owner, kSupplicant);
  const std::string name = owner.first().text().value_or("");
  const BusAnswer answer =
      bus_.call({name, kRootPath, kRoot, "GetInterface", {interface}}, deadline);
  if (const auto path = answer.first().text()) return Object{name, *path};
  if (answer.error && answer.error->kind == BusError::Kind::noSuchThing) {
    return Error{Reason::noHardware, "wpa_supplicant does not take care of " + interface + "."};
  }
  return unknownFrom(answer, kSupplicant);
}

Result<bool> Supplicant::manages(const std::string& interface, const Deadline& deadline) {
  const auto object = find(interface, deadline);
  if (object) return true;
  if (object.error().reason == Reason::noHardware) return false;
  return object.error();
}

Result<std::vector<SavedNetwork>> Supplicant::savedNetworks(const std::string& interface,
                                                            const Deadline& deadline) {
  const auto object = find(interface, deadline);
  if (!object) return object.error();
  const BusAnswer listed =
      bus_.call(getProperty(object->owner, object->path, kInterface, "Networks"), deadline);
  if (!listed.isGood()) return unknownFrom(listed, kSupplicant);
  const BusValue::List& paths = listed.first().list();
  const std::size_t count = std::min(paths.size(), kLongestBusList);
  std::vector<SavedNetwork> networks;
  for (std::size_t begin = 0; begin < count; begin += Bus::kCallsAtATime) {
    std::vector<BusCall> calls;
    for (std::size_t index = begin; index < std::min(count, begin + Bus::kCallsAtATime); ++index) {
      calls.push_back(
          getProperty(object->owner, paths[index].text().value_or(""), kNetwork, "Properties"));
    }
    for (const BusAnswer& answer : bus_.call(calls, deadline)) {
      if (answer.error && answer.error->kind != BusError::Kind::noSuchThing) {
        return unknownFrom(answer, kSupplicant);
      }
      if (auto network = savedNetworkFromSupplicant(answer.first())) {
        networks.push_back(std::move(*network));
      }
    }
  }
  return networks;
}

Result<ScanStart> Supplicant::requestScan(const std::string& interface, const Deadline& deadline) {
  const auto object = find(interface, deadline);
  if (!object) return object.error();
  const BusAnswer answer =
      bus_.call({object->owner, object->path, kInterface, "Scan", {BusOptions{{"Type", "active"}}}},
                deadline);
  if (answer.isGood()) return ScanStart::started;
  if (answer.error->name.ends_with(".ScanError")) return ScanStart::tooSoon;
  return unknownFrom(answer, kSupplicant);
}

}  // namespace wifi_profile::linux::bus
