#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile {
namespace {

constexpr Meaning good(std::string_view sentence) { return {Mark::good, sentence}; }
constexpr Meaning plain(std::string_view sentence) { return {Mark::plain, sentence}; }
constexpr Meaning look(std::string_view sentence, std::string_view advice) {
  return {Mark::look, sentence, advice};
}
constexpr Meaning problem(std::string_view sentence, std::string_view advice) {
  return {Mark::problem, sentence, advice};
}

// Values that several tests copy, and entries of values that are dictionaries.

using Copies = std::array<InformationCopy, kMostInformation>;

constexpr Copies kSecurity{
    {{.infoKey = "Security",
      .outputKey = "security",
      .logName = "Security",
      .name = "security",
      .explanation = "How the network is protected, as the service names or numbers it."}}};

constexpr Copies kRadioModes{
    {{.infoKey = "SupportedPHYModes",
      .outputKey = "supportedPHYModes",
      .logName = "SupportedPHYModes",
      .name = "radio modes",
      .explanation = "Radio modes (802.11a, b, g, n, ac and so on) that the network offers."}}};

// The recommended channels. A missing one is not logged.
constexpr InformationCopy kBest2GHzChannel{
    .infoKey = "2GHzChannel",
    .outputKey = "2GHzChannel",
    .name = "best 2.4 GHz channel",
    .explanation =
        "Channel that the service recommends in the 2.4 GHz band, where 1, 6 and 11 do "
        "not overlap."};
constexpr InformationCopy kBest5GHzChannel{
    .infoKey = "5GHzChannel",
    .outputKey = "5GHzChannel",
    .name = "best 5 GHz channel",
    .explanation = "Channel that the service recommends in the 5 GHz band."};
constexpr InformationCopy kBest40MHzChannel{
    .infoKey = "5GHz40MHzChannel",
    .outputKey = "5GHz40MHzChannel",
    .name = "best 40 MHz wide channel",
    .explanation = "Channel that the service recommends in the 5 GHz band for a width of 40 MHz."};
constexpr InformationCopy kBestNonDfsChannel{
    .infoKey = "5GHzNonDFSChannel",
    .outputKey = "5GHzNonDFSChannel",
    .name = "best channel without DFS",
    .explanation =
        "Channel that the service recommends in the 5 GHz band among those that need "
        "not give way to radar (no DFS)."};
constexpr Copies kBestChannels{
    {kBest2GHzChannel, kBest5GHzChannel, kBest40MHzChannel, kBestNonDfsChannel}};

constexpr std::array kPingEntries{
    EntryName{"count", "count"},    EntryName{"packetLoss", "loss", "%"},
    EntryName{"avg", "mean", "ms"}, EntryName{"min", "least", "ms"},
    EntryName{"max", "most", "ms"}, EntryName{"stddev", "deviation", "ms"},
    EntryName{"SSID", "interface"},  // here the SSID entry holds the interface's name
    EntryName{"timestamp", "at"},
};

constexpr std::array kRememberedEntries{
    EntryName{"SSID", "name"},
    EntryName{"security", "security"},
    EntryName{"isEnabled", "enabled"},
    EntryName{"isPasspoint", "Passpoint"},
    EntryName{"isCaptive", "sign-in page"},
    EntryName{"isHidden", "hidden"},
    EntryName{"isMultiAP", "several access points"},
    EntryName{"lastJoined", "last joined"},
};

}  // namespace

