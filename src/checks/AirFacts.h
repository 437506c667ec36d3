// What the radio knows of itself and of the air.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "checks/Known.h"
#include "ieee80211/Channels.h"
#include "ieee80211/OperatingChannel.h"
#include "ieee80211/PhyModes.h"
#include "ieee80211/Security.h"

namespace wifi_profile::checks {

// The access point that the radio is joined to. Optional values: the driver does not say.
struct Link {
  std::string interface = {};  // such as wlan0
  std::string ssid = {};       // 1 to 32 bytes of any kind
  std::string bssid = {};      // six pairs of lower-case hexadecimal digits with colons
  std::optional<int> signal = std::nullopt;          // dBm, mean of its beacons or frames
  std::optional<int> frequency = std::nullopt;       // MHz, of the primary channel
  std::optional<int> beaconInterval = std::nullopt;  // TU
  std::optional<int> dtimPeriod = std::nullopt;      // beacons

  bool operator==(const Link&) const = default;
};

// An access point as it was heard last. A box with several networks has several of these.
struct AccessPoint {
  std::string bssid = {};  // as in Link
  // 1 to 32 bytes; nothing when it never told its name.
  std::optional<std::string> ssid = std::nullopt;
  // The name in its beacons is empty or zeros; nothing when none of them was heard. The encrypted
  // half of an open network (OWE transition) hides nothing: the open half has the name.
  std::optional<bool> hidesName = std::nullopt;
  std::optional<int> signal = std::nullopt;  // dBm
  std::optional<ieee80211::OperatingChannel> channel = std::nullopt;
  std::optional<int> beaconInterval = std::nullopt;  // TU
  std::optional<int> dtimPeriod = std::nullopt;      // beacons
  ieee80211::Security security = ieee80211::Security::unknown;
  std::vector<int> rates = {};       // in units of 500 kbit/s, in order
  std::vector<int> basicRates = {};  // those of them that all members must know
  ieee80211::PhyModes modes = {};
  std::optional<std::string> country = std::nullopt;     // two capital letters
  std::optional<int> channelUtilization = std::nullopt;  // BSS Load, 0 to 255
  // Interworking: 0 private to 15 wildcard; 4 is a personal device's network.
  std::optional<int> accessNetworkType = std::nullopt;
  bool additionalStepNeeded = false;  // Interworking says so: a page to agree to, for instance
  bool isPasspoint = false;
  std::optional<std::string> maker = std::nullopt;  // WPS, any bytes
  std::optional<std::string> model = std::nullopt;  // WPS, any bytes
  // Of another network of the same box that announced this one.
  std::optional<std::string> transmitterBssid = std::nullopt;
  std::optional<std::chrono::milliseconds> age = std::nullopt;  // since it was last heard
  // A connection manager heard it and tells of it what it does; what else its frames say is lost.
  bool isSecondHand = false;

  bool operator==(const AccessPoint&) const = default;
};

// The newest scan.
struct Scan {
  std::vector<AccessPoint> accessPoints = {};  // each BSSID once, in no particular order
  // Why no scan of the age that was asked for is there: access points may be missing, or be gone
  // by now, but for the joined one. Empty: it is there.
  std::optional<Unknown> incomplete = std::nullopt;

  bool operator==(const Scan&) const = default;
};

// How the radio found one channel. Times are those of one and the same period.
struct ChannelSurvey {
  int frequency = 0;                                               // MHz
  bool inUse = false;                                              // the radio works on it now
  std::optional<int> noise = std::nullopt;                         // dBm
  std::optional<std::chrono::milliseconds> active = std::nullopt;  // the radio listened
  std::optional<std::chrono::milliseconds> busy = std::nullopt;    // of that, the channel was busy
  std::optional<std::chrono::milliseconds> transmit =
      std::nullopt;  // of that, with this radio's own frames
  std::optional<std::chrono::milliseconds> receive =
      std::nullopt;  // of that, with frames of the joined network to this radio or others

  bool operator==(const ChannelSurvey&) const = default;
};

// A channel that the radio and the law allow.
struct RadioChannel {
  int frequency = 0;            // MHz
  bool disabled = false;        // not at all, here
  bool radarDetection = false;  // must give way to radar (DFS)

  bool operator==(const RadioChannel&) const = default;
};

// An interface of the same radio.
struct RadioInterface {
  // peerLink: P2P client or group owner, NAN, IBSS or mesh point. other: monitors, idle P2P
  // devices.
  enum class Role { station, accessPoint, peerLink, other };

  std::string name = {};  // may be empty: not every one is a network interface
  Role role = Role::other;

  bool operator==(const RadioInterface&) const = default;
};

struct Radio {
  std::vector<RadioChannel> channels = {};
  std::vector<RadioInterface> interfaces = {};
  bool knowsWapi = false;  // has the cipher of WAPI

  bool operator==(const Radio&) const = default;
};

// The rules that the kernel follows.
struct Regulatory {
  // Two capital letters; "00": the world, that is, not set; "98": what several countries' rules
  // have in common.
  std::string country = {};

  bool operator==(const Regulatory&) const = default;
};

}  // namespace wifi_profile::checks
