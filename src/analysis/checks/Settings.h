// The settings of the checks: thresholds and names. The defaults suit homes and offices;
// docs/CHECKS.md has their sources.
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
  double congestedBusyShare = 0.70;   // of the time that the radio listened, without its own frames
  int congestedUtilization = 192;     // BSS Load, of 255
  double congestedNeighbours = 6;     // others' boxes on the channel; an overlapping one counts 1.5
  // Names that makers give their access points; '*' stands for any bytes. Case is ignored.
  std::vector<std::string> ambiguousNames;
  // Subnets that phones use when they share their connection, such as 192.168.43.0/24.
  std::vector<std::string> hotspotSubnets;
  // Base stations: parts of the maker's name in WPS (case is ignored), and first bytes of the
  // address.
  std::vector<std::string> baseStationMakers;
  std::vector<std::string> baseStationAddressBlocks;  // such as 02:21:8d

  bool operator==(const Settings&) const = default;
};

// Returns the default thresholds and lists.
Settings defaultSettings();

}  // namespace wifi_profile::checks
