// The contents of an access point's beacon or probe response, as far as the parsers know them.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/ieee80211/MultipleBssid.h"
#include "analysis/ieee80211/Network.h"
#include "analysis/ieee80211/OperatingChannel.h"
#include "analysis/ieee80211/Passpoint.h"
#include "analysis/ieee80211/PhyModes.h"
#include "analysis/ieee80211/Security.h"
#include "analysis/ieee80211/Wps.h"

namespace wifi_profile::ieee80211 {

// A received frame, as nl80211 reports it.
struct ReceivedFrame {
  Bytes elements;                  // after the fixed fields
  std::uint16_t capabilities = 0;  // the Capability Information field (IEEE 802.11-2020, 9.4.1.4)
  std::optional<Bssid> bssid = std::nullopt;    // of the sender
  std::optional<int> frequency = std::nullopt;  // MHz
};

// The elements of one network. A member is empty if its element is absent, damaged or
// contradictory.
struct NetworkElements {
  std::uint16_t capabilities = 0;
  std::optional<Ssid> ssid;
  std::optional<Rates> rates;
  std::optional<Dtim> dtim;
  std::optional<BssLoad> load;
  Security security = Security::unknown;
  SecurityElements securityElements;
  bool oweTransition = false;  // links an open network and its encrypted twin
  std::optional<Interworking> interworking;
  bool hotspot = false;  // Hotspot 2.0 Indication
  std::optional<WpsInformation> wps;

  // A Passpoint network has both the indication and an Interworking element.
  bool isPasspoint() const { return hotspot && interworking; }

  bool operator==(const NetworkElements&) const = default;
};

// Another network of the same radio. It has the sender's channel, generations and country.
struct NontransmittedNetwork {
  std::uint8_t index = 0;      // 1 to 255
  std::optional<Bssid> bssid;  // empty if the sender's BSSID is unknown
  NetworkElements network;     // includes what it inherits

  bool operator==(const NontransmittedNetwork&) const = default;
};

struct AccessPointElements {
  NetworkElements network;  // the sender
  std::optional<Country> country;
  std::optional<OperatingChannel> channel;
  PhyModes modes;
  std::vector<NontransmittedNetwork> others;  // in order of index, each index once; at most 255
  // The last element was cut off: the elements before it are valid, but absent ones may be lost.
  bool truncated = false;

  bool operator==(const AccessPointElements&) const = default;
};

// Accepts any bytes and never fails; the time is linear in their number. Elements of one kind with
// different contents count as contradictory. The result keeps no reference to the bytes. Any
// thread.
AccessPointElements parseAccessPointElements(const ReceivedFrame& frame);

}  // namespace wifi_profile::ieee80211
