#include "devices/linux/netlink/ScanEntries.h"

#include <algorithm>
#include <linux/nl80211.h>
#include <unordered_map>
#include <unordered_set>

#include "analysis/ieee80211/AccessPointElements.h"
#include "analysis/ieee80211/Elements.h"
#include "devices/linux/netlink/Interfaces.h"

namespace wifi_profile::linux::netlink {

namespace {

using facts::AccessPoint;
using ieee80211::NetworkElements;
using std::chrono::milliseconds;

template <class T>
void fill(std::optional<T>& place, const std::optional<T>& value) {
  if (!place) place = value;
}

// Adds what a network's elements say, where it is not known already.
void fillFrom(AccessPoint& point, const NetworkElements& network) {
  if (!point.ssid && network.ssid && !network.ssid->hidden) point.ssid = network.ssid->name;
  if (!point.dtimPeriod && network.dtim) point.dtimPeriod = network.dtim->period;
  if (point.security == ieee80211::Security::unknown) point.security = network.security;
  if (point.rates.empty() && network.rates) {
    point.rates.assign(network.rates->supported.begin(), network.rates->supported.end());
    point.basicRates.assign(network.rates->basic.begin(), network.rates->basic.end());
  }
  if (!point.channelUtilization && network.load) {
    point.channelUtilization = network.load->channelUtilization;
  }
  if (!point.accessNetworkType && network.interworking) {
    point.accessNetworkType = network.interworking->accessNetworkType;
    point.additionalStepNeeded = network.interworking->additionalStepNeeded;
  }
  if (network.isPasspoint()) point.isPasspoint = true;
  if (network.wps) {
    fill(point.maker, network.wps->manufacturer);
    fill(point.model, network.wps->modelName);
  }
}

void fillFrom(AccessPoint& point, const ieee80211::AccessPointElements& elements) {
  fillFrom(point, elements.network);
  fill(point.channel, elements.channel);
  if (point.modes == ieee80211::PhyModes{}) point.modes = elements.modes;
  if (elements.country) fill(point.country, std::optional(elements.country->code));
}

// Whether a beacon with these elements hides the name. Empty: they have no SSID element.
std::optional<bool> hidesName(const NetworkElements& network) {
  if (!network.ssid) return std::nullopt;
  // The encrypted network of an OWE transition pair has an empty SSID, but announces the open
  // network's name.
  return network.ssid->hidden && !network.oweTransition;
}

// A network that another one's beacons announce. It is heard where and when the sender is.
std::optional<AccessPoint> announced(const AccessPoint& sender,
                                     const ieee80211::NontransmittedNetwork& other) {
  if (!other.bssid) return std::nullopt;
  AccessPoint point;
  point.bssid = addressText(*other.bssid);
  if (point.bssid == sender.bssid) return std::nullopt;
  point.transmitterBssid = sender.bssid;
  point.hidesName = hidesName(other.network);
  point.signal = sender.signal;
  point.age = sender.age;
  point.channel = sender.channel;
  point.modes = sender.modes;
  point.country = sender.country;
  point.beaconInterval = sender.beaconInterval;
  fillFrom(point, other.network);
  return point;
}

bool hasElement(ieee80211::Bytes elements, std::uint8_t id) {
  ieee80211::ElementWalker walker(elements);
  while (const auto element = walker.next()) {
    if (element->id == id) return true;
  }
  return false;
}

// Returns dBm, rounded down, so that a signal below a threshold stays below it. Empty for values
// that only a broken driver reports.
std::optional<int> signalOf(const Attributes& bss) {
  constexpr int kWeakest = -150;
  constexpr int kStrongest = 50;
  const auto hundredths = bss.number<std::int32_t>(NL80211_BSS_SIGNAL_MBM);
  if (!hundredths) return std::nullopt;
  const int signal = *hundredths / 100 - (*hundredths % 100 < 0 ? 1 : 0);
  if (signal < kWeakest || signal > kStrongest) return std::nullopt;
  return signal;
}

std::optional<milliseconds> ageOf(const Attributes& bss, std::chrono::nanoseconds sinceBoot) {
  if (const auto heard = bss.number<std::uint64_t>(NL80211_BSS_LAST_SEEN_BOOTTIME)) {
    const auto now = static_cast<std::uint64_t>(std::max<std::int64_t>(sinceBoot.count(), 0));
    // A time in the future: the access point was heard after `sinceBoot` was read.
    const std::uint64_t nanoseconds = now > *heard ? now - *heard : 0;
    return milliseconds(static_cast<std::int64_t>(nanoseconds / 1'000'000));
  }
  if (const auto ago = bss.number<std::uint32_t>(NL80211_BSS_SEEN_MS_AGO))
    return milliseconds(*ago);
  return std::nullopt;
}

bool isJoined(const Attributes& bss) {
  const std::uint32_t status =
      bss.number<std::uint32_t>(NL80211_BSS_STATUS).value_or(NL80211_BSS_STATUS_AUTHENTICATED);
  return status == NL80211_BSS_STATUS_ASSOCIATED || status == NL80211_BSS_STATUS_IBSS_JOINED;
}

// Whether `one` is the entry to keep, of two with the same BSSID.
bool isBetter(const ScanEntry& one, const ScanEntry& other) {
  const bool named = one.accessPoint.ssid.has_value();
  if (named != other.accessPoint.ssid.has_value()) return named;
  if (one.joined != other.joined) return one.joined;
  return one.age && (!other.age || *one.age < *other.age);
}

// Returns the BSSIDs that are heard without scans: the joined one and those that share beacons with
// it.
std::unordered_set<std::string> heardAlways(const std::vector<ScanEntry>& entries) {
  std::unordered_set<std::string> always;
  for (const ScanEntry& entry : entries) {
    if (entry.joined) always.insert(entry.accessPoint.bssid);
  }
  const std::unordered_set<std::string> joined = always;
  for (const ScanEntry& entry : entries) {
    const auto isJoinedTo = [&joined](const auto& other) { return joined.contains(other.bssid); };
    if (!isJoinedTo(entry.accessPoint) && std::ranges::none_of(entry.others, isJoinedTo)) continue;
    always.insert(entry.accessPoint.bssid);
    for (const AccessPoint& other : entry.others) always.insert(other.bssid);
  }
  return always;
}

std::optional<milliseconds> ageOf(const std::vector<ScanEntry>& entries) {
  const auto always = heardAlways(entries);
  std::optional<milliseconds> youngest;
  for (const ScanEntry& entry : entries) {
    if (!entry.age || always.contains(entry.accessPoint.bssid)) continue;
    youngest = youngest ? std::min(*youngest, *entry.age) : *entry.age;
  }
  return youngest;
}

class ListMaker {
 public:
  void add(ScanEntry&& entry) {
    const auto [place, isNew] = places_.try_emplace(entry.accessPoint.bssid, entries_.size());
    if (isNew && entries_.size() < kMostAccessPoints) {
      entries_.push_back(std::move(entry));
    } else if (isNew) {
      places_.erase(place);
    } else {
      join(entries_[place->second], std::move(entry));
    }
  }

