// The catalogue of the 41 tests: one row for each test.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "diagnostic/platform/DiagnosticsTestID.h"
#include "diagnostic/platform/Object.h"

namespace wifi_profile {

class WiFiProfileViewController;

// The key of a network name, both in the parameters of the host and in the findings.
inline constexpr std::string_view kNetworkName = "networkName";

// What a test examines. This also determines which findings it writes: those of the device, or
// those of a network.
enum class TestSubject { device, network };

// Whether the information of a result is read, depending on its `didPass`.
enum class Gate { none, onlyWhenPassed, onlyWhenNotPassed };

// How the verdict is stored under the result key.
enum class VerdictForm {
  boolean,         // the verdict
  inverseInteger,  // 1 for a false verdict, 0 for a true one
};

// One value to copy from the information of a result.
struct InformationCopy {
  std::string_view infoKey;
  std::string_view outputKey;  // empty: the value is not stored in the findings
  std::string_view logName;    // the name in the "not found" line; empty: no line
};

// Converts the value of an info key (nil: the key is missing) to the object to store. Returns nil
// for a value that counts as not found. A value of a type that the handler cannot read also counts
// as not found: a service may send any value, and a null placeholder is not a record.
using InformationHandler = ObjectRef (*)(WiFiProfileViewController& controller,
                                         const ObjectRef& value);

// The handlers (tests/InformationHandlers.cpp).
ObjectRef copyUnchanged(WiFiProfileViewController&, const ObjectRef& value);
// Returns a PreferredNetworkRecord as a dictionary of eight entries.
ObjectRef summarisePreferredNetwork(WiFiProfileViewController&, const ObjectRef& value);
// Returns a PingResultRecord as a dictionary of eight entries.
ObjectRef summarisePing(WiFiProfileViewController&, const ObjectRef& value);
// Returns the channel of a ChannelRecord as an integer number.
ObjectRef readChannel(WiFiProfileViewController&, const ObjectRef& value);
// Returns the number of elements of an array as an unsigned number.
ObjectRef countElements(WiFiProfileViewController&, const ObjectRef& value);
// Stores the array in `wifiScanResults` of the controller, even if it is nil.
ObjectRef keepScanResults(WiFiProfileViewController&, const ObjectRef& value);

inline constexpr std::size_t kMostInformation = 5;

struct CatalogueTest {
  DiagnosticsTestID id;
  TestSubject subject;
  std::string_view label;  // in the failure log
  std::string_view resultKey;
  Gate gate = Gate::none;
  std::array<InformationCopy, kMostInformation> copies{};  // filled from the front
  InformationHandler handler = copyUnchanged;
  VerdictForm verdictForm = VerdictForm::boolean;

  constexpr std::string_view member() const { return nameOf(id); }