// These irregularities are intended: unusual letter case, labels that differ from the member, log
// names that differ from both keys, and opposite gates.
constexpr std::array<CatalogueTest, kDiagnosticsTestNames.size()> kCatalogue{{
    {.id = DiagnosticsTestID::PingLAN,
     .label = "Ping LAN",
     .resultKey = "pingedLAN",
     .question = "Does the router answer?",
     .yes = good("The router answers."),
     .no = problem("The router does not answer.",
                   "Move closer to the router or restart it, unless it is set to ignore pings."),
     .gate = Gate::onlyWhenPassed,
     .copies = {{{.infoKey = "PingResult",
                  .outputKey = "pingLANResult",
                  .logName = "PingResult",
                  .name = "pings",
                  .explanation =
                      "What pings to the router measured: SSID (here the interface's name), count, "
                      "packetLoss (percent), min, max, avg and stddev (milliseconds), and "
                      "timestamp.",
                  .absence = Absence::normal,  // a router known only as a neighbour has no times
                  .entries = kPingEntries}}},
     .handler = summarisePing},
    {.id = DiagnosticsTestID::PingWAN,
     .label = "Ping WAN",
     .resultKey = "pingedWAN",
     .question = "Does the internet answer?",
     .yes = good("The internet answers."),
     .no = problem("The internet does not answer.",
                   "Check the router's own internet connection: cable, modem and provider."),
     .gate = Gate::onlyWhenPassed,
     .copies = {{{.infoKey = "PingResult",
                  .outputKey = "pingWANResult",
                  .logName = "PingResult",
                  .name = "pings",
                  .explanation =
                      "What pings to the internet measured: SSID (here the interface's name), "
                      "count, packetLoss (percent), min, max, avg and stddev (milliseconds), and "
                      "timestamp.",
                  .entries = kPingEntries}}},
     .handler = summarisePing},
    {.id = DiagnosticsTestID::ResolveDNS,
     .label = "Resolve DNS",
     .resultKey = "resolvedDNS",
     .question = "Can site names be looked up (DNS)?",
     .yes = good("Site names can be looked up (DNS)."),
     .no = problem("Site names cannot be looked up (DNS).",
                   "Check the DNS servers set in the device and in the router, or restart the "
                   "router.")},
    {.id = DiagnosticsTestID::DetectDoubleNAT,
     .label = "Detect Double NAT",
     .resultKey = "hasDoubleNATConfiguration",
     .question = "Do two routers in a row translate addresses (double NAT)?",
     .yes = look("Two routers in a row translate addresses (double NAT).",
                 "Set one of the two routers to bridge or access point mode."),
     .no = good("Addresses are not translated twice (no double NAT).")},
    {.id = DiagnosticsTestID::ReachOrvane,
     .label = "Reach Orvane",
     .resultKey = "reachedOrvane",
     .question = "Can the server of the Orvane service be reached?",
     .yes = good("The server of the Orvane service can be reached."),
     .no = problem("The server of the Orvane service cannot be reached.",
                   "Check whether a firewall or a filter blocks it if the internet answers.")},
    {.id = DiagnosticsTestID::RetrieveOrvane,
     .label = "Retrieve Orvane",
     .resultKey = "retrievedOrvane",
     .question = "Can a page of the Orvane service be fetched?",
     .yes = good("A page of the Orvane service can be fetched."),
     .no = problem("The page of the Orvane service cannot be fetched.",
                   "Open any page in a browser to see whether a sign-in page, proxy or filter "
                   "blocks it.")},
    {.id = DiagnosticsTestID::IPv4Assigned,
     .label = "IPv4 Assigned",
     .resultKey = "isIPv4Assigned",
     .question = "Does the device have an IPv4 address?",
     .yes = good("The device has an IPv4 address."),
     .no = problem("The device has no IPv4 address.",
                   "Join the network again or restart the router, unless the network uses IPv6 "
                   "only.")},
    {.id = DiagnosticsTestID::IPv6Assigned,
     .label = "IPv6 Assigned",
     .resultKey = "isIPv6Assigned",
     .question = "Does the device have an IPv6 address?",
     .yes = good("The device has an IPv6 address."),
     .no = plain("The device has no IPv6 address, which is common.")},
    {.id = DiagnosticsTestID::CustomIPv4,
     .label = "Custom IPv4",
     .resultKey = "isUsingCustomIPv4",
     .question = "Is IPv4 set up by hand?",
     .yes = look("IPv4 is set up by hand.",
                 "Set IPv4 back to automatic (DHCP) if the network does not work."),
     .no = good("IPv4 is set up automatically."),
     .gate = Gate::onlyWhenNotPassed,
     .copies = {{{.infoKey = "IPv4ConfigMethod",
                  .outputKey = "IPv4ConfigMethod",
                  .logName = "IPv4ConfigMethod",
                  .name = "method",
                  .explanation = "How the device gets its IPv4 address, as the service names it. "
                                 "Usually from the network (DHCP)."}}}},
    {.id = DiagnosticsTestID::CustomIPv6,
     .label = "Custom IPv6",
     .resultKey = "isUsingCustomIPv6",
     .question = "Is IPv6 set up by hand?",
     .yes = look("IPv6 is set up by hand.",
                 "Set IPv6 back to automatic if the network does not work."),
     .no = good("IPv6 is set up automatically."),
     .gate = Gate::onlyWhenNotPassed,
     .copies = {{{.infoKey = "IPv6ConfigMethod",
                  .outputKey = "IPv6ConfigMethod",
                  .logName = "IPv6ConfigMethod",
                  .name = "method",
                  .explanation = "How the device gets its IPv6 address, as the service names it. "
                                 "Usually automatically."}}}},
    {.id = DiagnosticsTestID::CustomDNS,
     .label = "Custom DNS",
     .resultKey = "isUsingCustomDNS",
     .question = "Are the DNS servers set by hand?",
     .yes = look("The DNS servers are set by hand.",
                 "Try the network's own DNS servers if sites are not found or slow to open."),
     .no = good("The DNS servers are the network's own.")},
    {.id = DiagnosticsTestID::CustomWebProxy,
     .label = "Custom Web Proxy",
     .resultKey = "isUsingCustomWebProxy",
     .question = "Do web pages go through a proxy set by hand?",
     .yes = look("Web pages go through a proxy that was set by hand.",
                 "Switch the proxy off unless you know what it is for."),
     .no = good("Web pages do not go through a proxy set by hand.")},
    {.id = DiagnosticsTestID::BluetoothPaired,
     .label = "Bluetooth Paired",
     .resultKey = "isLargePairedBT",
     .question = "Are many Bluetooth devices paired?",
     .yes =
         look("Many Bluetooth devices are paired.", "Remove the pairings that are no longer used."),
     .no = good("The number of paired Bluetooth devices is moderate."),
     .copies = {{{.infoKey = "BTPairedCount",
                  .outputKey = "bluetoothPairedCount",
                  .logName = "BluetoothPairedCount",
                  .name = "paired devices",
                  .explanation = "Number of paired Bluetooth devices, connected or not."}}}},
    {.id = DiagnosticsTestID::BluetoothConnected,
     .label = "Bluetooth Connected",
     .resultKey = "isLargeConnectedBT",
     .question = "Are many Bluetooth devices connected?",
     .yes = look("Many Bluetooth devices are connected.",
                 "Disconnect some or use a 5 GHz network: Bluetooth uses the 2.4 GHz band, too."),
     .no = good("The number of connected Bluetooth devices is moderate."),
     .copies = {{{.infoKey = "BTConnectedCount",
                  .outputKey = "bluetoothConnectedCount",
                  .logName = "BluetoothConnectedCount",
                  .name = "connected devices",
                  .explanation = "Number of Bluetooth devices that are connected now."}}}},
    {.id = DiagnosticsTestID::BTCoex,
     .label = "Bluetooth Coex",
     .resultKey = "isHYBRIDBTCoexistenceMode",
     .question = "Do Wi-Fi and Bluetooth take turns (hybrid coexistence mode)?",
     .yes = look("Wi-Fi and Bluetooth take turns (hybrid coexistence mode).",
                 "Use a 5 GHz network if Wi-Fi is slow while Bluetooth is busy."),
     .no = good("Wi-Fi and Bluetooth are not in hybrid coexistence mode.")},
    {.id = DiagnosticsTestID::PYNXRealTimeMode,
     .label = "PYNX Real Time Mode",
     .resultKey = "isPYNXInRealTimeMode",
     .question = "Is PYNX, the direct link between devices, in real-time mode?",
     .yes = look("PYNX, the direct link between devices, is in real-time mode.",
                 "Close what uses the direct link if Wi-Fi is slow: both share air time."),
     .no = good("PYNX, the direct link between devices, is not in real-time mode.")},
    {.id = DiagnosticsTestID::CongestedChannel,
     .label = "Congested Channel",
     .resultKey = "isChannelCongested",
     .question = "Is the network's channel crowded?",
     .yes = look("The network's channel is crowded.",
                 "Set the router to a recommended channel, or let it choose one automatically."),
     .no = good("The network's channel is not crowded."),
     .copies = {{{.infoKey = "CurrentChannel",
                  .outputKey = "currentChannel",
                  .name = "channel",
                  .explanation = "Radio channel that the network uses now."},
                 kBest2GHzChannel,
                 kBest5GHzChannel,
                 kBest40MHzChannel,
                 kBestNonDfsChannel}},
     .handler = readChannel},
    {.id = DiagnosticsTestID::Congested2GHz,
     .label = "Congested 2.4GHz",
     .resultKey = "is2GHzCongested",
     .question = "Is the 2.4 GHz band crowded?",
     .yes = look("The 2.4 GHz band is crowded.", "Use the 5 GHz band if the network offers it."),
     .no = good("The 2.4 GHz band is not crowded."),
     .copies = kBestChannels,
     .handler = readChannel},
    {.id = DiagnosticsTestID::Congested5GHz,
     .label = "Congested 5GHz",
     .resultKey = "is5GHzCongested",
     .question = "Is the 5 GHz band crowded?",
     .yes = look("The 5 GHz band is crowded.",
                 "Set the router to a recommended channel, or to a narrower channel width."),
     .no = good("The 5 GHz band is not crowded."),
     .copies = kBestChannels,
     .handler = readChannel},
    {.id = DiagnosticsTestID::HT402GHzChannel,
     .label = "HT 40 Channel",
     .resultKey = "hasHT40Channel",
     .question = "Is there a 40 MHz wide channel in the 2.4 GHz band?",
     .yes = look("A 40 MHz wide channel is in use in the 2.4 GHz band.",
                 "Set the router to 20 MHz in this band: 40 MHz takes about half of it."),
     .no = good("No 40 MHz wide channel is in use in the 2.4 GHz band.")},
    {.id = DiagnosticsTestID::ConflictingCountryCode,
     .label = "Conflicting Country Code",
     .resultKey = "foundConflictingCountryCode",
     .question = "Do access points announce different countries?",
     .yes = look("Access points announce different countries.",
                 "Set your own access point to its country, which determines channels and power."),
     .no = good("Access points do not announce different countries."),
     .copies = {{{.infoKey = "AdoptedCountryCode",
                  .outputKey = "adoptedCountryCode",
                  .logName = "AdoptedCountryCode",
                  .name = "country",
                  .explanation = "Country whose rules for channels and power the device follows, "
                                 "usually a code of two letters.",
                  .absence = Absence::normal}}}},  // the country may be unknown
    {.id = DiagnosticsTestID::ConflictingSecurityTypeInPNL,
     .label = "Conflicting Security Type in PNL",
     .resultKey = "doesPNLContainConflictingSecurityType",
     .question = "Is a network remembered twice with different security?",
     .yes = look("A network is remembered twice with different security.",
                 "Forget both, then join the one that you trust again."),
     .no = good("No network is remembered twice with different security.")},
    {.id = DiagnosticsTestID::HiddenScanResults,
     .label = "Hidden Scan Results",
     .resultKey = "foundHiddenNetworks",
     .question = "Are there hidden networks nearby?",
     .yes = plain("There are hidden networks nearby."),
     .no = plain("There are no hidden networks nearby."),
     .gate = Gate::onlyWhenNotPassed,
     .copies = {{{.infoKey = "ScanResults",
                  .outputKey = "hiddenNetworkCount",
                  .logName = "Scan Results",
                  .name = "hidden networks",
                  .explanation = "Number of networks nearby that hide their name."}}},
     .handler = countElements},
    {.id = DiagnosticsTestID::NoScanResults,
     .label = "No Scan Results",
     .resultKey = "foundScanResults",
     .question = "Did the scan find any network?",
     .yes = good("The scan found networks."),
     .no = look("The scan found no network.", "Move closer to an access point and scan again."),
     .gate = Gate::onlyWhenPassed,
     .copies = {{{.infoKey = "ScanResults", .logName = "Scan Results"}}},
     .handler = keepScanResults,
     .verdictForm = VerdictForm::inverseInteger},
    {.id = DiagnosticsTestID::PoorSignal,
     .label = "Poor Signal",
     .resultKey = "hasPoorSignal",
     .question = "Is the signal weak?",
     .yes =
         problem("The signal is weak.",
                 "Move closer to the access point, or remove metal and other obstacles between."),
     .no = good("The signal is strong enough."),
     .copies = {{{.infoKey = "RSSI",
                  .outputKey = "RSSI",
                  .logName = "RSSI",
                  .name = "RSSI",
                  .unit = "dBm",
                  .explanation = "Strength of the received signal, a negative number: closer to 0 "
                                 "is stronger."},
                 {.infoKey = "Noise",
                  .outputKey = "noise",
                  .logName = "Noise",
                  .name = "noise",
                  .unit = "dBm",
                  .explanation =
                      "Strength of the background noise, a negative number: further from 0 is "
                      "quieter. What counts is how far the signal is above it.",
                  .absence = Absence::normal}}}},  // many drivers do not report it
    {.id = DiagnosticsTestID::BrellinBaseStation,
     .label = "Brellin Base Station",
     .resultKey = "isHostedByBrellinBaseStation",
     .question = "Does the network come from a Brellin base station?",
     .yes = plain("The network comes from a Brellin base station."),
     .no = plain("The network does not come from a Brellin base station."),
     .gate = Gate::onlyWhenPassed,
     .copies = {{{.infoKey = "BrellinModelName",
                  .outputKey = "brellinModelName",
                  .logName = "BrellinModelName",
                  .name = "model",
                  .explanation = "Model of the Brellin base station.",
                  .absence = Absence::normal}}}},  // sent in probe responses only
    {.id = DiagnosticsTestID::LongBeaconInterval,
     .label = "Long Beacon Interval",
     .resultKey = "isBeaconIntervalLong",
     .question = "Does the network announce itself too rarely?",
     .yes = look("The network announces itself too rarely.",
                 "Set the beacon interval of the router to 100, the usual value."),
     .no = good("The network announces itself often enough."),
     .copies = {{{.infoKey = "BeaconInterval",
                  .outputKey = "beaconInterval",
                  .logName = "BeaconInterval",
                  .name = "beacon interval",
                  .unit = "TU",
                  .explanation = "Time between two announcements (beacons) of the network. 1 TU is "
                                 "1024 µs; usual is 100 TU, about ten beacons a second."}}}},
    {.id = DiagnosticsTestID::LongDTIMInterval,
     .label = "Long DTIM Interval",
     .resultKey = "isDTIMIntervalLong",
     .question = "Do sleeping devices wait too long for broadcasts?",
     .yes = look("Sleeping devices wait too long for broadcasts.",
                 "Set the DTIM interval of the router to a usual value, 1 to 3."),
     .no = good("Sleeping devices do not wait too long for broadcasts."),
     .copies = {{{.infoKey = "DTIMInterval",
                  .outputKey = "DTIMInterval",
                  .logName = "DTIMInterval",
                  .name = "DTIM interval",
                  .unit = "beacons",
                  .explanation = "Number of beacons after which sleeping devices wake for "
                                 "broadcasts. Usual is 1 to 3; a larger number saves power and "
                                 "delays broadcasts."}}}},
    {.id = DiagnosticsTestID::ConflictingPHYMode11AC,
     .label = "Conflicting PHY Mode (11AC)",
     .resultKey = "hasConflictingPHYMode11AC",
     .question = "Do the network's access points differ in 802.11ac (Wi-Fi 5)?",
     .yes = look("The network's access points differ in 802.11ac.",
                 "Set all access points of the network to the same modes, and update their "
                 "software."),
     .no = good("The network's access points do not differ in 802.11ac."),
     .copies = kRadioModes},
    {.id = DiagnosticsTestID::ConflictingPHYMode11N,
     .label = "Conflicting PHY Mode (11N)",
     .resultKey = "hasConflictingPHYMode11N",
     .question = "Do the network's access points differ in 802.11n (Wi-Fi 4)?",
     .yes = look("The network's access points differ in 802.11n.",
                 "Set all access points of the network to the same modes, and update their "
                 "software."),
     .no = good("The network's access points do not differ in 802.11n."),
     .copies = kRadioModes},
    {.id = DiagnosticsTestID::NoSecurity,
     .label = "No Security",
     .resultKey = "isUsingOpenSecurity",
     .question = "Is the network open, without protection?",
     .yes = problem("The network is open: anyone nearby can join it.",
                    "Protect your own network with WPA2 or WPA3; use only encrypted pages in "
                    "others."),
     .no = good("The network is not open."),
     .copies = kSecurity},
    {.id = DiagnosticsTestID::LegacySecurityWEP,
     .label = "Legacy Security: WEP",
     .resultKey = "isUsingWEPSecurity",
     .question = "Is the network protected by WEP only?",
     .yes = problem("The network uses WEP, which was broken long ago.",
                    "Set the router to WPA2 or WPA3, or replace it if it offers neither."),
     .no = good("The network does not use WEP, which was broken long ago."),
     .copies = kSecurity},
    {.id = DiagnosticsTestID::LegacySecurityWPA,
     .label = "Legacy Security: WPA",
     .resultKey = "isUsingWPASecurity",
     .question = "Is the network protected by the first WPA only?",
     .yes = problem("The network uses the first WPA, which is outdated.",
                    "Set the router to WPA2 or WPA3, or replace it if it offers neither."),
     .no = good("The network does not use the first WPA, which is outdated."),
     .copies = kSecurity},
    {.id = DiagnosticsTestID::LegacyRates11b,
     .label = "Legacy Rates (802.11b)",
     .resultKey = "isUsingLegacyRates",
     .question = "Does the network still use the slow rates of 802.11b?",
     .yes = look("The network still uses the slow rates of 802.11b.",
                 "Switch 802.11b off in the router: slow frames take air time from all devices."),
     .no = good("The network does not use the slow rates of 802.11b.")},
    {.id = DiagnosticsTestID::AmbiguousNetworkName,
     .label = "Ambiguous Network Name",
     .resultKey = "isUsingAmbiguousNetworkName",
     .question = "Is the network's name one that other networks use, too?",
     .yes = look("The network's name is one that other networks use, too.",
                 "Choose a unique name so that devices do not join another network of that name."),
     .no = good("The network's name is not one of the common ones."),
     .copies = {{{.infoKey = "NetworkName",
                  .outputKey = kNetworkName,
                  .logName = "NetworkName",
                  .name = "name",
                  .explanation = "Name (SSID) of the network: up to 32 bytes, chosen by its "
                                 "owner."}}}},
    {.id = DiagnosticsTestID::HiddenNetwork,
     .label = "Hidden Network",
     .resultKey = "isHiddenNetwork",
     .question = "Does the network hide its name?",
     .yes = look("The network hides its name.",
                 "Let the router show the name: hiding does not protect, and devices reveal it."),
     .no = good("The network shows its name.")},
    {.id = DiagnosticsTestID::NimoPersonalHotspot,
     .label = "Nimo Personal Hotspot",
     .resultKey = "isNimoPersonalHotspot",
     .question = "Is the network a Nimo phone's personal hotspot?",
     .yes = plain("The network is a Nimo phone's personal hotspot, so mobile data may be used."),
     .no = plain("The network is not a Nimo phone's personal hotspot.")},
    {.id = DiagnosticsTestID::Passpoint,
     .label = "Passpoint",
     .resultKey = "isPasspointNetwork",
     .question = "Is the network a Passpoint network?",
     .yes = plain("The network is a Passpoint network: devices sign in automatically."),
     .no = plain("The network is not a Passpoint network.")},
    {.id = DiagnosticsTestID::CaptivePortal,
     .label = "Captive Portal",
     .resultKey = "isCaptive",
     .question = "Does the network have a sign-in page?",
     .yes = look("The network has a sign-in page, a captive portal.",
                 "Open any page in a browser and sign in if nothing else opens."),
     .no = good("The network has no sign-in page."),
     .copies =
         {{{.infoKey = "PreferredNetwork",
            .outputKey = "preferredNetwork",
            .logName = "currentPreferredNetwork",
            .name = "remembered network",
            .explanation =
                "What the device remembers of the network: SSID, security (a number: the list is "
                "in docs/CHECKS.md), isPasspoint, isEnabled (may be joined), isCaptive (has a "
                "sign-in page), isHidden, isMultiAP (several access points) and lastJoined.",
            .absence = Absence::normal,  // the device need not remember the network
            .entries = kRememberedEntries}}},
     .handler = summarisePreferredNetwork},
    {.id = DiagnosticsTestID::LargePNL,
     .label = "Large PNL",
     .resultKey = "isLargePNL",
     .question = "Are many networks remembered?",
     .yes = look("Many networks are remembered.", "Forget the networks that are no longer used."),
     .no = good("The number of remembered networks is moderate."),
     .copies = {{{.infoKey = "PNLCount",
                  .outputKey = "preferredNetworkListCount",
                  .logName = "PreferredNetworkListCount",
                  .name = "remembered networks",
                  .explanation = "Number of networks that the device remembers and may join "
                                 "automatically."}}}},
    {.id = DiagnosticsTestID::PNLContainsHidden,
     .label = "PNL Contains Hidden",
     .resultKey = "doesPNLContainHiddenNetworks",
     .question = "Are hidden networks among those remembered?",
     .yes = look("Hidden networks are among those remembered.",
                 "Forget those no longer used: the device sends out their names wherever it is."),
     .no = good("No hidden network is among those remembered.")},
}};

