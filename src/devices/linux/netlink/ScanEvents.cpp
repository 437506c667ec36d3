#include "devices/linux/netlink/ScanEvents.h"

#include <linux/nl80211.h>

namespace wifi_profile::linux::netlink {

std::optional<ScanEvents::End> ScanEvents::take(const Message& event) {
  const Attributes attributes(event.payload);
  const auto index = attributes.number<std::int32_t>(NL80211_ATTR_IFINDEX);
  // Scans without a network interface, such as a P2P device's, carry only the radio's number. They
  // keep the radio busy, but are never the interface's own.
  const bool isOfRadio = !index && which_ == ScansThat::ended &&
                         attributes.number<std::uint32_t>(NL80211_ATTR_WIPHY) == interface_.wiphy;
  if (index != interface_.index && !isOfRadio) return std::nullopt;
  if (event.command == NL80211_CMD_TRIGGER_SCAN) counts_ = true;
  if (!counts_) return std::nullopt;
  if (event.command == NL80211_CMD_NEW_SCAN_RESULTS) return End::results;
  if (event.command == NL80211_CMD_SCAN_ABORTED) return End::aborted;
  return std::nullopt;
}

}  // namespace wifi_profile::linux::netlink