  // Adds the networks that the entries announce. Call it after all entries were added.
  void addAnnounced() {
    const std::size_t count = entries_.size();
    for (std::size_t at = 0; at < count; ++at) {
      const std::vector<AccessPoint> others = std::move(entries_[at].others);
      for (const AccessPoint& other : others) addAnnounced(other);
    }
  }

  facts::Scan scan() && {
    facts::Scan scan;
    scan.accessPoints.reserve(entries_.size());
    for (ScanEntry& entry : entries_) scan.accessPoints.push_back(std::move(entry.accessPoint));
    return scan;
  }

 private:
  static void join(ScanEntry& kept, ScanEntry&& other) {
    // The kernel lists a hidden network twice once its name is known: without the name, and with
    // it.
    const auto hides = std::max(kept.accessPoint.hidesName, other.accessPoint.hidesName);
    if (isBetter(other, kept)) std::swap(kept, other);
    kept.accessPoint.hidesName = hides;
    fill(kept.accessPoint.dtimPeriod, other.accessPoint.dtimPeriod);
    fill(kept.accessPoint.country, other.accessPoint.country);
  }

  void addAnnounced(const AccessPoint& other) {
    const auto place = places_.find(other.bssid);
    if (place == places_.end()) {
      ScanEntry entry;
      entry.accessPoint = other;
      entry.nontransmitted = true;
      add(std::move(entry));
      return;
    }
    ScanEntry& entry = entries_[place->second];
    // Any sender can announce another access point's address.
    if (!entry.nontransmitted) return;
    fill(entry.accessPoint.transmitterBssid, other.transmitterBssid);
    // The kernel's entry has inherited the sender's traffic indication map.
    if (other.dtimPeriod) entry.accessPoint.dtimPeriod = other.dtimPeriod;
  }

