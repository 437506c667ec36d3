// The meaning of every key of the record, in two tables: the verdicts and the values.
#include "diagnostic/tests/Findings.h"

#include <algorithm>
#include <array>

#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile {
namespace {

constexpr Meaning good(std::string_view sentence) { return {Mark::good, sentence, {}}; }
constexpr Meaning plain(std::string_view sentence) { return {Mark::plain, sentence, {}}; }
constexpr Meaning look(std::string_view sentence, std::string_view advice) {
  return {Mark::look, sentence, advice};
}
constexpr Meaning problem(std::string_view sentence, std::string_view advice) {
  return {Mark::problem, sentence, advice};
}

// A row: the key, the question, the meaning of yes, the meaning of no. A sentence must make sense
// on its own, because it may be part of a list. It ends with a full stop; a value may be inserted
// before the full stop.
constexpr std::array<VerdictFinding, 41> kVerdicts{{
    {"pingedLAN", "Does the router answer?", good("The router answers."),
     problem("The router does not answer.",
             "Go nearer to the router or restart it. Some routers are set not to answer pings.")},
    {"pingedWAN", "Does the internet answer?", good("The internet answers."),
     problem("The internet does not answer.",
             "Look at the router's own internet connection: cable, modem, provider.")},
    {"resolvedDNS", "Can names of sites be looked up (DNS)?",
     good("Names of sites can be looked up (DNS)."),
     problem("Names of sites cannot be looked up (DNS).",
             "Check the DNS servers set in the device and in the router, or restart the router.")},
    {"hasDoubleNATConfiguration", "Do two routers in a row translate addresses (double NAT)?",
     look("Two routers in a row translate addresses (double NAT).",
          "Let one of them route and set the other to bridge or access point mode."),
     good("Addresses are not translated twice (no double NAT).")},
    {"reachedOrvane", "Can the server of the Orvane service be reached?",
     good("The server of the Orvane service can be reached."),
     problem("The server of the Orvane service cannot be reached.",
             "If the internet answers otherwise, a firewall or a filter may stand in the way.")},
    {"retrievedOrvane", "Can a page of the Orvane service be fetched?",
     good("A page of the Orvane service can be fetched."),
     problem("The page of the Orvane service cannot be fetched.",
             "Open any page in a browser: a sign-in page, a proxy or a filter may be in the way.")},
    {"isIPv4Assigned", "Does the device have an IPv4 address?",
     good("The device has an IPv4 address."),
     problem("The device has no IPv4 address.",
             "Join the network again or restart the router. A few networks use IPv6 alone.")},
    {"isIPv6Assigned", "Does the device have an IPv6 address?",
     good("The device has an IPv6 address."),
     plain("The device has no IPv6 address, which is common.")},
    {"isUsingCustomIPv4", "Is IPv4 set up by hand?",
     look("IPv4 is set up by hand.",
          "If the network does not work, set IPv4 back to automatic (DHCP)."),
     good("IPv4 is set up automatically.")},
    {"isUsingCustomIPv6", "Is IPv6 set up by hand?",
     look("IPv6 is set up by hand.", "If the network does not work, set IPv6 back to automatic."),
     good("IPv6 is set up automatically.")},
    {"isUsingCustomDNS", "Are the DNS servers set by hand?",
     look("The DNS servers are set by hand.",
          "If sites are not found or slow to open, try the network's own DNS servers."),
     good("The DNS servers are the network's own.")},
    {"isUsingCustomWebProxy", "Do web pages go through a proxy set by hand?",
     look("Web pages go through a proxy that was set by hand.",
          "Switch the proxy off unless you know what it is for."),
     good("Web pages do not go through a proxy set by hand.")},
    {"isLargePairedBT", "Are many Bluetooth devices paired?",
     look("Many Bluetooth devices are paired.", "Remove the pairings that are no longer used."),
     good("The number of paired Bluetooth devices is moderate.")},
    {"isLargeConnectedBT", "Are many Bluetooth devices connected?",
     look("Many Bluetooth devices are connected.",
          "They share the 2.4 GHz band with Wi-Fi: disconnect some, or use a 5 GHz network."),
     good("The number of connected Bluetooth devices is moderate.")},
    {"isHYBRIDBTCoexistenceMode",
     "Do Wi-Fi and Bluetooth share the air in hybrid coexistence mode?",
     look("Wi-Fi and Bluetooth share the air in hybrid coexistence mode.",
          "If Wi-Fi is slow while Bluetooth is busy, use a 5 GHz network."),
     good("Wi-Fi and Bluetooth are not in hybrid coexistence mode.")},
    {"isPYNXInRealTimeMode", "Is PYNX, the direct link between devices, in real-time mode?",
     look("PYNX, the direct link between devices, is in real-time mode.",
          "It may take air time from Wi-Fi: if Wi-Fi is slow, end what uses the direct link."),
     good("PYNX, the direct link between devices, is not in real-time mode.")},
    {"isChannelCongested", "Is the network's channel crowded?",
     look("The network's channel is crowded.",
          "Set the router to a recommended channel, or let it choose one by itself."),
     good("The network's channel is not crowded.")},
    {"is2GHzCongested", "Is the 2.4 GHz band crowded?",
     look("The 2.4 GHz band is crowded.", "Use the 5 GHz band where the network offers it."),
     good("The 2.4 GHz band is not crowded.")},
    {"is5GHzCongested", "Is the 5 GHz band crowded?",
     look("The 5 GHz band is crowded.",
          "Set the router to a recommended channel, or to a narrower channel width."),
     good("The 5 GHz band is not crowded.")},
    {"hasHT40Channel", "Is there a 40 MHz wide channel in the 2.4 GHz band?",
     look("A 40 MHz wide channel is in use in the 2.4 GHz band.",
          "It takes about half of the band: set the router to 20 MHz there."),
     good("No 40 MHz wide channel is in use in the 2.4 GHz band.")},
    {"foundConflictingCountryCode", "Do access points announce differing countries?",
     look("Access points announce differing countries.",
          "Set your own to the country they are in: it decides on channels and power."),
     good("No differing countries are announced.")},
    {"doesPNLContainConflictingSecurityType",
     "Is a network remembered twice with different security?",
     look("A network is remembered twice with different security.",
          "Forget both and join again the one that you trust."),
     good("No network is remembered twice with different security.")},
    {"foundHiddenNetworks", "Are there hidden networks nearby?",
     plain("There are hidden networks nearby."), plain("There are no hidden networks nearby.")},
    {"foundScanResults", "Did the scan find any network?", good("The scan found networks."),
     look("The scan found no network.", "Go nearer to an access point and scan again.")},
    {"hasPoorSignal", "Is the signal weak?",
     problem("The signal is weak.",
             "Go nearer to the access point, or clear what stands between: walls, metal, water."),
     good("The signal is strong enough.")},
    {"isHostedByBrellinBaseStation", "Does the network come from a Brellin base station?",
     plain("The network comes from a Brellin base station."),
     plain("The network does not come from a Brellin base station.")},
    {"isBeaconIntervalLong", "Does the network announce itself too seldom?",
     look("The network announces itself too seldom.",
          "Set the beacon interval of the router to 100, the usual value."),
     good("The network announces itself often enough.")},
    {"isDTIMIntervalLong", "Do sleeping devices wait too long for broadcasts?",
     look("Sleeping devices wait too long for broadcasts.",
          "Set the DTIM interval of the router to a usual value, 1 to 3."),
     good("Sleeping devices do not wait too long for broadcasts.")},
    {"hasConflictingPHYMode11AC", "Do the radio modes clash over 802.11ac (Wi-Fi 5)?",
     look("The radio modes of the network clash over 802.11ac.",
          "Give all access points of the network the same modes, and update their software."),
     good("The radio modes of the network do not clash over 802.11ac.")},
    {"hasConflictingPHYMode11N", "Do the radio modes clash over 802.11n (Wi-Fi 4)?",
     look("The radio modes of the network clash over 802.11n.",
          "Give all access points of the network the same modes, and update their software."),
     good("The radio modes of the network do not clash over 802.11n.")},
    {"isUsingOpenSecurity", "Is the network open, without protection?",
     problem("The network is open: anybody nearby can join it.",
             "Protect your own network with WPA2 or WPA3; in another's, use encrypted pages only."),
     good("The network is not open to everybody.")},
    {"isUsingWEPSecurity", "Is the network protected by WEP only?",
     problem("The network uses WEP, which was broken long ago.",
             "Set the router to WPA2 or WPA3; replace one that offers neither."),
     good("The network does not use WEP, which was broken long ago.")},
    {"isUsingWPASecurity", "Is the network protected by the first WPA only?",
     problem("The network uses the first WPA, which is outdated.",
             "Set the router to WPA2 or WPA3; replace one that offers neither."),
     good("The network does not use the first WPA, which is outdated.")},
    {"isUsingLegacyRates", "Does the network still use the slow rates of 802.11b?",
     look("The network still uses the slow rates of 802.11b.",
          "Switch 802.11b off in the router: sending slowly takes air time from everybody."),
     good("The network does not use the slow rates of 802.11b.")},
    {"isUsingAmbiguousNetworkName", "Is the network's name one that others use, too?",
     look("The network's name is one that others use, too.",
          "Give your network a name of its own, lest a device join a stranger's instead."),
     good("The network's name is not one of the common ones.")},
    {"isHiddenNetwork", "Does the network hide its name?",
     look("The network hides its name.",
          "Let it show the name: hiding does not protect, and devices call out for it instead."),
     good("The network shows its name.")},
    {"isNimoPersonalHotspot", "Is the network a Nimo phone's personal hotspot?",
     plain("The network is a Nimo phone's personal hotspot, so mobile data may be used."),
     plain("The network is not a Nimo phone's personal hotspot.")},
    {"isPasspointNetwork", "Is the network a Passpoint network?",
     plain("The network is a Passpoint network: devices sign in by themselves."),
     plain("The network is not a Passpoint network.")},
    {"isCaptive", "Does the network have a sign-in page?",
     look("The network has a sign-in page, a captive portal.",
          "If nothing else opens, open any page in a browser and sign in."),
     good("The network has no sign-in page.")},
    {"isLargePNL", "Are many networks remembered?",
     look("Many networks are remembered.", "Forget those that are no longer used."),
     good("The number of remembered networks is moderate.")},
    {"doesPNLContainHiddenNetworks", "Are hidden networks among those remembered?",
     look("Hidden networks are among those remembered.",
          "The device calls out their names wherever it is: forget those no longer used."),
     good("No hidden network is among those remembered.")},
}};

// A row: the key, the name, the unit, the explanation, whether its absence is normal.
constexpr std::array kValues{
    ValueFinding{"IPv4ConfigMethod", "method", "",
                 "How the device comes by its IPv4 address, as the service names it. Usual is to "
                 "get it from the network (DHCP)."},
    ValueFinding{"IPv6ConfigMethod", "method", "",
                 "How the device comes by its IPv6 address, as the service names it. Usual is "
                 "automatic."},
    ValueFinding{"bluetoothConnectedCount", "connected devices", "",
                 "Number of Bluetooth devices that are connected now."},
    ValueFinding{"bluetoothPairedCount", "paired devices", "",
                 "Number of Bluetooth devices that are paired, connected or not."},
    ValueFinding{"preferredNetworkListCount", "remembered networks", "",
                 "Number of networks that the device remembers and may join by itself."},
    ValueFinding{"beaconInterval", "beacon interval", "TU",
                 "Time between two announcements (beacons) of the network. 1 TU is 1024 µs; usual "
                 "is 100 TU, about ten a second."},
    ValueFinding{"DTIMInterval", "DTIM interval", "beacons",
                 "Sleeping devices wake for broadcasts at every so many beacons. Usual is 1 to 3; "
                 "larger saves power and delays broadcasts."},
    ValueFinding{"security", "security", "",
                 "How the network is protected, as the service names or numbers it."},
    ValueFinding{"networkName", "name", "",
                 "Name (SSID) of the network: up to 32 bytes, chosen by whoever runs it."},
    ValueFinding{
        "preferredNetwork", "remembered network", "",
        "What the device remembers of the network: SSID, security (a number: the "
        "list is in docs/CHECKS.md), isPasspoint, isEnabled (may be joined), isCaptive (has a "
        "sign-in page), isHidden, isMultiAP (several access points) and lastJoined.",
        Absence::normal},  // the device need not remember the network
    ValueFinding{"supportedPHYModes", "radio modes", "",
                 "Radio modes (802.11a, b, g, n, ac and so on) that the network offers."},
    ValueFinding{"brellinModelName", "model", "", "Model of the Brellin base station.",
                 Absence::normal},  // sent in probe responses only
    ValueFinding{"pingLANResult", "pings", "",
                 "What pings to the router measured: SSID (here the interface's name), count, "
                 "packetLoss (percent), min, max, avg and stddev (milliseconds), and timestamp.",
                 Absence::normal},  // a router known only as a neighbour has no times
    ValueFinding{"pingWANResult", "pings", "",
                 "What pings to the internet measured: SSID (here the interface's name), count, "
                 "packetLoss (percent), min, max, avg and stddev (milliseconds), and timestamp."},
    ValueFinding{"currentChannel", "channel", "", "Radio channel that the network uses now."},
    ValueFinding{"2GHzChannel", "best 2.4 GHz channel", "",
                 "Channel that the service recommends in the 2.4 GHz band. 1, 6 and 11 do not "
                 "overlap there."},
    ValueFinding{"5GHzChannel", "best 5 GHz channel", "",
                 "Channel that the service recommends in the 5 GHz band."},
    ValueFinding{"5GHz40MHzChannel", "best 40 MHz wide channel", "",
                 "Channel that the service recommends in the 5 GHz band for a width of 40 MHz."},
    ValueFinding{"5GHzNonDFSChannel", "best channel without DFS", "",
                 "Channel that the service recommends in the 5 GHz band among those that need not "
                 "give way to radar (no DFS)."},
    ValueFinding{"adoptedCountryCode", "country", "",
                 "Country whose rules for channels and power the device follows. Usual is a code "
                 "of two letters.",
                 Absence::normal},  // the country may be unknown
    ValueFinding{"RSSI", "RSSI", "dBm",
                 "Strength of the received signal, a negative number: nearer to 0 is stronger."},
    ValueFinding{"noise", "noise", "dBm",
                 "Strength of the background noise, a negative number: further from 0 is quieter. "
                 "What counts is how far the signal stands above it.",
                 Absence::normal},  // many drivers do not report it
    ValueFinding{"hiddenNetworkCount", "hidden networks", "",
                 "Number of networks nearby that do not tell their name."},
};

constexpr bool verdictsFollowTheCatalogue() {
  return std::equal(
      kVerdicts.begin(), kVerdicts.end(), kCatalogue.begin(), kCatalogue.end(),
      [](const auto& verdict, const auto& test) { return verdict.key == test.resultKey; });
}

constexpr bool isValueKey(std::string_view key) {
  return std::count_if(kValues.begin(), kValues.end(),
                       [key](const auto& value) { return value.key == key; }) == 1;
}

constexpr bool everyValueIsExplainedOnce() {
  return std::all_of(kCatalogue.begin(), kCatalogue.end(), [](const auto& test) {
    const auto copies = test.information();
    return std::all_of(copies.begin(), copies.end(), [](const auto& copy) {
      return copy.outputKey.empty() || isValueKey(copy.outputKey);
    });
  });
}

constexpr bool isOutputKey(std::string_view key) {
  return std::any_of(kCatalogue.begin(), kCatalogue.end(), [key](const auto& test) {
    const auto copies = test.information();
    return std::any_of(copies.begin(), copies.end(),
                       [key](const auto& copy) { return copy.outputKey == key; });
  });
}

static_assert(verdictsFollowTheCatalogue());
static_assert(everyValueIsExplainedOnce());
static_assert(std::all_of(kValues.begin(), kValues.end(),
                          [](const auto& value) { return isOutputKey(value.key); }));

template <class Finding>
const Finding* findingOf(std::span<const Finding> findings, std::string_view key) {
  const auto found = std::find_if(findings.begin(), findings.end(),
                                  [key](const Finding& finding) { return finding.key == key; });
  return found == findings.end() ? nullptr : &*found;
}

}  // namespace

std::span<const VerdictFinding> verdictFindings() { return kVerdicts; }
std::span<const ValueFinding> valueFindings() { return kValues; }

const VerdictFinding* verdictFinding(std::string_view key) {
  return findingOf(verdictFindings(), key);
}
const ValueFinding* valueFinding(std::string_view key) { return findingOf(valueFindings(), key); }

}  // namespace wifi_profile
