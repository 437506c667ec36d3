#include "analysis/checks/ChannelLoad.h"

#include <algorithm>
#include <map>
#include <string>
#include <tuple>
#include <utility>

namespace wifi_profile::checks {
namespace {

using ieee80211::Band;
using ieee80211::OperatingChannel;

// A beacon interval of 100 TU is 102.4 ms. A shorter listening time misses networks.
constexpr std::chrono::milliseconds kLongEnough{103};
// From this strength on, a radio must wait for a frame of another radio that it can decode (20 MHz
// OFDM).
constexpr int kHeardWell = -82;  // dBm
// Frames on another channel cannot be decoded, so a radio does not wait for them but collides.
constexpr double kOverlapping = 1.5;

// Identifies the access point device and its channel. Networks of one device have addresses that
// differ only in the first octet and the last four bits, or name the network that announces them.
using BoxKey = std::tuple<Band, int, std::string>;

BoxKey boxOf(const facts::AccessPoint& accessPoint, const OperatingChannel& channel) {
  constexpr std::size_t kLength = 17;
  const std::string& address = accessPoint.transmitterBssid.value_or(accessPoint.bssid);
  return {channel.band, channel.primary,
          address.size() == kLength ? address.substr(3, kLength - 4) : address};
}

// Returns all 20 MHz channels that a network disturbs. If its width is unknown, assumes 20 MHz.
std::vector<int> disturbedBy(const OperatingChannel& channel) {
  if (channel.extent) return ieee80211::overlappedChannels(channel);
  return ieee80211::overlappedChannels(
      {.band = channel.band,
       .primary = channel.primary,
       .extent = ieee80211::extentOfTwentyMHz(channel.band, channel.primary)});
}

bool isOn(const facts::AccessPoint& accessPoint, Band band, int channel) {
  return accessPoint.channel && accessPoint.channel->band == band &&
         accessPoint.channel->primary == channel;
}

// Returns the busy share of one channel. Empty if the survey is too short or inconsistent.
std::optional<double> shareOf(const facts::ChannelSurvey& survey) {
  if (!survey.active || !survey.busy) return std::nullopt;
  // A radio sends almost nothing on a channel where it only listens. On the channel in use, its own
  // frames matter.
  if (!survey.transmit && survey.inUse) return std::nullopt;
  const auto none = std::chrono::milliseconds(0);
  const auto transmit = survey.transmit.value_or(none);
  const auto receive = survey.receive.value_or(none);
  const auto own = transmit + receive;
  if (transmit < none || receive < none || *survey.busy < own || *survey.active < *survey.busy) {
    return std::nullopt;
  }
  if (*survey.active - own < kLongEnough) return std::nullopt;
  const auto others = static_cast<double>((*survey.busy - own).count());
  return others / static_cast<double>((*survey.active - own).count());
}

}  // namespace

ChannelLoads::ChannelLoads(const Question& question, const Subject* subject)
    : facts_(question.facts),
      settings_(question.settings),
      own_(subject ? subject->heard : nullptr),
      current_(subject ? channelOf(*subject) : std::nullopt) {
  if (!whyNotWhole(facts_.scan)) collectBoxes(question, subject);
}

void ChannelLoads::collectBoxes(const Question& question, const Subject* subject) {
  std::map<BoxKey, Box> boxes;
  for (const facts::AccessPoint& accessPoint : facts_.scan->accessPoints) {
    if (!accessPoint.channel || accessPoint.signal.value_or(kHeardWell) < kHeardWell) continue;
    const OperatingChannel& channel = *accessPoint.channel;
    Box& box = boxes[boxOf(accessPoint, channel)];
    if (accessPoint.signal) box.isHeardWell = true;
    box.band = channel.band;
    box.primary = channel.primary;
    const auto disturbed = disturbedBy(channel);
    box.overlapped.insert(disturbed.begin(), disturbed.end());
  }
  if (subject) {
    for (const facts::AccessPoint* own : accessPointsNamedLike(question, *subject)) {
      if (!own->channel) continue;
      const auto found = boxes.find(boxOf(*own, *own->channel));
      if (found != boxes.end()) found->second.isOwn = true;
    }
    if (own_ && own_->channel) boxes.erase(boxOf(*own_, *own_->channel));
  }
  for (auto& [key, box] : boxes) boxes_.push_back(std::move(box));
}

std::optional<double> ChannelLoads::busyShare(Band band, int channel) const {
  const auto frequency = ieee80211::frequencyOf(band, channel);
  if (!facts_.surveys || !frequency) return std::nullopt;
  std::optional<double> most;
  for (const facts::ChannelSurvey& survey : *facts_.surveys) {
    if (survey.frequency == *frequency) most = std::max(most, shareOf(survey));
  }
  return most;
}

std::optional<double> ChannelLoads::utilization(Band band, int channel) const {
  if (own_ && isOn(*own_, band, channel) && own_->channelUtilization) {
    return *own_->channelUtilization;
  }
  if (whyNotWhole(facts_.scan)) return std::nullopt;
  std::optional<double> most;
  for (const facts::AccessPoint& accessPoint : facts_.scan->accessPoints) {
    if (!isOn(accessPoint, band, channel) || !accessPoint.channelUtilization) continue;
    if (accessPoint.signal.value_or(kHeardWell) < kHeardWell) continue;
    most = std::max(most, std::optional<double>(*accessPoint.channelUtilization));
  }
  return most;
}

std::optional<double> ChannelLoads::neighbours(Band band, int channel, Counted counted) const {
  if (whyNotWhole(facts_.scan)) return std::nullopt;
  double count = 0;
  bool areAllStrengthsKnown = true;
  for (const Box& box : boxes_) {
    if (box.band != band || (box.isOwn && counted == Counted::others)) continue;
    const bool isHere = box.primary == channel;
    if (!isHere && !box.overlapped.contains(channel)) continue;
    if (box.isHeardWell) {
      count += isHere ? 1 : kOverlapping;
    } else {
      areAllStrengthsKnown = false;
    }
  }
  // If the channel already has too many, further boxes do not change the answer.
  if (!areAllStrengthsKnown && count <= settings_.congestedNeighbours) return std::nullopt;
  return count;
}

std::optional<double> ChannelLoads::amount(Measure measure, Band band, int channel,
                                           Counted counted) const {
  switch (measure) {
    case Measure::busyTime:
      return busyShare(band, channel);
    case Measure::utilization:
      return utilization(band, channel);
    case Measure::neighbours:
      break;
  }
  return neighbours(band, channel, counted);
}

std::optional<Load> ChannelLoads::of(Band band, int channel) const {
  for (const Measure measure : kMeasures) {
    if (const auto known = amount(measure, band, channel, Counted::others))
      return Load{measure, *known};
  }
  return std::nullopt;
}

bool ChannelLoads::isCongested(const Load& load) const {
  switch (load.measure) {
    case Measure::busyTime:
      return load.amount >= settings_.congestedBusyShare;
    case Measure::utilization:
      return load.amount >= settings_.congestedUtilization;
    case Measure::neighbours:
      break;
  }
  return load.amount > settings_.congestedNeighbours;
}

std::optional<bool> ChannelLoads::isCongested(Band band, const Candidate& candidate) const {
  bool areAllKnown = true;
  for (const int channel : candidate) {
    const auto load = of(band, channel);
    if (!load) areAllKnown = false;
    if (load && isCongested(*load)) return true;
  }
  return areAllKnown ? std::optional(false) : std::nullopt;
}

std::optional<double> ChannelLoads::worstAmount(Measure measure, Band band,
                                                const Candidate& candidate) const {
  std::optional<double> worst;
  for (const int channel : candidate) {
    const auto known = amount(measure, band, channel, Counted::all);
    if (!known) return std::nullopt;
    worst = std::max(worst, known);
  }
  return worst;
}

std::optional<int> ChannelLoads::best(Band band, const std::vector<Candidate>& candidates) const {
  const auto isElsewhere = [&](const Candidate& candidate) {
    return !current_ || current_->band != band ||
           std::ranges::find(candidate, current_->primary) == candidate.end();
  };
  for (const Measure measure : kMeasures) {
    using Rank = std::tuple<bool, double, bool>;  // the least is best
    std::optional<std::pair<Rank, int>> best;
    bool isKnownForAll = true;
    for (const Candidate& candidate : candidates) {
      const auto worst = worstAmount(measure, band, candidate);
      if (!worst) {
        isKnownForAll = false;
        break;
      }
      const Rank rank(isCongested(band, candidate) == true, *worst, isElsewhere(candidate));
      if (!best || rank < best->first) best = {rank, candidate.front()};
    }
    if (isKnownForAll && best) return best->second;
  }
  return std::nullopt;
}

}  // namespace wifi_profile::checks