  // Returns what is copied, in order. Empty: the information of the test is not read.
  constexpr std::span<const InformationCopy> information() const {
    const auto end = std::find_if(copies.begin(), copies.end(),
                                  [](const auto& copy) { return copy.infoKey.empty(); });
    return {copies.begin(), end};
  }
};

inline constexpr std::array<InformationCopy, kMostInformation> kSecurityCopy{
    {{"Security", "security", "Security"}}};
inline constexpr std::array<InformationCopy, kMostInformation> kPHYModesCopy{
    {{"SupportedPHYModes", "supportedPHYModes", "SupportedPHYModes"}}};
// The four recommended channels. A missing one is not logged.
inline constexpr std::array<InformationCopy, kMostInformation> kBandChannelCopies{
    {{"2GHzChannel", "2GHzChannel", ""},
     {"5GHzChannel", "5GHzChannel", ""},
     {"5GHz40MHzChannel", "5GHz40MHzChannel", ""},
     {"5GHzNonDFSChannel", "5GHzNonDFSChannel", ""}}};

// In order of the identifiers. These irregularities are intended: unusual letter case, labels that
// differ from the member, log names that differ from both keys, and opposite gates.
inline constexpr std::array<CatalogueTest, 41> kCatalogue{{
    {.id = DiagnosticsTestID::PingLAN,
     .subject = TestSubject::network,
     .label = "Ping LAN",
     .resultKey = "pingedLAN",
     .gate = Gate::onlyWhenPassed,
     .copies = {{{"PingResult", "pingLANResult", "PingResult"}}},
     .handler = summarisePing},
    {.id = DiagnosticsTestID::PingWAN,
     .subject = TestSubject::network,
     .label = "Ping WAN",
     .resultKey = "pingedWAN",
     .gate = Gate::onlyWhenPassed,
     .copies = {{{"PingResult", "pingWANResult", "PingResult"}}},
     .handler = summarisePing},
    {.id = DiagnosticsTestID::ResolveDNS,
     .subject = TestSubject::network,
     .label = "Resolve DNS",
     .resultKey = "resolvedDNS"},
    {.id = DiagnosticsTestID::DetectDoubleNAT,
     .subject = TestSubject::network,
     .label = "Detect Double NAT",
     .resultKey = "hasDoubleNATConfiguration"},
    {.id = DiagnosticsTestID::ReachOrvane,
     .subject = TestSubject::network,
     .label = "Reach Orvane",
     .resultKey = "reachedOrvane"},
    {.id = DiagnosticsTestID::RetrieveOrvane,
     .subject = TestSubject::network,
     .label = "Retrieve Orvane",
     .resultKey = "retrievedOrvane"},
    {.id = DiagnosticsTestID::IPv4Assigned,
     .subject = TestSubject::network,
     .label = "IPv4 Assigned",
     .resultKey = "isIPv4Assigned"},
    {.id = DiagnosticsTestID::IPv6Assigned,
     .subject = TestSubject::network,
     .label = "IPv6 Assigned",
     .resultKey = "isIPv6Assigned"},
    {.id = DiagnosticsTestID::CustomIPv4,
     .subject = TestSubject::device,
     .label = "Custom IPv4",
     .resultKey = "isUsingCustomIPv4",
     .gate = Gate::onlyWhenNotPassed,
     .copies = {{{"IPv4ConfigMethod", "IPv4ConfigMethod", "IPv4ConfigMethod"}}}},
    {.id = DiagnosticsTestID::CustomIPv6,
     .subject = TestSubject::device,
     .label = "Custom IPv6",
     .resultKey = "isUsingCustomIPv6",
     .gate = Gate::onlyWhenNotPassed,
     .copies = {{{"IPv6ConfigMethod", "IPv6ConfigMethod", "IPv6ConfigMethod"}}}},
    {.id = DiagnosticsTestID::CustomDNS,
     .subject = TestSubject::device,
     .label = "Custom DNS",
     .resultKey = "isUsingCustomDNS"},
    {.id = DiagnosticsTestID::CustomWebProxy,
     .subject = TestSubject::device,
     .label = "Custom Web Proxy",
     .resultKey = "isUsingCustomWebProxy"},
    {.id = DiagnosticsTestID::BluetoothPaired,
     .subject = TestSubject::device,
     .label = "Bluetooth Paired",
     .resultKey = "isLargePairedBT",
     .copies = {{{"BTPairedCount", "bluetoothPairedCount", "BluetoothPairedCount"}}}},
    {.id = DiagnosticsTestID::BluetoothConnected,
     .subject = TestSubject::device,
     .label = "Bluetooth Connected",
     .resultKey = "isLargeConnectedBT",
     .copies = {{{"BTConnectedCount", "bluetoothConnectedCount", "BluetoothConnectedCount"}}}},
    {.id = DiagnosticsTestID::BTCoex,
     .subject = TestSubject::device,
     .label = "Bluetooth Coex",
     .resultKey = "isHYBRIDBTCoexistenceMode"},
    {.id = DiagnosticsTestID::PYNXRealTimeMode,
     .subject = TestSubject::device,
     .label = "PYNX Real Time Mode",
     .resultKey = "isPYNXInRealTimeMode"},
    {.id = DiagnosticsTestID::CongestedChannel,
     .subject = TestSubject::network,
     .label = "Congested Channel",
     .resultKey = "isChannelCongested",
     .copies = {{{"CurrentChannel", "currentChannel", ""},
                 kBandChannelCopies[0],
                 kBandChannelCopies[1],
                 kBandChannelCopies[2],
                 kBandChannelCopies[3]}},
     .handler = readChannel},
    {.id = DiagnosticsTestID::Congested2GHz,
     .subject = TestSubject::network,
     .label = "Congested 2.4GHz",
     .resultKey = "is2GHzCongested",
     .copies = kBandChannelCopies,
     .handler = readChannel},
    {.id = DiagnosticsTestID::Congested5GHz,
     .subject = TestSubject::network,
     .label = "Congested 5GHz",
     .resultKey = "is5GHzCongested",
     .copies = kBandChannelCopies,
     .handler = readChannel},
    {.id = DiagnosticsTestID::HT402GHzChannel,
     .subject = TestSubject::network,
     .label = "HT 40 Channel",
     .resultKey = "hasHT40Channel"},
    {.id = DiagnosticsTestID::ConflictingCountryCode,
     .subject = TestSubject::network,
     .label = "Conflicting Country Code",
     .resultKey = "foundConflictingCountryCode",
     .copies = {{{"AdoptedCountryCode", "adoptedCountryCode", "AdoptedCountryCode"}}}},
    {.id = DiagnosticsTestID::ConflictingSecurityTypeInPNL,
     .subject = TestSubject::device,
     .label = "Conflicting Security Type in PNL",
     .resultKey = "doesPNLContainConflictingSecurityType"},
    {.id = DiagnosticsTestID::HiddenScanResults,
     .subject = TestSubject::network,
     .label = "Hidden Scan Results",
     .resultKey = "foundHiddenNetworks",
     .gate = Gate::onlyWhenNotPassed,
     .copies = {{{"ScanResults", "hiddenNetworkCount", "Scan Results"}}},
     .handler = countElements},
    {.id = DiagnosticsTestID::NoScanResults,
     .subject = TestSubject::network,
     .label = "No Scan Results",
     .resultKey = "foundScanResults",
     .gate = Gate::onlyWhenPassed,
     .copies = {{{"ScanResults", "", "Scan Results"}}},
     .handler = keepScanResults,
     .verdictForm = VerdictForm::inverseInteger},
    {.id = DiagnosticsTestID::PoorSignal,
     .subject = TestSubject::network,
     .label = "Poor Signal",
     .resultKey = "hasPoorSignal",
     .copies = {{{"RSSI", "RSSI", "RSSI"}, {"Noise", "noise", "Noise"}}}},
    {.id = DiagnosticsTestID::BrellinBaseStation,
     .subject = TestSubject::network,
     .label = "Brellin Base Station",
     .resultKey = "isHostedByBrellinBaseStation",
     .gate = Gate::onlyWhenPassed,
     .copies = {{{"BrellinModelName", "brellinModelName", "BrellinModelName"}}}},
    {.id = DiagnosticsTestID::LongBeaconInterval,
     .subject = TestSubject::network,
     .label = "Long Beacon Interval",
     .resultKey = "isBeaconIntervalLong",
     .copies = {{{"BeaconInterval", "beaconInterval", "BeaconInterval"}}}},
    {.id = DiagnosticsTestID::LongDTIMInterval,
     .subject = TestSubject::network,
     .label = "Long DTIM Interval",
     .resultKey = "isDTIMIntervalLong",
     .copies = {{{"DTIMInterval", "DTIMInterval", "DTIMInterval"}}}},
    {.id = DiagnosticsTestID::ConflictingPHYMode11AC,
     .subject = TestSubject::network,
     .label = "Conflicting PHY Mode (11AC)",
     .resultKey = "hasConflictingPHYMode11AC",
     .copies = kPHYModesCopy},
    {.id = DiagnosticsTestID::ConflictingPHYMode11N,
     .subject = TestSubject::network,
     .label = "Conflicting PHY Mode (11N)",
     .resultKey = "hasConflictingPHYMode11N",
     .copies = kPHYModesCopy},
    {.id = DiagnosticsTestID::NoSecurity,
     .subject = TestSubject::network,
     .label = "No Security",
     .resultKey = "isUsingOpenSecurity",
     .copies = kSecurityCopy},
    {.id = DiagnosticsTestID::LegacySecurityWEP,
     .subject = TestSubject::network,
     .label = "Legacy Security: WEP",
     .resultKey = "isUsingWEPSecurity",
     .copies = kSecurityCopy},
    {.id = DiagnosticsTestID::LegacySecurityWPA,
     .subject = TestSubject::network,
     .label = "Legacy Security: WPA",
     .resultKey = "isUsingWPASecurity",
     .copies = kSecurityCopy},
    {.id = DiagnosticsTestID::LegacyRates11b,
     .subject = TestSubject::network,
     .label = "Legacy Rates (802.11b)",
     .resultKey = "isUsingLegacyRates"},
    {.id = DiagnosticsTestID::AmbiguousNetworkName,
     .subject = TestSubject::network,
     .label = "Ambiguous Network Name",
     .resultKey = "isUsingAmbiguousNetworkName",
     .copies = {{{"NetworkName", kNetworkName, "NetworkName"}}}},
    {.id = DiagnosticsTestID::HiddenNetwork,
     .subject = TestSubject::network,
     .label = "Hidden Network",
     .resultKey = "isHiddenNetwork"},
    {.id = DiagnosticsTestID::NimoPersonalHotspot,
     .subject = TestSubject::network,
     .label = "Nimo Personal Hotspot",
     .resultKey = "isNimoPersonalHotspot"},
    {.id = DiagnosticsTestID::Passpoint,
     .subject = TestSubject::network,
     .label = "Passpoint",
     .resultKey = "isPasspointNetwork"},
    {.id = DiagnosticsTestID::CaptivePortal,
     .subject = TestSubject::network,
     .label = "Captive Portal",
     .resultKey = "isCaptive",
     .copies = {{{"PreferredNetwork", "preferredNetwork", "currentPreferredNetwork"}}},
     .handler = summarisePreferredNetwork},
    {.id = DiagnosticsTestID::LargePNL,
     .subject = TestSubject::device,
     .label = "Large PNL",
     .resultKey = "isLargePNL",
     .copies = {{{"PNLCount", "preferredNetworkListCount", "PreferredNetworkListCount"}}}},
    {.id = DiagnosticsTestID::PNLContainsHidden,
     .subject = TestSubject::device,
     .label = "PNL Contains Hidden",
     .resultKey = "doesPNLContainHiddenNetworks"},
}};

// Returns the row of a test.
constexpr const CatalogueTest& catalogueTest(DiagnosticsTestID id) {
  return *std::find_if(kCatalogue.begin(), kCatalogue.end(),
                       [id](const CatalogueTest& test) { return test.id == id; });
}

namespace catalogue_checks {

constexpr bool rowsMatchTheIdentifiers() {
  for (std::size_t i = 0; i < kCatalogue.size(); ++i) {
    if (kCatalogue[i].id != kDiagnosticsTestNames[i].id) return false;
  }
  return std::is_sorted(kCatalogue.begin(), kCatalogue.end(),
                        [](const auto& a, const auto& b) { return a.id < b.id; });
}

constexpr bool resultKeysAreDistinct() {
  for (std::size_t i = 0; i < kCatalogue.size(); ++i) {
    if (kCatalogue[i].label.empty() || kCatalogue[i].resultKey.empty()) return false;
    for (std::size_t j = 0; j < i; ++j) {
      if (kCatalogue[i].resultKey == kCatalogue[j].resultKey) return false;
    }
  }
  return true;
}

static_assert(rowsMatchTheIdentifiers());
static_assert(resultKeysAreDistinct());

}  // namespace catalogue_checks

}  // namespace wifi_profile
