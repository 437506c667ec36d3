// The numbered tests of the Wi-Fi diagnostics service.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace wifi_profile {

// The identifiers that the service gives its tests. The missing numbers are tests that are never
// requested.
enum class DiagnosticsTestID : std::int32_t {
  PingLAN = 3,
  PingWAN = 6,
  ResolveDNS = 7,
  DetectDoubleNAT = 8,
  ReachOrvane = 9,
  RetrieveOrvane = 11,
  IPv4Assigned = 12,
  IPv6Assigned = 13,
  CustomIPv4 = 14,
  CustomIPv6 = 15,
  CustomDNS = 16,
  CustomWebProxy = 17,
  BluetoothPaired = 18,
  BluetoothConnected = 19,
  BTCoex = 20,
  PYNXRealTimeMode = 22,
  CongestedChannel = 24,
  Congested2GHz = 25,
  Congested5GHz = 26,
  HT402GHzChannel = 27,
  ConflictingCountryCode = 28,
  ConflictingSecurityTypeInPNL = 29,
  HiddenScanResults = 30,
  NoScanResults = 31,
  PoorSignal = 32,
  BrellinBaseStation = 33,
  LongBeaconInterval = 34,
  LongDTIMInterval = 35,
  ConflictingPHYMode11AC = 36,
  ConflictingPHYMode11N = 37,
  NoSecurity = 38,
  LegacySecurityWEP = 39,
  LegacySecurityWPA = 40,
  LegacyRates11b = 41,
  AmbiguousNetworkName = 42,
  HiddenNetwork = 43,
  NimoPersonalHotspot = 44,
  Passpoint = 45,
  CaptivePortal = 46,
  LargePNL = 47,
  PNLContainsHidden = 48,
};

struct DiagnosticsTestName {
  DiagnosticsTestID id;
  std::string_view name;
};

// Every identifier with its name, in ascending order of the identifiers.
inline constexpr std::array<DiagnosticsTestName, 41> kDiagnosticsTestNames{{
    {DiagnosticsTestID::PingLAN, "PingLAN"},
    {DiagnosticsTestID::PingWAN, "PingWAN"},
    {DiagnosticsTestID::ResolveDNS, "ResolveDNS"},
    {DiagnosticsTestID::DetectDoubleNAT, "DetectDoubleNAT"},
    {DiagnosticsTestID::ReachOrvane, "ReachOrvane"},
    {DiagnosticsTestID::RetrieveOrvane, "RetrieveOrvane"},
    {DiagnosticsTestID::IPv4Assigned, "IPv4Assigned"},
    {DiagnosticsTestID::IPv6Assigned, "IPv6Assigned"},
    {DiagnosticsTestID::CustomIPv4, "CustomIPv4"},
    {DiagnosticsTestID::CustomIPv6, "CustomIPv6"},
    {DiagnosticsTestID::CustomDNS, "CustomDNS"},
    {DiagnosticsTestID::CustomWebProxy, "CustomWebProxy"},
    {DiagnosticsTestID::BluetoothPaired, "BluetoothPaired"},
    {DiagnosticsTestID::BluetoothConnected, "BluetoothConnected"},
    {DiagnosticsTestID::BTCoex, "BTCoex"},
    {DiagnosticsTestID::PYNXRealTimeMode, "PYNXRealTimeMode"},
    {DiagnosticsTestID::CongestedChannel, "CongestedChannel"},
    {DiagnosticsTestID::Congested2GHz, "Congested2GHz"},
    {DiagnosticsTestID::Congested5GHz, "Congested5GHz"},
    {DiagnosticsTestID::HT402GHzChannel, "HT402GHzChannel"},
    {DiagnosticsTestID::ConflictingCountryCode, "ConflictingCountryCode"},
    {DiagnosticsTestID::ConflictingSecurityTypeInPNL, "ConflictingSecurityTypeInPNL"},
    {DiagnosticsTestID::HiddenScanResults, "HiddenScanResults"},
    {DiagnosticsTestID::NoScanResults, "NoScanResults"},
    {DiagnosticsTestID::PoorSignal, "PoorSignal"},
    {DiagnosticsTestID::BrellinBaseStation, "BrellinBaseStation"},
    {DiagnosticsTestID::LongBeaconInterval, "LongBeaconInterval"},
    {DiagnosticsTestID::LongDTIMInterval, "LongDTIMInterval"},
    {DiagnosticsTestID::ConflictingPHYMode11AC, "ConflictingPHYMode11AC"},
    {DiagnosticsTestID::ConflictingPHYMode11N, "ConflictingPHYMode11N"},
    {DiagnosticsTestID::NoSecurity, "NoSecurity"},
    {DiagnosticsTestID::LegacySecurityWEP, "LegacySecurityWEP"},
    {DiagnosticsTestID::LegacySecurityWPA, "LegacySecurityWPA"},
    {DiagnosticsTestID::LegacyRates11b, "LegacyRates11b"},
    {DiagnosticsTestID::AmbiguousNetworkName, "AmbiguousNetworkName"},
    {DiagnosticsTestID::HiddenNetwork, "HiddenNetwork"},
    {DiagnosticsTestID::NimoPersonalHotspot, "NimoPersonalHotspot"},
    {DiagnosticsTestID::Passpoint, "Passpoint"},
    {DiagnosticsTestID::CaptivePortal, "CaptivePortal"},
    {DiagnosticsTestID::LargePNL, "LargePNL"},
    {DiagnosticsTestID::PNLContainsHidden, "PNLContainsHidden"},
}};

constexpr std::string_view nameOf(DiagnosticsTestID id) {
  for (const auto& test : kDiagnosticsTestNames) {
    if (test.id == id) return test.name;
  }
  return {};
}

constexpr std::optional<DiagnosticsTestID> testNamed(std::string_view name) {
  for (const auto& test : kDiagnosticsTestNames) {
    if (test.name == name) return test.id;
  }
  return std::nullopt;
}

}  // namespace wifi_profile
