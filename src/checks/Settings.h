// What a person can set about the checks: thresholds and names. The defaults are good for homes and
// offices; docs/CHECKS.md has their sources.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace wifi_profile::checks {

struct Settings {
  int poorSignalBelow = -75;          // dBm
  int longBeaconIntervalAbove = 200;  // TU
  int longDtimPeriodAbove = 3;        // beacons
  int largeSavedListAbove = 50;       // networks
  int bluetoothConnectedAbove = 3;    // devices
  int bluetoothPairedAbove = 10;      // devices
  double congestedBusyShare = 0.70;   // of the time that the radio listened, own frames left out
  int congestedUtilization = 192;     // BSS Load, of 255
  double congestedNeighbours = 6;     // boxes of others on the channel; overlapping ones count 1.5
  // Names that makers give their boxes, in lower case; '*' stands for any bytes.
  std::vector<std::string> ambiguousNames;
  // Networks in which phones share their connection, such as 192.168.43.0/24.
  std::vector<std::string> hotspotSubnets;
  // Base stations, by maker in WPS (in lower case, part of it) and by the address' first bytes.
  std::vector<std::string> baseStationMakers;
  std::vector<std::string> baseStationAddressBlocks;  // such as 02:21:8d

  bool operator==(const Settings&) const = default;
};

// With the lists that are good for most.
Settings defaultSettings();

}  // namespace wifi_profile::checks
