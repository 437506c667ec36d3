// Facts about the radio and the air.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/ieee80211/Channels.h"
#include "analysis/ieee80211/OperatingChannel.h"
#include "analysis/ieee80211/PhyModes.h"
#include "analysis/ieee80211/Security.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::facts {

// The access point that the radio is joined to. An optional is empty if the driver does not report
// it.
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

// An access point as it was last received. A device with several networks has one entry for each.
struct AccessPoint {
  std::string bssid = {};  // as in Link
  // 1 to 32 bytes; empty if no frame contained the name.
  std::optional<std::string> ssid = std::nullopt;
  // True if the name in its beacons is empty or zeros; empty if no beacon was received. False for
  // the encrypted twin of an open network (OWE transition), because the open network announces the
  // name.
  std::optional<bool> hidesName = std::nullopt;
  std::optional<int> signal = std::nullopt;  // dBm
  std::optional<ieee80211::OperatingChannel> channel = std::nullopt;
  std::optional<int> beaconInterval = std::nullopt;  // TU
  std::optional<int> dtimPeriod = std::nullopt;      // beacons
  ieee80211::Security security = ieee80211::Security::unknown;
  std::vector<int> rates = {};       // in units of 500 kbit/s, in order
  std::vector<int> basicRates = {};  // the rates that all members must support
  ieee80211::PhyModes modes = {};
  std::optional<std::string> country = std::nullopt;     // two capital letters
  std::optional<int> channelUtilization = std::nullopt;  // BSS Load, 0 to 255
  // Interworking: 0 private to 15 wildcard; 4 is a personal device's network.
  std::optional<int> accessNetworkType = std::nullopt;
  bool additionalStepNeeded = false;  // announced by Interworking, such as a page to agree to
  bool isPasspoint = false;
  std::optional<std::string> maker = std::nullopt;  // WPS, any bytes
  std::optional<std::string> model = std::nullopt;  // WPS, any bytes
  // The BSSID of the network of the same device that announced this one.
  std::optional<std::string> transmitterBssid = std::nullopt;
  std::optional<std::chrono::milliseconds> age = std::nullopt;  // since it was last received
  // A connection manager reported it; the contents of its frames beyond that report are unknown.
  bool isSecondHand = false;

  bool operator==(const AccessPoint&) const = default;
};

// The newest scan.
struct Scan {
  std::vector<AccessPoint> accessPoints = {};  // each BSSID once, in no particular order
  // Why there is no scan of the requested age. Access points other than the joined one may then be
  // missing, or may no longer be in range. Empty if there is such a scan.
  std::optional<Error> incomplete = std::nullopt;

  bool operator==(const Scan&) const = default;
};

// What the radio measured on one channel. All times belong to the same period.
struct ChannelSurvey {
  int frequency = 0;                                               // MHz
  bool inUse = false;                                              // the radio uses the channel now
  std::optional<int> noise = std::nullopt;                         // dBm
  std::optional<std::chrono::milliseconds> active = std::nullopt;  // the radio listened
  std::optional<std::chrono::milliseconds> busy = std::nullopt;    // of that, the channel was busy
  std::optional<std::chrono::milliseconds> transmit =
      std::nullopt;  // of that, time of this radio's own frames
  std::optional<std::chrono::milliseconds> receive =
      std::nullopt;  // of that, time of frames of the joined network, to this radio or others

  bool operator==(const ChannelSurvey&) const = default;
};

// A channel that the radio supports, with the regulatory rules for it.
struct RadioChannel {
  int frequency = 0;            // MHz
  bool disabled = false;        // may not be used here
  bool radarDetection = false;  // requires radar detection (DFS)

  bool operator==(const RadioChannel&) const = default;
};

// An interface of the same radio.
struct RadioInterface {
  // peerLink: P2P client or group owner, NAN, IBSS or mesh point. other: monitors, idle P2P
  // devices.
  enum class Role { station, accessPoint, peerLink, other };

  std::string name = {};  // may be empty: some are not network interfaces
  Role role = Role::other;

  bool operator==(const RadioInterface&) const = default;
};

struct Radio {
  std::vector<RadioChannel> channels = {};
  std::vector<RadioInterface> interfaces = {};
  bool knowsWapi = false;  // supports the WAPI cipher

  bool operator==(const Radio&) const = default;
};

// The regulatory rules that the kernel applies.
struct Regulatory {
  // Two capital letters. "00": world, no country is set. "98": the intersection of several
  // countries' rules.
  std::string country = {};

  bool operator==(const Regulatory&) const = default;
};

}  // namespace wifi_profile::facts
