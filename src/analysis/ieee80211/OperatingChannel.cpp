#include "analysis/ieee80211/OperatingChannel.h"

#include <algorithm>
#include <cstdlib>

namespace wifi_profile::ieee80211 {
namespace {

// The operation elements of a network. `damaged`: an element is present but cannot be parsed.
struct Operations {
  std::optional<HtOperation> ht;
  std::optional<WideOperation> vht;
  HeOperation he;
  EhtOperation eht;
  bool damaged = false;
};

template <class Parse>
auto readOne(const ElementSet& elements, Kind kind, Parse parse, bool& damaged) {
  const auto payload = elements.payload(kind);
  auto parsed = payload ? parse(*payload) : std::nullopt;
  if (!parsed && elements.has(kind)) damaged = true;
  return parsed;
}

Operations readOperations(const ElementSet& elements) {
  Operations all;
  all.ht = readOne(elements, Kind::htOperation, parseHtOperation, all.damaged);
  all.vht = readOne(elements, Kind::vhtOperation, parseVhtOperation, all.damaged);
  all.he =
      readOne(elements, Kind::heOperation, parseHeOperation, all.damaged).value_or(HeOperation{});
  all.eht = readOne(elements, Kind::ehtOperation, parseEhtOperation, all.damaged)
                .value_or(EhtOperation{});
  return all;
}

std::optional<Extent> readExtent(const ElementSet& elements, const Operations& all, Band band,
                                 int primary) {
  if (all.damaged || elements.truncated()) return std::nullopt;
  if (all.eht.wide) return extentOfEht(band, primary, *all.eht.wide, all.eht.disabled);
  if (band == Band::ghz6) return all.he.sixGhz ? extentOfSixGhz(*all.he.sixGhz) : std::nullopt;
  if (!all.ht) {
    // Without HT, no width above 20 MHz is possible.
    if (all.vht || all.he.vht || elements.has(Kind::htCapabilities)) return std::nullopt;
    return extentOfTwentyMHz(band, primary);
  }
  if (all.vht && all.he.vht && *all.vht != *all.he.vht) return std::nullopt;
  const auto vht = all.vht ? all.vht : all.he.vht;
  return vht ? extentOfVht(band, *all.ht, *vht) : extentOfHt(band, *all.ht);
}

// The channel that the elements name: 0 if none names one, empty if they contradict each other.
std::optional<int> namedPrimary(const ElementSet& elements, const Operations& all,
                                std::optional<Band> heard) {
  // A DS Parameter Set belongs to 2.4 GHz; some access points also send one in the other bands.
  const bool dsCounts = heard.value_or(Band::ghz2) == Band::ghz2;
  const bool hasDs = dsCounts && elements.has(Kind::dsParameterSet);
  const auto ds = hasDs ? elements.payload(Kind::dsParameterSet) : std::nullopt;
  if (hasDs && !ds) return std::nullopt;
  if (elements.has(Kind::htOperation) && !elements.payload(Kind::htOperation)) return std::nullopt;
  const int ofDs = ds && !ds->empty() ? ds->front() : 0;
  const int ofHt = all.ht ? all.ht->primary : 0;
  if (all.he.sixGhz) {
    // 6 GHz networks have neither DS Parameter Set nor HT Operation (802.11ax, 26.17.2.1).
    if (hasDs || elements.has(Kind::htOperation)) return std::nullopt;
    return all.he.sixGhz->primary;
  }
  if (ofDs != 0 && ofHt != 0 && ofDs != ofHt) return std::nullopt;
  return ofDs != 0 ? ofDs : ofHt;
}

}  // namespace

std::optional<OperatingChannel> readOperatingChannel(const ElementSet& elements,
                                                     std::optional<int> frequency) {
  const Operations all = readOperations(elements);
  std::optional<Band> heard;
  if (frequency) heard = bandOf(*frequency);
  const auto named = namedPrimary(elements, all, heard);
  if (!named || (frequency && !heard)) return std::nullopt;
  OperatingChannel channel;
  if (*named != 0) {
    channel.primary = *named;
    channel.band = all.he.sixGhz ? Band::ghz6 : *named <= 14 ? Band::ghz2 : Band::ghz5;
    if (heard.value_or(channel.band) != channel.band) return std::nullopt;
  } else if (heard) {
    channel.primary = channelOf(*frequency).value_or(0);
    channel.band = *heard;
  }
  if (!isTwentyMHzChannel(channel.band, channel.primary)) return std::nullopt;
  channel.extent = readExtent(elements, all, channel.band, channel.primary);
  return channel;
}

std::vector<int> overlappedChannels(const OperatingChannel& channel) {
  if (!channel.extent) return {};
  const Extent& extent = *channel.extent;
  std::vector<int> channels;
  if (channel.band == Band::ghz2) {
    constexpr int kFarEnough = 25;  // MHz
    const int secondary = extent.secondary.value_or(channel.primary);
    for (int other = 1; other <= 14; ++other) {
      const auto isNear = [&](int own) {
        return std::abs(*frequencyOf(Band::ghz2, other) - *frequencyOf(Band::ghz2, own)) <
               kFarEnough;
      };
      if (isNear(channel.primary) || isNear(secondary)) channels.push_back(other);
    }
    return channels;
  }
  const auto addAround = [&](int center, unsigned punctured) {
    const int lowest = lowestOf(extent.width, center);
    for (int i = 0; i < twentyMHzChannelsOf(extent.width); ++i) {
      if ((punctured >> static_cast<unsigned>(i) & 1U) == 0) channels.push_back(lowest + 4 * i);
    }
  };
  addAround(extent.center, extent.punctured);
  if (extent.width == Width::mhz80Plus80) addAround(extent.secondCenter, 0);
  std::ranges::sort(channels);
  return channels;
}

std::optional<bool> needsRadarDetection(const OperatingChannel& channel) {
  if (channel.band != Band::ghz5) return false;
  if (needsRadarDetection(channel.primary)) return true;
  if (!channel.extent) return std::nullopt;
  return std::ranges::any_of(overlappedChannels(channel),
                             [](int own) { return needsRadarDetection(own); });
}

}  // namespace wifi_profile::ieee80211
