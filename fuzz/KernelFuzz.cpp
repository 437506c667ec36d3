// Any bytes as what the kernel says: whatever they are, the facts keep their ranges.

#include <algorithm>
#include <cstring>
#include <linux/nl80211.h>
#include <linux/rtnetlink.h>
#include <set>

#include "Require.h"
#include "devices/linux/Rfkill.h"
#include "devices/linux/netlink/Addresses.h"
#include "devices/linux/netlink/Carrier.h"
#include "devices/linux/netlink/LinkEntries.h"
#include "devices/linux/netlink/RadioEntries.h"
#include "devices/linux/netlink/ScanEntries.h"

using namespace wifi_profile;
using namespace wifi_profile::linux;

namespace {

// The first octet of an input: what reads the rest.
enum class Reader : std::uint8_t { scanEntry, others, addresses, rfkill };
constexpr std::uint8_t kReaders = 4;

bool isName(const std::string& name) { return !name.empty() && name.size() <= 32; }
bool isAddress(const std::string& text) { return text.size() == 17; }

// The attributes at the top are entries, one each.
void readScan(ieee80211::Bytes bytes) {
  std::vector<linux::netlink::ScanEntry> entries;
  for (const linux::netlink::Attribute& one : linux::netlink::Attributes(bytes)) {
    auto entry = linux::netlink::scanEntryOf(linux::netlink::Attributes(one.payload),
                                             std::chrono::seconds(1000));
    if (!entry) continue;
    require(entry->others.size() <= linux::netlink::ScanEntry::kMostAnnounced,
            "others are bounded");
    require(!entry->age || entry->age->count() >= 0, "ages are not negative");
    linux::netlink::WifiInterface station;
    station.role = facts::RadioInterface::Role::station;
    linux::netlink::linkOf(station, linux::netlink::StationEntry{}, entry);
    entries.push_back(std::move(*entry));
  }
  const auto list = linux::netlink::scanListOf(std::move(entries));
  std::set<std::string> seen;
  for (const facts::AccessPoint& point : list.scan.accessPoints) {
    require(seen.insert(point.bssid).second, "each BSSID comes once");
    require(isAddress(point.bssid), "a BSSID is an address");
    require(!point.ssid || isName(*point.ssid), "a name has 1 to 32 bytes");
    require(!point.transmitterBssid || isAddress(*point.transmitterBssid), "a sender has one, too");
    require(!point.dtimPeriod || *point.dtimPeriod > 0, "a DTIM period is positive");
    require(!point.beaconInterval || *point.beaconInterval > 0, "so is a beacon interval");
  }
}

void readOthers(ieee80211::Bytes bytes) {
  const linux::netlink::Attributes attributes(bytes);
  if (const auto one = linux::netlink::interfaceOf(attributes)) {
    require(!one->ssid || isName(*one->ssid), "a joined network has a name");
  }
  const auto station = linux::netlink::stationEntryOf(attributes);
  require(!station || isAddress(station->address), "a station has an address");
  facts::Radio radio;
  linux::netlink::addToRadio(attributes, radio);
  linux::netlink::finishChannels(radio);
  require(radio.channels.size() <= 1024, "channels are bounded");
  if (const auto survey = linux::netlink::surveyOf(attributes)) {
    require(!survey->busy || survey->busy <= survey->active, "busy is part of the time");
  }
  const auto regulatory = linux::netlink::regulatoryOf(attributes);
  require(!regulatory || regulatory->country.size() == 2, "a country has two letters");
}

// Two interfaces, one in each half.
void requireCarrierAmong(const std::vector<std::uint8_t>& bytes) {
  const auto middle = bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() / 2);
  const std::vector<linux::netlink::Message> links{
      {.type = RTM_NEWLINK, .payload = {bytes.begin(), middle}},
      {.type = RTM_NEWLINK, .payload = {middle, bytes.end()}}};
  const auto carrier = linux::netlink::carrierOf(4, links);
  const auto isCarrier = [&](const linux::netlink::Message& link) {
    ifinfomsg fields{};
    if (link.payload.size() < sizeof fields) return false;
    std::memcpy(&fields, link.payload.data(), sizeof fields);
    return fields.ifi_index == carrier->index;
  };
  require(!carrier || std::ranges::any_of(links, isCarrier), "a carrier is one of the interfaces");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  if (size == 0) return 0;
  const ieee80211::Bytes bytes(data + 1, size - 1);
  switch (static_cast<Reader>(*data % kReaders)) {
    case Reader::scanEntry:
      readScan(bytes);
      break;
    case Reader::others:
      readOthers(bytes);
      break;
    case Reader::addresses: {
      const std::vector<std::uint8_t> payload(bytes.begin(), bytes.end());
      linux::netlink::addressesOf(4, {{.type = RTM_NEWADDR, .payload = payload}},
                                  {{.type = RTM_NEWROUTE, .payload = payload}});
      requireCarrierAmong(payload);
      break;
    }
    case Reader::rfkill:
      require(!linux::parseRfkillEvent(bytes) || bytes.size() >= 8, "an event has 8 bytes");
      break;
  }
  return 0;
}
