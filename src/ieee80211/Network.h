// What a network says of itself: its name, its rates, its beacons, its country and its load.
// Every parser takes an element's payload and gives nothing for one that is shorter than the
// standard has it, or that contradicts itself; what follows the known fields is left to later
// editions (IEEE 802.11-2020, 10.28.8). Pure functions; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

inline constexpr std::size_t kLongestSsid = 32;

// A network's name (802.11-2020, 9.4.2.2): 0 to kLongestSsid bytes of any kind.
struct Ssid {
  std::string name;
  // Nothing but zeros, or nothing at all: the network keeps its name to itself in its beacons.
  bool hidden = false;

  bool operator==(const Ssid&) const = default;
};

std::optional<Ssid> parseSsid(Bytes payload);

// Rates in units of 500 kbit/s, 1 to 108, each once, in order (802.11-2020, 9.4.2.3 and 9.4.2.12).
struct Rates {
  std::vector<std::uint8_t> supported;
  std::vector<std::uint8_t> basic;  // those of them that every member must have
  // What else a member must have, as numbers in the same lists (BSS membership selectors,
  // 802.11-2020, 9.4.2.3): 121 to 127.
  std::vector<std::uint8_t> selectors;

  // Of 802.11b (clauses 15 and 16): 1, 2, 5.5 and 11 Mbit/s.
  bool hasBRates() const;
  bool hasBasicBRates() const;
  bool hasOnlyBRates() const;  // and at least one
  bool hasOfdmRates() const;   // 6, 9, 12, 18, 24, 36, 48 or 54 Mbit/s (clauses 17 and 18)

  bool operator==(const Rates&) const = default;
};

// `extended` is nothing where a network has no such element. Octets that are neither a rate nor a
// selector are passed over.
std::optional<Rates> parseRates(Bytes supported, std::optional<Bytes> extended);

// Which beacons announce broadcasts to sleepers (802.11-2020, 9.4.2.5).
struct Dtim {
  std::uint8_t period = 1;  // in beacons, at least 1
  std::uint8_t count = 0;   // beacons until the next one, less than the period

  bool operator==(const Dtim&) const = default;
};

std::optional<Dtim> parseTim(Bytes payload);

// The same of a nontransmitted network, from its Multiple BSSID-Index element's second octet on
// (802.11-2020, 9.4.2.73). Probe responses end before it: nothing.
std::optional<Dtim> parseIndexedDtim(Bytes payload);

// Where the network is (802.11-2020, 9.4.2.8).
struct Country {
  enum class Environment { any, indoor, outdoor, nonCountry, table };

  std::string code;  // two capital letters, ISO 3166-1; "XX" where there is no country
  std::optional<Environment> environment;
  std::uint8_t table = 0;  // of annex E, with Environment::table: 1 to 31

  bool operator==(const Country&) const = default;
};

std::optional<Country> parseCountry(Bytes payload);

// How busy the network is (802.11-2020, 9.4.2.27).
struct BssLoad {
  std::uint16_t stations = 0;
  std::uint8_t channelUtilization = 0;  // share of the time that the channel is busy: 255 is always

  bool operator==(const BssLoad&) const = default;
};

std::optional<BssLoad> parseBssLoad(Bytes payload);

}  // namespace wifi_profile::ieee80211
