#include <array>
#include <vector>

#include "analysis/checks/Answers.h"
#include "analysis/checks/ChannelLoad.h"
#include "analysis/checks/Rows.h"

namespace wifi_profile::checks {
namespace {

using ieee80211::Band;
using Candidates = std::vector<Candidate>;

bool isAllowed(const facts::RadioChannel& channel, Band band) {
  if (channel.disabled || ieee80211::bandOf(channel.frequency) != band) return false;
  const auto number = ieee80211::channelOf(channel.frequency);
  return number && ieee80211::isTwentyMHzChannel(band, *number);
}

// In order; channels with radar detection only on request.
std::set<int> allowedChannels(const facts::Radio& radio, Band band, bool withRadarDetection) {
  std::set<int> channels;
  for (const facts::RadioChannel& channel : radio.channels) {
    if (!isAllowed(channel, band) || (channel.radarDetection && !withRadarDetection)) continue;
    channels.insert(*ieee80211::channelOf(channel.frequency));
  }
  return channels;
}

// The channels that do not overlap.
Candidates candidatesOf2GHz(const facts::Radio& radio) {
  Candidates candidates;
  const auto allowed = allowedChannels(radio, Band::ghz2, true);
  for (const int channel : {1, 6, 11}) {
    if (allowed.contains(channel)) candidates.push_back({channel});
  }
  return candidates;
}

Candidates candidatesOf5GHz(const facts::Radio& radio, bool withRadarDetection) {
  Candidates candidates;
  for (const int channel : allowedChannels(radio, Band::ghz5, withRadarDetection)) {
    candidates.push_back({channel});
  }
  return candidates;
}

Candidates candidatesOf40MHz(const facts::Radio& radio) {
  Candidates candidates;
  const auto allowed = allowedChannels(radio, Band::ghz5, true);
  for (const int channel : allowed) {
    if (ieee80211::isWideChannel(Band::ghz5, channel, 2) && allowed.contains(channel + 4)) {
      candidates.push_back({channel, channel + 4});
    }
  }
  return candidates;
}

// Recommends no channel if the allowed channels are unknown.
Dictionary::Entries recommendations(const facts::Facts& facts, const ChannelLoads& loads) {
  Dictionary::Entries info;
  if (!facts.radio) return info;
  const auto recommend = [&](const char* key, Band band, const Candidates& candidates) {
    const auto best = loads.best(band, candidates);
    if (best) info[key] = std::make_shared<const ChannelRecord>(*best);
  };
  recommend("2GHzChannel", Band::ghz2, candidatesOf2GHz(*facts.radio));
  recommend("5GHzChannel", Band::ghz5, candidatesOf5GHz(*facts.radio, true));
  recommend("5GHz40MHzChannel", Band::ghz5, candidatesOf40MHz(*facts.radio));
  recommend("5GHzNonDFSChannel", Band::ghz5, candidatesOf5GHz(*facts.radio, false));
  return info;
}

// Returns why a channel has no measure.
Error whyNoLoad(const facts::Facts& facts) {
  if (auto why = whyNotWhole(facts.scan)) return *std::move(why);
  return notTold(
      "The driver reports neither how busy the channels are nor how strong all access points are "
      "heard: another adapter may.");
}

Answer congestedChannel(const Question& question) {
  return aboutSubject(question, [&](const Subject& subject) -> Answer {
    // The link changed, so the scan and the surveys belong to different channels or access points.
    const auto& surveys = question.facts.surveys;
    if (subject.link && !surveys && surveys.error().reason == Reason::linkChanged) {
      return surveys.error();
    }
    const auto channel = channelOf(subject);
    if (!channel) {
      if (!subject.heard) return subject.notHeard;
      return notTold("Neither the access point nor the driver reports the channel.");
    }
    const ChannelLoads loads(question, &subject);
    const auto load = loads.of(channel->band, channel->primary);
    if (!load) return whyNoLoad(question.facts);
    auto info = recommendations(question.facts, loads);
    info["CurrentChannel"] = std::make_shared<const ChannelRecord>(channel->primary);
    return finding(loads.isCongested(*load), std::move(info));
  });
}

// A band is crowded if all its channels are: no other channel would help.
Answer congestedBand(const Question& question, Band band) {
  const facts::Facts& facts = question.facts;
  if (!facts.radio) return facts.radio.error();
  const auto candidates =
      band == Band::ghz2 ? candidatesOf2GHz(*facts.radio) : candidatesOf5GHz(*facts.radio, true);
  if (candidates.empty()) {
    return Error{Reason::notSupported,
                 "The radio, or the law of the country it is set to, has none of the channels "
                 "that count in this band: use another adapter, or check the country."};
  }
  const Result<Subject> subject = subjectOf(question);
  const ChannelLoads loads(question, subject ? &*subject : nullptr);
  bool areAllKnown = true;
  for (const Candidate& candidate : candidates) {
    const auto isCongested = loads.isCongested(band, candidate);
    if (isCongested == false) return finding(false, recommendations(facts, loads));
    if (!isCongested) areAllKnown = false;
  }
  if (!areAllKnown) return whyNoLoad(facts);
  return finding(true, recommendations(facts, loads));
}

Answer congested2GHz(const Question& question) { return congestedBand(question, Band::ghz2); }
Answer congested5GHz(const Question& question) { return congestedBand(question, Band::ghz5); }

constexpr std::string_view kFrom =
    "the first of these that is known: (1) the difference of two surveys, one before and one after "
    "the scan, at least 1 s apart (NL80211_SURVEY_INFO_TIME and _TIME_BUSY, without the own "
    "network's _TIME_TX and _TIME_BSS_RX); there is none for a channel that was listened to for "
    "less than 103 ms in between, nor for the channel in use if its _TIME_TX is not reported; (2) "
    "the BSS Load element (the network's own, else the highest of those received with at least -82 "
    "dBm); (3) the access points of the scan. Allowed channels: NL80211_BAND_ATTR_FREQS";
constexpr std::string_view kThreshold =
    "busy at least 0.7 of the time (`congestedBusyShare`), utilization at least 192 of 255 "
    "(`congestedUtilization`), or more than 6 access points of others (`congestedNeighbours`)";

constexpr std::array kCongestionRows{
    Check{.id = DiagnosticsTestID::CongestedChannel,
          .answer = congestedChannel,
          .needs = {facts::Fact::link, facts::Fact::scan, facts::Fact::surveys, facts::Fact::radio},
          .measures =
              "How busy the network's primary 20 MHz channel is. Each access point device received "
              "with at least -82 dBm counts once: 1 on this channel, 1.5 if it only overlaps it. "
              "Those of the network itself do not count. The recommended channel is the least busy "
              "of its class, compared by one measure for all; for it, other access points of the "
              "network count as well, and channels that are known to be crowded come last.",
          .from = kFrom,
          .threshold = kThreshold,
          .why = "The shares and the count are this project's choice. BSS Load: IEEE 802.11-2020, "
                 "9.4.2.27. 103 ms is longer than 100 TU (102.4 ms), the usual beacon interval. "
                 "-82 dBm: at this strength, the start of a 20 MHz OFDM frame must make a receiver "
                 "treat the channel as busy (IEEE 802.11-2020, 17.3.10.6)",
          .unknownWhen =
              "the channel is not known; or there is neither a survey nor a scan with strengths. "
              "Channels are recommended only if the radio's allowed channels are known"},
    Check{
        .id = DiagnosticsTestID::Congested2GHz,
        .answer = congested2GHz,
        .needs = {facts::Fact::link, facts::Fact::scan, facts::Fact::surveys, facts::Fact::radio},
        .measures = "Whether the channels 1, 6 and 11 are all crowded, so that another channel "
                    "does not help.",
        .from = kFrom,
        .threshold = kThreshold,
        .why = "As for CongestedChannel. 1, 6 and 11 are 25 MHz apart: IEEE 802.11-2020, 15.4.4.3",
        .unknownWhen = "the radio's allowed channels are not known, or none of these is allowed; "
                       "or for one of them there is neither a survey nor a scan with strengths, "
                       "and no other is known not to be crowded"},
    Check{.id = DiagnosticsTestID::Congested5GHz,
          .answer = congested5GHz,
          .needs = {facts::Fact::link, facts::Fact::scan, facts::Fact::surveys, facts::Fact::radio},
          .measures = "Whether all allowed 20 MHz channels of the band are crowded.",
          .from = kFrom,
          .threshold = kThreshold,
          .why = "As for CongestedChannel",
          .unknownWhen = "the radio's allowed channels are not known, or none is in this band; or "
                         "for one of them there is neither a survey nor a scan with strengths, and "
                         "no other is known not to be crowded"},
};

}  // namespace

std::span<const Check> congestionChecks() { return kCongestionRows; }

}  // namespace wifi_profile::checks