  std::vector<ScanEntry> entries_;
  std::unordered_map<std::string, std::size_t> places_;  // index in `entries_`, by BSSID
};

}  // namespace

std::optional<ScanEntry> scanEntryOf(const Attributes& bss, std::chrono::nanoseconds sinceBoot) {
  const ieee80211::Bytes bssid = bss.find(NL80211_BSS_BSSID).value_or(ieee80211::Bytes());
  ScanEntry entry;
  AccessPoint& point = entry.accessPoint;
  point.bssid = addressText(bssid);
  if (point.bssid.empty()) return std::nullopt;

  ieee80211::ReceivedFrame frame;
  frame.bssid.emplace();
  std::copy_n(bssid.begin(), frame.bssid->size(), frame.bssid->begin());
  frame.capabilities = bss.number<std::uint16_t>(NL80211_BSS_CAPABILITY).value_or(0);
  const auto frequency = bss.number<std::int32_t>(NL80211_BSS_FREQUENCY);
  if (frequency && *frequency > 0) entry.frequency = frame.frequency = *frequency;
  point.signal = signalOf(bss);
  const auto interval = bss.number<std::uint16_t>(NL80211_BSS_BEACON_INTERVAL);
  if (interval && *interval > 0) point.beaconInterval = *interval;
  entry.joined = isJoined(bss);
  entry.age = point.age = ageOf(bss, sinceBoot);

  // The elements of the newest frame; of a probe response if one was heard.
  const ieee80211::Bytes newest =
      bss.find(NL80211_BSS_INFORMATION_ELEMENTS).value_or(ieee80211::Bytes());
  const auto beacon = bss.find(NL80211_BSS_BEACON_IES);
  frame.elements = newest;
  const auto fromNewest = ieee80211::parseAccessPointElements(frame);
  const bool beaconIsNewest = !bss.has(NL80211_BSS_PRESP_DATA);
  fillFrom(point, fromNewest);
  const ieee80211::AccessPointElements* all = &fromNewest;
  ieee80211::AccessPointElements fromBeacon;
  if (beacon && !ieee80211::areEqual(*beacon, newest)) {
    frame.elements = *beacon;
    fromBeacon = ieee80211::parseAccessPointElements(frame);
    fillFrom(point, fromBeacon);
    if (fromBeacon.network.ssid) point.hidesName = hidesName(fromBeacon.network);
    if (all->others.empty()) all = &fromBeacon;
  } else if ((beacon || beaconIsNewest) && fromNewest.network.ssid) {
    point.hidesName = hidesName(fromNewest.network);
  }
  entry.nontransmitted = hasElement(newest, ieee80211::kMultipleBssidIndexId);
  for (const auto& other : all->others) {
    if (entry.others.size() == ScanEntry::kMostAnnounced) break;
    if (auto known = announced(point, other)) entry.others.push_back(std::move(*known));
  }
  return entry;
}

milliseconds wholeFor(const ScanList& list) {
  return list.joinedBssid ? kKernelKeeps - kLongestScan : kKernelKeeps - kLongestScanAlone;
}

void removeOlderThan(milliseconds age, std::vector<ScanEntry>& entries) {
  const auto always = heardAlways(entries);
  std::erase_if(entries, [&](const ScanEntry& entry) {
    return entry.age > age && !always.contains(entry.accessPoint.bssid);
  });
}

ScanList scanListOf(std::vector<ScanEntry> entries) {
  ScanList list;
  list.age = ageOf(entries);
  const auto joined = std::ranges::find_if(entries, &ScanEntry::joined);
  if (joined != entries.end()) list.joinedBssid = joined->accessPoint.bssid;
  ListMaker maker;
  for (ScanEntry& entry : entries) maker.add(std::move(entry));
  maker.addAnnounced();
  list.scan = std::move(maker).scan();
  return list;
}

}  // namespace wifi_profile::linux::netlink
