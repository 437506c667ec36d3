// Checks of a network's kind and maker.
#include <algorithm>
#include <array>

#include "analysis/checks/Answers.h"
#include "analysis/checks/Names.h"
#include "analysis/checks/Rows.h"
#include "analysis/checks/Subject.h"
#include "analysis/facts/IpAddresses.h"
#include "analysis/facts/SecurityKinds.h"

namespace wifi_profile::checks {
namespace {

constexpr int kPersonalDevice = 4;  // an access network type

bool isUsedInSeveralKinds(const std::vector<const facts::AccessPoint*>& accessPoints) {
  std::optional<facts::KeyKind> first;
  for (const facts::AccessPoint* accessPoint : accessPoints) {
    const auto kind = facts::keyKindOf(accessPoint->security);
    if (kind && first && *kind != *first) return true;
    if (kind) first = kind;
  }
  return false;
}

Answer ambiguousName(const Question& question) {
  return aboutSubject(question, [&](const Subject& subject) -> Answer {
    const Dictionary::Entries info{{"NetworkName", makeText(subject.name)}};
    const bool isCommon = std::ranges::any_of(
        question.settings.ambiguousNames,
        [&](const std::string& pattern) { return matchesPattern(subject.name, pattern); });
    if (isCommon) return finding(true, info);
    if (auto why = whyNotWhole(question.facts.scan)) return *std::move(why);
    const auto named = accessPointsNamedLike(question, subject);
    if (isUsedInSeveralKinds(named)) return finding(true, info);
    const bool isAnyUnknown = std::ranges::any_of(named, [](const facts::AccessPoint* accessPoint) {
      return !facts::keyKindOf(accessPoint->security);
    });
    if (isAnyUnknown) {
      return notTold(
          "An access point of this name does not show clearly how it is secured: scan again.");
    }
    return finding(false, info);
  });
}

Answer hiddenNetwork(const Question& question) {
  return aboutAccessPoint(question, [](const facts::AccessPoint& accessPoint) -> Answer {
    if (accessPoint.hidesName) return finding(*accessPoint.hidesName);
    return notTold("No beacon of the access point was heard, only its answers: scan again.");
  });
}

Answer passpoint(const Question& question) {
  return aboutAccessPoint(question, [](const facts::AccessPoint& accessPoint) -> Answer {
    if (accessPoint.isSecondHand) {
      return notTold(
          "Only NetworkManager's list is available; it does not show Passpoint. Scan again as root "
          "or from a local session.");
    }
    return finding(accessPoint.isPasspoint);
  });
}

// Hints that a network is a phone's. Each is empty if its source gives no information.
std::optional<bool> isPersonalDevice(const facts::AccessPoint* accessPoint) {
  if (!accessPoint || !accessPoint->accessNetworkType) return std::nullopt;
  return *accessPoint->accessNetworkType == kPersonalDevice;
}

std::optional<bool> isMetered(const Result<facts::ActiveProfile>& profile) {
  return profile ? profile->metered : std::nullopt;
}

// Some phones use other subnets, so an address in another subnet is not a hint.
std::optional<bool> isInHotspotSubnet(const Question& question) {
  const Result<facts::Addresses>& addresses = question.facts.addresses;
  if (!addresses || addresses->ipv4.empty()) return std::nullopt;
  const bool isIn = std::ranges::any_of(addresses->ipv4, [&](const std::string& address) {
    return std::ranges::any_of(question.settings.hotspotSubnets, [&](const std::string& subnet) {
      return facts::isInSubnet(address, subnet);
    });
  });
  return isIn ? std::optional(true) : std::nullopt;
}

Answer joinedHotspot(const Question& question, const Subject& subject) {
  const facts::Facts& facts = question.facts;
  bool isKnown = false;
  for (const auto hint : {isMetered(facts.activeProfile), isInHotspotSubnet(question),
                          isPersonalDevice(subject.heard)}) {
    if (hint == true) return finding(true);
    if (hint) isKnown = true;
  }
  if (isKnown) return finding(false);
  if (!facts.activeProfile) return facts.activeProfile.error();
  if (!facts.addresses) return facts.addresses.error();
  return notTold(
      "Neither the network nor its settings say whether it is a phone's: look at the phone.");
}

Answer otherHotspot(const Question& question, const Subject& subject) {
  const auto isPersonal = isPersonalDevice(subject.heard);
  if (isPersonal == true) return finding(true);
  if (question.facts.savedNetworks) {
    for (const facts::SavedNetwork& saved : *question.facts.savedNetworks) {
      if (saved.ssid == subject.name && saved.metered == true) return finding(true);
    }
  }
  if (isPersonal == false) return finding(false);
  return Error{Reason::outsideNetwork,
               "Only a member of the network can tell whether it is a phone's: join it, and run "
               "again."};
}

Answer personalHotspot(const Question& question) {
  return aboutSubject(question, [&](const Subject& subject) -> Answer {
    return subject.link ? joinedHotspot(question, subject) : otherHotspot(question, subject);
  });
}

// Null if the model is unknown, empty or all zeros.
TextRef modelName(const facts::AccessPoint& accessPoint) {
  const std::string trimmed = withoutZeros(accessPoint.model.value_or(""));
  return trimmed.empty() ? nullptr : makeText(trimmed);
}

bool isAmong(const std::string& maker, const std::vector<std::string>& parts) {
  const std::string lower = lowerCased(withoutZeros(maker));
  return std::ranges::any_of(parts, [&](const std::string& part) {
    return !part.empty() && lower.find(lowerCased(part)) != std::string::npos;
  });
}

bool beginsWithOneOf(const std::string& address, const std::vector<std::string>& blocks) {
  const std::string lower = lowerCased(address);
  return std::ranges::any_of(blocks, [&](const std::string& block) {
    return !block.empty() && lower.starts_with(lowerCased(block));
  });
}

Answer baseStation(const Question& question) {
  const Settings& settings = question.settings;
  if (settings.baseStationMakers.empty() && settings.baseStationAddressBlocks.empty()) {
    return notTold(
        "The settings name no makers of base stations: set `baseStationMakers` to know them.");
  }
  return aboutSubject(question, [&](const Subject& subject) -> Answer {
    const facts::AccessPoint* heard = subject.heard;
    const std::string& bssid = subject.link ? subject.link->bssid : heard->bssid;
    const bool isMaker =
        heard && heard->maker && isAmong(*heard->maker, settings.baseStationMakers);
    if (isMaker || beginsWithOneOf(bssid, settings.baseStationAddressBlocks)) {
      const TextRef model = heard ? modelName(*heard) : nullptr;
      return model ? ability(true, {{"BrellinModelName", model}}) : ability(true);
    }
    if (settings.baseStationMakers.empty()) return ability(false);
    if (!heard) return subject.notHeard;
    if (!heard->maker) return notTold("The access point does not name its maker: scan again.");
    return ability(false);
  });
}

constexpr std::array kIdentityRows{
    Check{.id = DiagnosticsTestID::BrellinBaseStation,
          .answer = baseStation,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "Whether the maker or the address of the access point is among those set for "
                      "base stations. None is set by default; the answer is then not known.",
          .from = "WPS element (Manufacturer, Model Name); the BSSID",
          .threshold = "one of `baseStationMakers` or `baseStationAddressBlocks`",
          .why = "The lists define which base stations are meant",
          .unknownWhen = "neither makers nor addresses are set; the named network was not "
                         "received; or makers are set, and the access point was not received or "
                         "does not name its maker, which most name in probe responses only"},
    Check{
        .id = DiagnosticsTestID::AmbiguousNetworkName,
        .answer = ambiguousName,
        .needs = {facts::Fact::link, facts::Fact::scan},
        .measures = "Whether the name is a maker's default or a common choice, or is used in range "
                    "with and without a password, or with other kinds of keys. Two networks with "
                    "the same name and kind of keys cannot be told apart.",
        .from = "SSID; the scan's access points with that name",
        .threshold = "one of `ambiguousNames`, or two kinds: open, WEP, password, sign-in",
        .why = "Devices identify a network by its name and kind of keys. The list is this "
               "project's collection of common names",
        .unknownWhen =
            "not joined, or the named network was not received; or the name alone does not decide, "
            "and there is no scan or one of its access points does not show how it is secured"},
    Check{.id = DiagnosticsTestID::HiddenNetwork,
          .answer = hiddenNetwork,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "Whether the access point's beacons hide its name.",
          .from = "SSID element of beacons",
          .threshold = "empty, or only zeros",
          .why = "The name is in the frames of every device that joins, so it is not secret, and "
                 "devices must call for it",
          .unknownWhen = "the access point was not received, or only its probe responses were"},
    Check{
        .id = DiagnosticsTestID::NimoPersonalHotspot,
        .answer = personalHotspot,
        .needs = {facts::Fact::link, facts::Fact::scan, facts::Fact::activeProfile,
                  facts::Fact::addresses, facts::Fact::savedNetworks},
        .measures = "Hints that the network is a phone's shared connection: it is metered, its "
                    "addresses are those that phones assign, or it announces a personal device. "
                    "These are only hints: a phone of any maker, and a computer that shares its "
                    "connection, look the same.",
        .from = "NetworkManager: Metered of the device, connection.metered of the profiles, a "
                "phone's words in the vendor options of its DHCP answer; the IPv4 address "
                "(rtnetlink); Interworking element",
        .threshold = "metered, an address in `hotspotSubnets`, or access network type 4",
        .why = "Interworking: IEEE 802.11-2020, 9.4.2.91. The subnets are conventions of systems, "
               "not standards",
        .unknownWhen = "neither NetworkManager nor the access point gives a hint, and the address "
                       "is not one of those; for a network that is not joined: it was not "
                       "received, or has no Interworking element and is not remembered as metered"},
    Check{.id = DiagnosticsTestID::Passpoint,
          .answer = passpoint,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "Whether the access point offers Passpoint.",
          .from = "Hotspot 2.0 Indication and Interworking elements",
          .threshold = "both",
          .why = "Wi-Fi Alliance, Hotspot 2.0; IEEE 802.11-2020, 9.4.2.91",
          .unknownWhen = "the access point was not received, or is known only from NetworkManager"},
};

}  // namespace

std::span<const Check> identityChecks() { return kIdentityRows; }

}  // namespace wifi_profile::checks
