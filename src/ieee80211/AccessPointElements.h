// Everything that an access point's beacon or probe response says, as far as it is understood.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "ieee80211/MultipleBssid.h"
#include "ieee80211/Network.h"
#include "ieee80211/OperatingChannel.h"
#include "ieee80211/Passpoint.h"
#include "ieee80211/PhyModes.h"
#include "ieee80211/Security.h"
#include "ieee80211/Wps.h"

namespace wifi_profile::ieee80211 {

// What was received, as nl80211 reports it.
struct ReceivedFrame {
  Bytes elements;                  // after the fixed fields
  std::uint16_t capabilities = 0;  // the Capability Information field (IEEE 802.11-2020, 9.4.1.4)
  std::optional<Bssid> bssid = std::nullopt;    // of the sender
  std::optional<int> frequency = std::nullopt;  // MHz
};

// What one network says of itself. Nothing: not there, damaged, or contradicting.
struct NetworkElements {
  std::uint16_t capabilities = 0;
  std::optional<Ssid> ssid;
  std::optional<Rates> rates;
  std::optional<Dtim> dtim;
  std::optional<BssLoad> load;
  Security security = Security::unknown;
  SecurityElements securityElements;
  std::optional<RsnExtension> rsnExtension;
  std::optional<OweTransition> oweTransition;
  std::optional<Interworking> interworking;
  std::optional<RoamingConsortium> roamingConsortium;
  std::optional<Hotspot> hotspot;
  std::optional<WpsInformation> wps;
  bool offersPeerLink = false;  // Wi-Fi Direct

  // A Passpoint has the indication, and the Interworking element that goes with it.
  bool isPasspoint() const { return hotspot && interworking; }

  bool operator==(const NetworkElements&) const = default;
};

// Another network of the same radio: its channel, generations and country are the sender's.
struct NontransmittedNetwork {
  std::uint8_t index = 0;      // 1 to 255
  std::optional<Bssid> bssid;  // nothing when the sender's is not known
  NetworkElements network;     // with what it inherits

  bool operator==(const NontransmittedNetwork&) const = default;
};

struct AccessPointElements {
  NetworkElements network;  // the sender itself
  std::optional<Country> country;
  std::optional<OperatingChannel> channel;
  PhyModes modes;
  std::vector<NontransmittedNetwork> others;  // by index, each once; at most 255
  // The last element was cut off: all before it counts, but what is absent may have been lost.
  bool truncated = false;

  bool operator==(const AccessPointElements&) const = default;
};

// Reads any bytes; never fails, and the time it takes is linear in them. Several elements of a kind
// that say different things count as contradicting. The result keeps nothing of the bytes. Any
// thread.
AccessPointElements parseAccessPointElements(const ReceivedFrame& frame);

}  // namespace wifi_profile::ieee80211
