#include "devices/linux/netlink/LinkEntries.h"

#include <linux/nl80211.h>

namespace wifi_profile::linux::netlink {

namespace {

// Keeps positive numbers only; zero means that the driver does not know.
std::optional<int> positive(std::optional<int> number) {
  return number && *number > 0 ? number : std::nullopt;
}

std::optional<int> linkSignalOf(const Attributes& information) {
  for (const int type :
       {NL80211_STA_INFO_BEACON_SIGNAL_AVG, NL80211_STA_INFO_SIGNAL_AVG, NL80211_STA_INFO_SIGNAL}) {
    // A signed octet. Drivers report 0 before they have measured.
    const auto signal = information.number<std::int8_t>(type);
    if (signal && *signal != 0) return *signal;
  }
  return std::nullopt;
}

bool isDirectLink(const Attributes& information) {
  const auto flags = information.find(NL80211_STA_INFO_STA_FLAGS);
  nl80211_sta_flag_update update{};
  if (!flags || flags->size() < sizeof update) return false;
  std::memcpy(&update, flags->data(), sizeof update);
  return (update.mask & update.set & (1U << NL80211_STA_FLAG_TDLS_PEER)) != 0;
}

}  // namespace

std::optional<StationEntry> stationEntryOf(const Attributes& attributes) {
  StationEntry entry;
  entry.address = addressText(attributes.find(NL80211_ATTR_MAC).value_or(ieee80211::Bytes()));
  const Attributes information = attributes.nested(NL80211_ATTR_STA_INFO);
  if (entry.address.empty() || isDirectLink(information)) return std::nullopt;
  entry.signal = linkSignalOf(information);
  const Attributes parameters = information.nested(NL80211_STA_INFO_BSS_PARAM);
  entry.beaconInterval =
      positive(parameters.number<std::uint16_t>(NL80211_STA_BSS_PARAM_BEACON_INTERVAL));
  entry.dtimPeriod = positive(parameters.number<std::uint8_t>(NL80211_STA_BSS_PARAM_DTIM_PERIOD));
  return entry;
}

std::optional<facts::Link> linkOf(const WifiInterface& interface,
                                  const std::optional<StationEntry>& station,
                                  const std::optional<ScanEntry>& joined) {
  // The stations of an access point are its clients.
  if (!station || interface.role != facts::RadioInterface::Role::station) return std::nullopt;
  facts::Link link;
  link.interface = interface.name;
  link.bssid = station->address;
  link.signal = station->signal;
  link.frequency = interface.frequency;
  link.beaconInterval = station->beaconInterval;
  link.dtimPeriod = station->dtimPeriod;
  if (interface.ssid) link.ssid = *interface.ssid;
  if (joined) {
    const facts::AccessPoint& point = joined->accessPoint;
    link.bssid = point.bssid;
    if (link.ssid.empty()) link.ssid = point.ssid.value_or("");
    if (!link.signal) link.signal = point.signal;
    if (!link.frequency) link.frequency = joined->frequency;
    if (!link.beaconInterval) link.beaconInterval = point.beaconInterval;
    if (!link.dtimPeriod) link.dtimPeriod = point.dtimPeriod;
  }
  if (link.ssid.empty()) return std::nullopt;
  return link;
}

void LinkEvents::add(const LinkEvents& more) {
  lost |= more.lost;
  joined |= more.joined;
  changedChannel |= more.changedChannel;
  missed |= more.missed;
}

void addToLinkEvents(const Message& event, const WifiInterface& interface, LinkEvents& events) {
  const Attributes attributes(event.payload);
  if (attributes.number<std::int32_t>(NL80211_ATTR_IFINDEX) != interface.index) return;
  switch (event.command) {
    case NL80211_CMD_DISCONNECT:
      events.lost = true;
      return;
    case NL80211_CMD_CONNECT:
      if (attributes.number<std::uint16_t>(NL80211_ATTR_STATUS_CODE).value_or(0) == 0) {
        events.joined = true;
      }
      return;
    case NL80211_CMD_ROAM:
      events.joined = true;
      return;
    case NL80211_CMD_CH_SWITCH_NOTIFY:
      events.changedChannel = true;
      return;
    default:
      return;
  }
}

}  // namespace wifi_profile::linux::netlink
