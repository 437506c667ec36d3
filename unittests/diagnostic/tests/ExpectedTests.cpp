#include "diagnostic/tests/ExpectedTests.h"

#include <functional>

namespace wifi_profile {
namespace {

using Controller = WiFiProfileViewController;

// A name with the operations of a test of the device, of a test of the current network only, and of
// one of the current and the selected network.
#define DEVICE(member) \
  { #member, &Controller::runDeviceConfiguration##member }
#define CURRENT(member) \
  { #member, nullptr, &Controller::runCurrentNetwork##member##WithConfiguration }
#define NETWORK(member)                                                          \
  {                                                                              \
#member, nullptr, &Controller::runCurrentNetwork##member##WithConfiguration, \
        &Controller::runSelectedNetwork##member                                  \
  }

template <class Fits>
std::vector<int> numbersThat(Fits fits) {
  std::vector<int> numbers;
  for (const ExpectedTest& test : expectedTests()) {
    if (std::invoke(fits, test)) numbers.push_back(test.number);
  }
  return numbers;
}

}  // namespace

const std::vector<ExpectedTest>& expectedTests() {
  const std::vector<ExpectedCopy> bandChannels{{"2GHzChannel", "2GHzChannel", ""},
                                               {"5GHzChannel", "5GHzChannel", ""},
                                               {"5GHz40MHzChannel", "5GHz40MHzChannel", ""},
                                               {"5GHzNonDFSChannel", "5GHzNonDFSChannel", ""}};
  std::vector<ExpectedCopy> channels = bandChannels;
  channels.insert(channels.begin(), {"CurrentChannel", "currentChannel", ""});
  static const std::vector<ExpectedTest> kTests{
      {14,
       DEVICE(CustomIPv4),
       "Custom IPv4",
       "isUsingCustomIPv4",
       Gate::onlyWhenNotPassed,
       {{"IPv4ConfigMethod", "IPv4ConfigMethod", "IPv4ConfigMethod"}}},
      {15,
       DEVICE(CustomIPv6),
       "Custom IPv6",
       "isUsingCustomIPv6",
       Gate::onlyWhenNotPassed,
       {{"IPv6ConfigMethod", "IPv6ConfigMethod", "IPv6ConfigMethod"}}},
      {16, DEVICE(CustomDNS), "Custom DNS", "isUsingCustomDNS"},
      {17, DEVICE(CustomWebProxy), "Custom Web Proxy", "isUsingCustomWebProxy"},
      {22, DEVICE(PYNXRealTimeMode), "PYNX Real Time Mode", "isPYNXInRealTimeMode"},
      {19,
       DEVICE(BluetoothConnected),
       "Bluetooth Connected",
       "isLargeConnectedBT",
       Gate::none,
       {{"BTConnectedCount", "bluetoothConnectedCount", "BluetoothConnectedCount"}}},
      {18,
       DEVICE(BluetoothPaired),
       "Bluetooth Paired",
       "isLargePairedBT",
       Gate::none,
       {{"BTPairedCount", "bluetoothPairedCount", "BluetoothPairedCount"}}},
      {20, DEVICE(BTCoex), "Bluetooth Coex", "isHYBRIDBTCoexistenceMode"},
      {47,
       DEVICE(LargePNL),
       "Large PNL",
       "isLargePNL",
       Gate::none,
       {{"PNLCount", "preferredNetworkListCount", "PreferredNetworkListCount"}}},
      {48, DEVICE(PNLContainsHidden), "PNL Contains Hidden", "doesPNLContainHiddenNetworks"},
      {29, DEVICE(ConflictingSecurityTypeInPNL), "Conflicting Security Type in PNL",
       "doesPNLContainConflictingSecurityType"},
      {8, CURRENT(DetectDoubleNAT), "Detect Double NAT", "hasDoubleNATConfiguration"},
      {34,
       NETWORK(LongBeaconInterval),
       "Long Beacon Interval",
       "isBeaconIntervalLong",
       Gate::none,
       {{"BeaconInterval", "beaconInterval", "BeaconInterval"}}},
      {35,
       CURRENT(LongDTIMInterval),
       "Long DTIM Interval",
       "isDTIMIntervalLong",
       Gate::none,
       {{"DTIMInterval", "DTIMInterval", "DTIMInterval"}}},
      {38,
       NETWORK(NoSecurity),
       "No Security",
       "isUsingOpenSecurity",
       Gate::none,
       {{"Security", "security", "Security"}}},
      {39,
       NETWORK(LegacySecurityWEP),
       "Legacy Security: WEP",
       "isUsingWEPSecurity",
       Gate::none,
       {{"Security", "security", "Security"}}},
      {40,
       NETWORK(LegacySecurityWPA),
       "Legacy Security: WPA",
       "isUsingWPASecurity",
       Gate::none,
       {{"Security", "security", "Security"}}},
      {41, NETWORK(LegacyRates11b), "Legacy Rates (802.11b)", "isUsingLegacyRates"},
      {42,
       NETWORK(AmbiguousNetworkName),
       "Ambiguous Network Name",
       "isUsingAmbiguousNetworkName",
       Gate::none,
       {{"NetworkName", "networkName", "NetworkName"}}},
      {43, NETWORK(HiddenNetwork), "Hidden Network", "isHiddenNetwork"},
      {44, NETWORK(NimoPersonalHotspot), "Nimo Personal Hotspot", "isNimoPersonalHotspot"},
      {46,
       NETWORK(CaptivePortal),
       "Captive Portal",
       "isCaptive",
       Gate::none,
       {{"PreferredNetwork", "preferredNetwork", "currentPreferredNetwork"}},
       Reading::preferredSummary},
      {45, NETWORK(Passpoint), "Passpoint", "isPasspointNetwork"},
      {36,
       NETWORK(ConflictingPHYMode11AC),
       "Conflicting PHY Mode (11AC)",
       "hasConflictingPHYMode11AC",
       Gate::none,
       {{"SupportedPHYModes", "supportedPHYModes", "SupportedPHYModes"}}},
      {37,
       NETWORK(ConflictingPHYMode11N),
       "Conflicting PHY Mode (11N)",
       "hasConflictingPHYMode11N",
       Gate::none,
       {{"SupportedPHYModes", "supportedPHYModes", "SupportedPHYModes"}}},
      {33,
       NETWORK(BrellinBaseStation),
       "Brellin Base Station",
       "isHostedByBrellinBaseStation",
       Gate::onlyWhenPassed,
       {{"BrellinModelName", "brellinModelName", "BrellinModelName"}}},
      {3,
       CURRENT(PingLAN),
       "Ping LAN",
       "pingedLAN",
       Gate::onlyWhenPassed,
       {{"PingResult", "pingLANResult", "PingResult"}},
       Reading::pingSummary},
      {6,
       CURRENT(PingWAN),
       "Ping WAN",
       "pingedWAN",
       Gate::onlyWhenPassed,
       {{"PingResult", "pingWANResult", "PingResult"}},
       Reading::pingSummary},
      {12, CURRENT(IPv4Assigned), "IPv4 Assigned", "isIPv4Assigned"},
      {13, CURRENT(IPv6Assigned), "IPv6 Assigned", "isIPv6Assigned"},
      {7, CURRENT(ResolveDNS), "Resolve DNS", "resolvedDNS"},
      {9, CURRENT(ReachOrvane), "Reach Orvane", "reachedOrvane"},
      {11, CURRENT(RetrieveOrvane), "Retrieve Orvane", "retrievedOrvane"},
      {24, NETWORK(CongestedChannel), "Congested Channel", "isChannelCongested", Gate::none,
       channels, Reading::channel},
      {25, CURRENT(Congested2GHz), "Congested 2.4GHz", "is2GHzCongested", Gate::none, bandChannels,
       Reading::channel},
      {26, CURRENT(Congested5GHz), "Congested 5GHz", "is5GHzCongested", Gate::none, bandChannels,
       Reading::channel},
      {27, CURRENT(HT402GHzChannel), "HT 40 Channel", "hasHT40Channel"},
      {28,
       NETWORK(ConflictingCountryCode),
       "Conflicting Country Code",
       "foundConflictingCountryCode",
       Gate::none,
       {{"AdoptedCountryCode", "adoptedCountryCode", "AdoptedCountryCode"}}},
      {32,
       NETWORK(PoorSignal),
       "Poor Signal",
       "hasPoorSignal",
       Gate::none,
       {{"RSSI", "RSSI", "RSSI"}, {"Noise", "noise", "Noise"}}},
      {30,
       CURRENT(HiddenScanResults),
       "Hidden Scan Results",
       "foundHiddenNetworks",
       Gate::onlyWhenNotPassed,
       {{"ScanResults", "hiddenNetworkCount", "Scan Results"}},
       Reading::elementCount},
      {31,
       CURRENT(NoScanResults),
       "No Scan Results",
       "foundScanResults",
       Gate::onlyWhenPassed,
       {{"ScanResults", "", "Scan Results"}},
       Reading::scanList},
  };
  return kTests;
}

std::vector<int> expectedDeviceBatch() { return numbersThat(&ExpectedTest::isOfDevice); }
std::vector<int> expectedCurrentBatch() {
  return numbersThat([](const ExpectedTest& test) {
    return !test.isOfDevice() && test.member() != "NoScanResults";
  });
}
std::vector<int> expectedSelectedBatch() {
  return numbersThat(
      [](const ExpectedTest& test) { return test.operations.ofSelected != nullptr; });
}

}  // namespace wifi_profile
