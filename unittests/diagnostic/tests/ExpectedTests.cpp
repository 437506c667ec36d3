#include "diagnostic/tests/ExpectedTests.h"

namespace wifi_profile {
namespace {

ExpectedTest onDevice(ExpectedTest test) {
  test.ofDevice = true;
  return test;
}

ExpectedTest congestion(int number, std::string member, std::string label, std::string resultKey) {
  return {number,
          std::move(member),
          std::move(label),
          std::move(resultKey),
          Gate::none,
          {{"2GHzChannel", "2GHzChannel", ""},
           {"5GHzChannel", "5GHzChannel", ""},
           {"5GHz40MHzChannel", "5GHz40MHzChannel", ""},
           {"5GHzNonDFSChannel", "5GHzNonDFSChannel", ""}},
          Reading::channel};
}

ExpectedTest congestedChannel() {
  ExpectedTest test = congestion(24, "CongestedChannel", "Congested Channel", "isChannelCongested");
  test.copies.insert(test.copies.begin(), {"CurrentChannel", "currentChannel", ""});
  return test;
}

std::vector<ExpectedTest> connectivityTests() {
  return {
      {3,
       "PingLAN",
       "Ping LAN",
       "pingedLAN",
       Gate::onlyWhenPassed,
       {{"PingResult", "pingLANResult", "PingResult"}},
       Reading::pingSummary},
      {6,
       "PingWAN",
       "Ping WAN",
       "pingedWAN",
       Gate::onlyWhenPassed,
       {{"PingResult", "pingWANResult", "PingResult"}},
       Reading::pingSummary},
      {7, "ResolveDNS", "Resolve DNS", "resolvedDNS"},
      {8, "DetectDoubleNAT", "Detect Double NAT", "hasDoubleNATConfiguration"},
      {9, "ReachOrvane", "Reach Orvane", "reachedOrvane"},
      {11, "RetrieveOrvane", "Retrieve Orvane", "retrievedOrvane"},
      {12, "IPv4Assigned", "IPv4 Assigned", "isIPv4Assigned"},
      {13, "IPv6Assigned", "IPv6 Assigned", "isIPv6Assigned"},
  };
}

std::vector<ExpectedTest> firstDeviceTests() {
  return {
      onDevice({14,
                "CustomIPv4",
                "Custom IPv4",
                "isUsingCustomIPv4",
                Gate::onlyWhenNotPassed,
                {{"IPv4ConfigMethod", "IPv4ConfigMethod", "IPv4ConfigMethod"}}}),
      onDevice({15,
                "CustomIPv6",
                "Custom IPv6",
                "isUsingCustomIPv6",
                Gate::onlyWhenNotPassed,
                {{"IPv6ConfigMethod", "IPv6ConfigMethod", "IPv6ConfigMethod"}}}),
      onDevice({16, "CustomDNS", "Custom DNS", "isUsingCustomDNS"}),
      onDevice({17, "CustomWebProxy", "Custom Web Proxy", "isUsingCustomWebProxy"}),
      onDevice({18,
                "BluetoothPaired",
                "Bluetooth Paired",
                "isLargePairedBT",
                Gate::none,
                {{"BTPairedCount", "bluetoothPairedCount", "BluetoothPairedCount"}}}),
      onDevice({19,
                "BluetoothConnected",
                "Bluetooth Connected",
                "isLargeConnectedBT",
                Gate::none,
                {{"BTConnectedCount", "bluetoothConnectedCount", "BluetoothConnectedCount"}}}),
      onDevice({20, "BTCoex", "Bluetooth Coex", "isHYBRIDBTCoexistenceMode"}),
      onDevice({22, "PYNXRealTimeMode", "PYNX Real Time Mode", "isPYNXInRealTimeMode"}),
  };
}

std::vector<ExpectedTest> radioTests() {
  return {
      congestedChannel(),
      congestion(25, "Congested2GHz", "Congested 2.4GHz", "is2GHzCongested"),
      congestion(26, "Congested5GHz", "Congested 5GHz", "is5GHzCongested"),
      {27, "HT402GHzChannel", "HT 40 Channel", "hasHT40Channel"},
      {28,
       "ConflictingCountryCode",
       "Conflicting Country Code",
       "foundConflictingCountryCode",
       Gate::none,
       {{"AdoptedCountryCode", "adoptedCountryCode", "AdoptedCountryCode"}}},
      onDevice({29, "ConflictingSecurityTypeInPNL", "Conflicting Security Type in PNL",
                "doesPNLContainConflictingSecurityType"}),
      {30,
       "HiddenScanResults",
       "Hidden Scan Results",
       "foundHiddenNetworks",
       Gate::onlyWhenNotPassed,
       {{"ScanResults", "hiddenNetworkCount", "Scan Results"}},
       Reading::elementCount},
      {31,
       "NoScanResults",
       "No Scan Results",
       "foundScanResults",
       Gate::onlyWhenPassed,
       {{"ScanResults", "", "Scan Results"}},
       Reading::scanList},
      {32,
       "PoorSignal",
       "Poor Signal",
       "hasPoorSignal",
       Gate::none,
       {{"RSSI", "RSSI", "RSSI"}, {"Noise", "noise", "Noise"}}},
  };
}

std::vector<ExpectedTest> networkConfigurationTests() {
  return {
      {33,
       "BrellinBaseStation",
       "Brellin Base Station",
       "isHostedByBrellinBaseStation",
       Gate::onlyWhenPassed,
       {{"BrellinModelName", "brellinModelName", "BrellinModelName"}}},
      {34,
       "LongBeaconInterval",
       "Long Beacon Interval",
       "isBeaconIntervalLong",
       Gate::none,
       {{"BeaconInterval", "beaconInterval", "BeaconInterval"}}},
      {35,
       "LongDTIMInterval",
       "Long DTIM Interval",
       "isDTIMIntervalLong",
       Gate::none,
       {{"DTIMInterval", "DTIMInterval", "DTIMInterval"}}},
      {36,
       "ConflictingPHYMode11AC",
       "Conflicting PHY Mode (11AC)",
       "hasConflictingPHYMode11AC",
       Gate::none,
       {{"SupportedPHYModes", "supportedPHYModes", "SupportedPHYModes"}}},
      {37,
       "ConflictingPHYMode11N",
       "Conflicting PHY Mode (11N)",
       "hasConflictingPHYMode11N",
       Gate::none,
       {{"SupportedPHYModes", "supportedPHYModes", "SupportedPHYModes"}}},
      {38,
       "NoSecurity",
       "No Security",
       "isUsingOpenSecurity",
       Gate::none,
       {{"Security", "security", "Security"}}},
      {39,
       "LegacySecurityWEP",
       "Legacy Security: WEP",
       "isUsingWEPSecurity",
       Gate::none,
       {{"Security", "security", "Security"}}},
      {40,
       "LegacySecurityWPA",
       "Legacy Security: WPA",
       "isUsingWPASecurity",
       Gate::none,
       {{"Security", "security", "Security"}}},
      {41, "LegacyRates11b", "Legacy Rates (802.11b)", "isUsingLegacyRates"},
      {42,
       "AmbiguousNetworkName",
       "Ambiguous Network Name",
       "isUsingAmbiguousNetworkName",
       Gate::none,
       {{"NetworkName", "networkName", "NetworkName"}}},
      {43, "HiddenNetwork", "Hidden Network", "isHiddenNetwork"},
      {44, "NimoPersonalHotspot", "Nimo Personal Hotspot", "isNimoPersonalHotspot"},
      {45, "Passpoint", "Passpoint", "isPasspointNetwork"},
      {46,
       "CaptivePortal",
       "Captive Portal",
       "isCaptive",
       Gate::none,
       {{"PreferredNetwork", "preferredNetwork", "currentPreferredNetwork"}},
       Reading::preferredSummary},
      onDevice({47,
                "LargePNL",
                "Large PNL",
                "isLargePNL",
                Gate::none,
                {{"PNLCount", "preferredNetworkListCount", "PreferredNetworkListCount"}}}),
      onDevice({48, "PNLContainsHidden", "PNL Contains Hidden", "doesPNLContainHiddenNetworks"}),
  };
}

}  // namespace

const std::vector<ExpectedTest>& expectedTests() {
  static const std::vector<ExpectedTest> all = [] {
    std::vector<ExpectedTest> tests = connectivityTests();
    for (const auto& more : {firstDeviceTests(), radioTests(), networkConfigurationTests()}) {
      tests.insert(tests.end(), more.begin(), more.end());
    }
    return tests;
  }();
  return all;
}

}  // namespace wifi_profile