namespace {

constexpr bool rowsMatchTheIdentifiers() {
  return std::ranges::equal(kCatalogue, kDiagnosticsTestNames, {}, &CatalogueTest::id,
                            &DiagnosticsTestName::id);
}

constexpr bool rowsAreComplete() {
  return std::ranges::all_of(kCatalogue, [](const CatalogueTest& test) {
    return !(test.label.empty() || test.resultKey.empty() || test.question.empty() ||
             test.yes.sentence.empty() || test.no.sentence.empty());
  });
}

constexpr bool resultKeysAreUnique() {
  return std::ranges::all_of(kCatalogue, [](const CatalogueTest& test) {
    return std::ranges::count(kCatalogue, test.resultKey, &CatalogueTest::resultKey) == 1;
  });
}

// Tests of one output key must copy the same value.
constexpr bool outputKeysHaveOneMeaning() {
  for (const CatalogueTest& test : kCatalogue) {
    for (const InformationCopy& copy : test.information()) {
      if (copy.outputKey.empty()) continue;
      if (copy.name.empty() || copy.explanation.empty()) return false;
      for (const CatalogueTest& other : kCatalogue) {
        if (other.resultKey == copy.outputKey) return false;
        for (const InformationCopy& same : other.information()) {
          if (same.outputKey == copy.outputKey && same.explanation != copy.explanation)
            return false;
        }
      }
    }
  }
  return true;
}

static_assert(rowsMatchTheIdentifiers());
static_assert(rowsAreComplete());
static_assert(resultKeysAreUnique());
static_assert(outputKeysHaveOneMeaning());

}  // namespace

const CatalogueTest& catalogueTest(DiagnosticsTestID id) {
  return *std::ranges::find(kCatalogue, id, &CatalogueTest::id);
}

const CatalogueTest* testWithResultKey(std::string_view key) {
  const auto found = std::ranges::find(kCatalogue, key, &CatalogueTest::resultKey);
  return found == kCatalogue.end() ? nullptr : &*found;
}

std::vector<const InformationCopy*> outputValues() {
  std::vector<const InformationCopy*> values;
  for (const CatalogueTest& test : kCatalogue) {
    for (const InformationCopy& copy : test.information()) {
      if (copy.outputKey.empty() ||
          std::ranges::find(values, copy.outputKey, &InformationCopy::outputKey) != values.end()) {
        continue;
      }
      values.push_back(&copy);
    }
  }
  return values;
}

const InformationCopy* valueWithOutputKey(std::string_view key) {
  for (const CatalogueTest& test : kCatalogue) {
    for (const InformationCopy& copy : test.information()) {
      if (!key.empty() && copy.outputKey == key) return &copy;
    }
  }
  return nullptr;
}

}  // namespace wifi_profile
