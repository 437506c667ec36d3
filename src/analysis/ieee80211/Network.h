// What a network announces: its name, rates, beacons, country and load. Every parser takes an
// element's payload. It returns empty if the payload is shorter than the standard requires or
// contradicts itself, and ignores what follows the known fields, which later editions may define
// (IEEE 802.11-2020, 10.28.8). Pure functions; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

inline constexpr std::size_t kLongestSsid = 32;

// A network's name (802.11-2020, 9.4.2.2): 0 to kLongestSsid bytes of any value.
struct Ssid {
  std::string name;
  // The name is empty or all zeros: the network does not announce its name in its beacons.
  bool hidden = false;

  bool operator==(const Ssid&) const = default;
};

std::optional<Ssid> parseSsid(Bytes payload);

// Rates in units of 500 kbit/s, 1 to 108, each once, ascending (802.11-2020, 9.4.2.3 and 9.4.2.12).
struct Rates {
  std::vector<std::uint8_t> supported;
  std::vector<std::uint8_t> basic;  // the rates that every station must support

  // 802.11b rates (clauses 15 and 16): 1, 2, 5.5 and 11 Mbit/s.
  bool hasBRates() const;
  bool hasOfdmRates() const;  // 6, 9, 12, 18, 24, 36, 48 or 54 Mbit/s (clauses 17 and 18)

  bool operator==(const Rates&) const = default;
};

// `extended` is empty if the network has no such element. Octets that are no rate are skipped.
std::optional<Rates> parseRates(Bytes supported, std::optional<Bytes> extended);

// The beacons after which broadcasts are sent to sleeping stations (802.11-2020, 9.4.2.5).
struct Dtim {
  std::uint8_t period = 1;  // in beacons, at least 1

  bool operator==(const Dtim&) const = default;
};

std::optional<Dtim> parseTim(Bytes payload);

// The DTIM of a nontransmitted network: takes the payload of its Multiple BSSID-Index element,
// where the DTIM begins at the second octet (802.11-2020, 9.4.2.73). Empty in probe responses,
// whose element ends before it.
std::optional<Dtim> parseIndexedDtim(Bytes payload);

// The country in which the network operates (802.11-2020, 9.4.2.8).
struct Country {
  std::string code;  // two capital letters, ISO 3166-1; "XX": no country

  bool operator==(const Country&) const = default;
};

std::optional<Country> parseCountry(Bytes payload);

// The load of the network (802.11-2020, 9.4.2.27).
struct BssLoad {
  std::uint8_t channelUtilization = 0;  // share of time that the channel is busy; 255 is 100 %

  bool operator==(const BssLoad&) const = default;
};

std::optional<BssLoad> parseBssLoad(Bytes payload);

}  // namespace wifi_profile::ieee80211
