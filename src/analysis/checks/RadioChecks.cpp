// Checks of an access point's signal and radio settings.
#include <algorithm>
#include <array>

#include "analysis/checks/Answers.h"
#include "analysis/checks/Rows.h"
#include "analysis/checks/Subject.h"
#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Number.h"

namespace wifi_profile::checks {
namespace {

using ieee80211::Band;
using ieee80211::PhyModes;

// Returns the noise on the channel in use if the subject is joined and that noise is known,
// otherwise the noise on the subject's channel. Empty if neither is known.
std::optional<int> noiseAround(const facts::Facts& facts, const Subject& subject) {
  if (!facts.surveys) return std::nullopt;
  const auto channel = channelOf(subject);
  const auto frequency =
      channel ? ieee80211::frequencyOf(channel->band, channel->primary) : std::nullopt;
  std::optional<int> noise;
  for (const facts::ChannelSurvey& survey : *facts.surveys) {
    if (!survey.noise) continue;
    if (survey.inUse && subject.link) return survey.noise;
    if (survey.frequency == frequency) noise = survey.noise;
  }
  return noise;
}

Answer poorSignal(const Question& question) {
  return aboutSubject(question, [&](const Subject& subject) -> Answer {
    const auto signal =
        toldBy(subject, &facts::Link::signal, &facts::AccessPoint::signal, "its signal strength");
    if (!signal) return signal.error();
    Dictionary::Entries info{{"RSSI", Number::withInteger(*signal)}};
    if (const auto noise = noiseAround(question.facts, subject)) {
      info["Noise"] = Number::withInteger(*noise);
    }
    return finding(*signal < question.settings.poorSignalBelow, std::move(info));
  });
}

Answer longBeaconInterval(const Question& question) {
  return aboutSubject(question, [&](const Subject& subject) -> Answer {
    const auto interval = toldBy(subject, &facts::Link::beaconInterval,
                                 &facts::AccessPoint::beaconInterval, "its beacon interval");
    if (!interval) return interval.error();
    return finding(*interval > question.settings.longBeaconIntervalAbove,
                   {{"BeaconInterval", Number::withInteger(*interval)}});
  });
}

Answer longDtimInterval(const Question& question) {
  return aboutSubject(question, [&](const Subject& subject) -> Answer {
    const auto period = toldBy(subject, &facts::Link::dtimPeriod, &facts::AccessPoint::dtimPeriod,
                               "its DTIM interval");
    if (!period) return period.error();
    return finding(*period > question.settings.longDtimPeriodAbove,
                   {{"DTIMInterval", Number::withInteger(*period)}});
  });
}

Answer ht40In2GHz(const Question& question) {
  return aboutSubject(question, [](const Subject& subject) -> Answer {
    const auto channel = channelOf(subject);
    if (channel && channel->band != Band::ghz2) return finding(false);
    if (channel && channel->extent) return finding(channel->extent->secondary.has_value());
    if (!subject.heard) return subject.notHeard;
    return notTold("The access point does not report its channel width: scan again.");
  });
}

Answer legacyRates(const Question& question) {
  return aboutAccessPoint(question, [](const facts::AccessPoint& accessPoint) -> Answer {
    if (accessPoint.basicRates.empty()) {
      return notTold("The access point announces no basic rates: scan again.");
    }
    return finding(std::ranges::any_of(accessPoint.basicRates, [](int rate) {
      return rate == 2 || rate == 4 || rate == 11 || rate == 22;  // 500 kbit/s
    }));
  });
}

ObjectRef textsOf(const PhyModes& modes) {
  std::vector<ObjectRef> texts;
  for (const auto& [name, mode] : ieee80211::kPhyModeNames) {
    if (modes.*mode) texts.push_back(makeText(name));
  }
  return std::make_shared<const Array>(std::move(texts));
}

// Checks whether, in one of the bands, some of the network's access points have the mode and others
// do not. An access point without any mode did not announce its modes.
Answer conflictingMode(const Question& question, bool PhyModes::*mode,
                       std::initializer_list<Band> bandsWithMode) {
  return aboutSubject(question, [&](const Subject& subject) -> Answer {
    if (!subject.heard) return subject.notHeard;
    const PhyModes& own = subject.heard->modes;
    if (!channelOf(subject) || own == PhyModes{}) {
      return notTold("The access point does not announce its band or its radio modes: scan again.");
    }
    if (auto why = whyNotWhole(question.facts.scan)) return *std::move(why);
    const auto named = accessPointsNamedLike(question, subject);
    const auto isThere = [&](Band band, bool hasMode) {
      return std::ranges::any_of(named, [&](const facts::AccessPoint* accessPoint) {
        const auto channel =
            accessPoint == subject.heard ? channelOf(subject) : accessPoint->channel;
        return channel && channel->band == band && accessPoint->modes != PhyModes{} &&
               accessPoint->modes.*mode == hasMode;
      });
    };
    const bool isConflicting = std::ranges::any_of(
        bandsWithMode, [&](Band band) { return isThere(band, true) && isThere(band, false); });
    return finding(isConflicting, {{"SupportedPHYModes", textsOf(own)}});
  });
}

Answer conflictingModeAc(const Question& question) {
  return conflictingMode(question, &PhyModes::ac, {Band::ghz5});
}

Answer conflictingModeN(const Question& question) {
  return conflictingMode(question, &PhyModes::n, {Band::ghz2, Band::ghz5});
}

constexpr std::string_view kModesFrom =
    "HT, VHT, HE and EHT Capabilities and Operation elements and rates of the scan's access points";

constexpr std::array kRadioRows{
    Check{.id = DiagnosticsTestID::HT402GHzChannel,
          .answer = ht40In2GHz,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "Whether the access point uses a secondary channel in the 2.4 GHz band.",
          .from = "HT Operation element, or a later one that gives the width",
          .threshold = "any secondary channel",
          .why = "Two 20 MHz channels side by side take about half of the band, in which only "
                 "three fit without overlap. HT Operation: IEEE 802.11-2020, 9.4.2.56",
          .unknownWhen = "the access point was not received, or its elements do not give the width "
                         "or contradict each other"},
    Check{.id = DiagnosticsTestID::PoorSignal,
          .answer = poorSignal,
          .needs = {facts::Fact::link, facts::Fact::scan, facts::Fact::surveys},
          .measures = "How strongly the access point is received, and the noise if it is known.",
          .from = "joined: NL80211_STA_INFO_BEACON_SIGNAL_AVG, _SIGNAL_AVG or _SIGNAL, else as for "
                  "other networks: NL80211_BSS_SIGNAL_MBM; noise: NL80211_SURVEY_INFO_NOISE",
          .threshold = "below -75 dBm (`poorSignalBelow`)",
          .why = "This project's choice: between the strengths at which Wi-Fi works well and those "
                 "at which the fast rates are lost",
          .unknownWhen =
              "not joined; the named network was not received; or the driver does not report it"},
    Check{.id = DiagnosticsTestID::LongBeaconInterval,
          .answer = longBeaconInterval,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "The time between two beacons.",
          .from = "joined: NL80211_STA_BSS_PARAM_BEACON_INTERVAL, else NL80211_BSS_BEACON_INTERVAL",
          .threshold = "above 200 TU (`longBeaconIntervalAbove`); a TU is 1024 µs",
          .why = "This project's choice: twice the usual 100 TU. Beacon Interval field: IEEE "
                 "802.11-2020, 9.4.1.3",
          .unknownWhen =
              "not joined; the named network was not received; or the driver does not report it"},
    Check{.id = DiagnosticsTestID::LongDTIMInterval,
          .answer = longDtimInterval,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "The number of beacons after which broadcasts for sleeping devices are sent.",
          .from = "joined: NL80211_STA_BSS_PARAM_DTIM_PERIOD, else the TIM element of beacons",
          .threshold = "above 3 beacons (`longDtimPeriodAbove`)",
          .why = "This project's choice: 1 to 3 are usual. TIM: IEEE 802.11-2020, 9.4.2.5",
          .unknownWhen = "only probe responses were received, which have no TIM, and the driver "
                         "does not report it"},
    Check{.id = DiagnosticsTestID::ConflictingPHYMode11AC,
          .answer = conflictingModeAc,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "Whether some of the network's access points in the 5 GHz band offer "
                      "802.11ac and others do not.",
          .from = kModesFrom,
          .threshold = "one that differs",
          .why = "A device that roams from one to the other becomes slower without notice. Only 5 "
                 "GHz: 802.11ac has no other band (IEEE 802.11-2020, 21.1.1)",
          .unknownWhen =
              "the access point was not received, or does not announce its band or its modes"},
    Check{.id = DiagnosticsTestID::ConflictingPHYMode11N,
          .answer = conflictingModeN,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "Whether some of the network's access points in the same band, 2.4 or 5 GHz, "
                      "offer 802.11n and others do not.",
          .from = kModesFrom,
          .threshold = "one that differs",
          .why = "As for ConflictingPHYMode11AC. 6 GHz has no 802.11n",
          .unknownWhen =
              "the access point was not received, or does not announce its band or its modes"},
    Check{.id = DiagnosticsTestID::LegacyRates11b,
          .answer = legacyRates,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "Whether 1, 2, 5.5 or 11 Mbit/s are among the basic rates, which all members "
                      "must support and at which broadcasts are sent.",
          .from = "Supported Rates and Extended Supported Rates elements",
          .threshold = "any of these four",
          .why = "A frame at these rates takes a long time. Basic rates: IEEE 802.11-2020, 9.4.2.3",
          .unknownWhen = "the access point was not received, or announces no basic rate"},
};

}  // namespace

std::span<const Check> radioChecks() { return kRadioRows; }

}  // namespace wifi_profile::checks
