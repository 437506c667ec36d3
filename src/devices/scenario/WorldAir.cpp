#include <algorithm>
#include <cmath>
#include <set>

#include "analysis/ieee80211/Extent.h"
#include "devices/scenario/WorldParts.h"
#include "devices/scenario/WorldValues.h"
#include "diagnostic/platform/Array.h"

namespace wifi_profile::scenario {

using runtime::FieldsReader;
using runtime::ValueReader;

namespace {

using ieee80211::Band;
using ieee80211::Extent;
using ieee80211::OperatingChannel;
using ieee80211::PhyModes;
using ieee80211::Width;

constexpr int kLeastPower = -127;  // dBm
constexpr int kMostPower = 20;     // dBm

// The channel width that a scenario gives for an access point.
struct Wideness {
  int width = 20;     // MHz
  int secondary = 0;  // steps of 5 MHz from the primary channel; 0: not given
};

// Returns the extent of the only wide channel that contains the primary one. 320 MHz channels
// overlap: the lower one is taken. Empty if the band has no such channel.
std::optional<ieee80211::Extent> extentOf(const ChannelPlace& place, const Wideness& wide) {
  if (wide.width == 20) return ieee80211::extentOfTwentyMHz(place.band, place.channel);
  if (place.band == Band::ghz2) {
    if (wide.width != 40 || place.channel + wide.secondary < 1) return std::nullopt;
    return ieee80211::extentOfHt(
        place.band, {.primary = place.channel, .secondary = place.channel + wide.secondary});
  }
  constexpr int kStep = 4;  // channel numbers from one 20 MHz channel to the next
  const int count = wide.width / 20;
  for (int above = count - 1; above >= 0; --above) {
    const int lowest = place.channel - kStep * above;
    if (!ieee80211::isWideChannel(place.band, lowest, count)) continue;
    const Width width = count == 2   ? Width::mhz40
                        : count == 4 ? Width::mhz80
                        : count == 8 ? Width::mhz160
                                     : Width::mhz320;
    return ieee80211::Extent{.width = width,
                             .center = lowest + 2 * (count - 1),
                             .secondary = place.channel + (above % 2 == 0 ? kStep : -kStep)};
  }
  return std::nullopt;
}

std::optional<OperatingChannel> takeOperatingChannel(FieldsReader& fields) {
  const auto place = takeChannel(fields);
  Wideness wide;
  const auto isTold = [&](bool told) {
    if (told && !place) {
      fields.object().fail("an object without \"channel\"", "a channel beside its width");
    }
    return told;
  };
  isTold(fields.take("width", [&](const ValueReader& field) {
    wide.width = static_cast<int>(field.integer());
    for (const int width : {20, 40, 80, 160, 320}) {
      if (wide.width == width) return;
    }
    field.fail("20, 40, 80, 160 or 320");
    wide.width = 20;
  }));
  const bool needsSecondary = place && place->band == Band::ghz2 && wide.width == 40;
  const bool hasSecondary = isTold(fields.take("secondary", [&](const ValueReader& field) {
    static constexpr std::pair<std::string_view, int> kChoices[]{{"above", 4}, {"below", -4}};
    wide.secondary = readChoice(field, kChoices);
  }));
  if (!place) return std::nullopt;
  if (needsSecondary != hasSecondary) {
    fields.object().fail(
        std::string("an access point ") + (hasSecondary ? "with" : "without") + " \"secondary\"",
        "\"secondary\" where, and only where, 40 MHz are used in 2.4 GHz");
    return std::nullopt;
  }
  OperatingChannel channel{place->band, place->channel, extentOf(*place, wide)};
  if (!channel.extent) {
    fields.object().fail("channel " + std::to_string(place->channel) + " with a width of " +
                             std::to_string(wide.width) + " MHz",
                         "a width that the band has there");
  }
  return channel;
}

// Converts Mbit/s to units of 500 kbit/s.
int readRate(const ValueReader& value) {
  constexpr double kMost = 63;
  const double units = 2 * value.number(0, kMost);
  if (units < 1 || units != std::floor(units)) value.fail("a rate in Mbit/s, such as 5.5 or 24");
  return static_cast<int>(units);
}

PhyModes readModes(const ValueReader& value) {
  PhyModes modes;
  value.list(
      [&](const ValueReader& mode) { modes.*readChoice(mode, ieee80211::kPhyModeNames) = true; });
  return modes;
}

template <class T>
void takeBeaconTimes(FieldsReader& fields, T& target) {
  takeInteger(fields, "beaconInterval", 1, 65535, target.beaconInterval);
  takeInteger(fields, "dtim", 1, 255, target.dtimPeriod);
}

facts::AccessPoint readAccessPoint(const ValueReader& value) {
  facts::AccessPoint point;
  value.object([&](FieldsReader& fields) {
    fields.require("bssid", [&](const ValueReader& field) { point.bssid = readBssid(field); });
    fields.take("ssid", [&](const ValueReader& field) {
      if (!isNullPlaceholder(field.value())) point.ssid = readSsid(field);
    });
    bool hidden = false;
    takeFlag(fields, "hidden", hidden);
    point.hidesName = hidden;
    takeInteger(fields, "signal", kLeastPower, kMostPower, point.signal);
    point.channel = takeOperatingChannel(fields);
    takeBeaconTimes(fields, point);
    fields.take("security",
                [&](const ValueReader& field) { point.security = readSecurity(field); });
    fields.take("basicRates", [&](const ValueReader& field) {
      field.list([&](const ValueReader& rate) { point.basicRates.push_back(readRate(rate)); });
    });
    fields.take("modes", [&](const ValueReader& field) { point.modes = readModes(field); });
    fields.take("country", [&](const ValueReader& field) { point.country = readCountry(field); });
    takeInteger(fields, "utilization", 0, 255, point.channelUtilization);
    takeInteger(fields, "accessNetworkType", 0, 15, point.accessNetworkType);
    takeFlag(fields, "additionalStepNeeded", point.additionalStepNeeded);
    takeFlag(fields, "passpoint", point.isPasspoint);
    takeText(fields, "maker", point.maker);
    takeText(fields, "model", point.model);
    fields.take("transmitter",
                [&](const ValueReader& field) { point.transmitterBssid = readBssid(field); });
  });
  return point;
}

// Takes a whole number of milliseconds.
void takeMilliseconds(FieldsReader& fields, std::string_view key,
                      std::optional<std::chrono::milliseconds>& target) {
  constexpr std::int64_t kMost = 1'000'000'000;
  fields.take(key, [&](const ValueReader& field) {
    target = std::chrono::milliseconds(field.integer(0, kMost));
  });
}

facts::ChannelSurvey readSurvey(const ValueReader& value) {
  facts::ChannelSurvey survey;
  value.object([&](FieldsReader& fields) {
    const auto place = takeChannel(fields);
    if (!place) fields.require("channel", [](const ValueReader&) {});
    survey.frequency = place.value_or(ChannelPlace{}).frequency();
    takeFlag(fields, "inUse", survey.inUse);
    takeInteger(fields, "noise", kLeastPower, kMostPower, survey.noise);
    takeMilliseconds(fields, "active", survey.active);
    takeMilliseconds(fields, "busy", survey.busy);
    takeMilliseconds(fields, "transmit", survey.transmit);
  });
  return survey;
}

// Reads channels that have the same properties.
void readRadioChannels(const ValueReader& value, std::vector<facts::RadioChannel>& channels) {
  value.object([&](FieldsReader& fields) {
    std::optional<Band> band;
    facts::RadioChannel kind;
    fields.take("band", [&](const ValueReader& field) { band = readBand(field); });
    takeFlag(fields, "disabled", kind.disabled);
    takeFlag(fields, "radarDetection", kind.radarDetection);
    fields.require("channels", [&](const ValueReader& field) {
      field.list([&](const ValueReader& channel) {
        kind.frequency = readChannel(channel, band).frequency();
        channels.push_back(kind);
      });
    });
  });
}

facts::RadioInterface readInterface(const ValueReader& value) {
  using Role = facts::RadioInterface::Role;
  static constexpr std::pair<std::string_view, Role> kChoices[]{{"station", Role::station},
                                                                {"accessPoint", Role::accessPoint},
                                                                {"peerLink", Role::peerLink},
                                                                {"other", Role::other}};
  facts::RadioInterface interface;
  value.object([&](FieldsReader& fields) {
    takeText(fields, "name", interface.name);
    fields.require("role",
                   [&](const ValueReader& field) { interface.role = readChoice(field, kChoices); });
  });
  return interface;
}

}  // namespace

template <>
facts::Link readFact(const ValueReader& value) {
  facts::Link link;
  value.object([&](FieldsReader& fields) {
    fields.require("interface", [&](const ValueReader& field) { link.interface = field.text(); });
    fields.require("ssid", [&](const ValueReader& field) { link.ssid = readSsid(field); });
    fields.require("bssid", [&](const ValueReader& field) { link.bssid = readBssid(field); });
    takeInteger(fields, "signal", kLeastPower, kMostPower, link.signal);
    if (const auto place = takeChannel(fields)) link.frequency = place->frequency();
    takeBeaconTimes(fields, link);
  });
  return link;
}

template <>
facts::Scan readFact(const ValueReader& value) {
  facts::Scan scan;
  std::set<std::string> seen;
  value.list([&](const ValueReader& element) {
    scan.accessPoints.push_back(readAccessPoint(element));
    const std::string& bssid = scan.accessPoints.back().bssid;
    if (!seen.insert(bssid).second) {
      element.fail("a second access point " + bssid, "each \"bssid\" once");
    }
  });
  return scan;
}

template <>
std::vector<facts::ChannelSurvey> readFact(const ValueReader& value) {
  std::vector<facts::ChannelSurvey> surveys;
  value.list([&](const ValueReader& element) { surveys.push_back(readSurvey(element)); });
  return surveys;
}

template <>
facts::Radio readFact(const ValueReader& value) {
  facts::Radio radio;
  value.object([&](FieldsReader& fields) {
    fields.take("channels", [&](const ValueReader& field) {
      field.list([&](const ValueReader& kind) { readRadioChannels(kind, radio.channels); });
    });
    fields.take("interfaces", [&](const ValueReader& field) {
      field.list(
          [&](const ValueReader& element) { radio.interfaces.push_back(readInterface(element)); });
    });
    takeFlag(fields, "knowsWapi", radio.knowsWapi);
  });
  return radio;
}

template <>
facts::Regulatory readFact(const ValueReader& value) {
  facts::Regulatory regulatory;
  value.object([&](FieldsReader& fields) {
    fields.require("country", [&](const ValueReader& field) {
      const auto text = as<Text>(field.value());
      regulatory.country = text && text->string() == "00" ? "00" : readCountry(field);
    });
  });
  return regulatory;
}

}  // namespace wifi_profile::scenario
