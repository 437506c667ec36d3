// The numbered tests of the Wi-Fi diagnostics service.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

// Every test, in the order in which a run requests them: its name, and the identifier that the
// service gives it. The macros say what the test examines:
//   DEVICE   the device
//   NETWORK  the current network and the selected network
//   CURRENT  the current network only
//   LIST     the networks in range; no batch contains it, the list of networks requests it
#define WIFI_PROFILE_TESTS(DEVICE, NETWORK, CURRENT, LIST) \
  DEVICE(CustomIPv4, 14)                                   \
  DEVICE(CustomIPv6, 15)                                   \
  DEVICE(CustomDNS, 16)                                    \
  DEVICE(CustomWebProxy, 17)                               \
  DEVICE(PYNXRealTimeMode, 22)                             \
  DEVICE(BluetoothConnected, 19)                           \
  DEVICE(BluetoothPaired, 18)                              \
  DEVICE(BTCoex, 20)                                       \
  DEVICE(LargePNL, 47)                                     \
  DEVICE(PNLContainsHidden, 48)                            \
  DEVICE(ConflictingSecurityTypeInPNL, 29)                 \
  CURRENT(DetectDoubleNAT, 8)                              \
  NETWORK(LongBeaconInterval, 34)                          \
  CURRENT(LongDTIMInterval, 35)                            \
  NETWORK(NoSecurity, 38)                                  \
  NETWORK(LegacySecurityWEP, 39)                           \
  NETWORK(LegacySecurityWPA, 40)                           \
  NETWORK(LegacyRates11b, 41)                              \
  NETWORK(AmbiguousNetworkName, 42)                        \
  NETWORK(HiddenNetwork, 43)                               \
  NETWORK(NimoPersonalHotspot, 44)                         \
  NETWORK(CaptivePortal, 46)                               \
  NETWORK(Passpoint, 45)                                   \
  NETWORK(ConflictingPHYMode11AC, 36)                      \
  NETWORK(ConflictingPHYMode11N, 37)                       \
  NETWORK(BrellinBaseStation, 33)                          \
  CURRENT(PingLAN, 3)                                      \
  CURRENT(PingWAN, 6)                                      \
  CURRENT(IPv4Assigned, 12)                                \
  CURRENT(IPv6Assigned, 13)                                \
  CURRENT(ResolveDNS, 7)                                   \
  CURRENT(ReachOrvane, 9)                                  \
  CURRENT(RetrieveOrvane, 11)                              \
  NETWORK(CongestedChannel, 24)                            \
  CURRENT(Congested2GHz, 25)                               \
  CURRENT(Congested5GHz, 26)                               \
  CURRENT(HT402GHzChannel, 27)                             \
  NETWORK(ConflictingCountryCode, 28)                      \
  NETWORK(PoorSignal, 32)                                  \
  CURRENT(HiddenScanResults, 30)                           \
  LIST(NoScanResults, 31)

namespace wifi_profile {

#define WIFI_PROFILE_VALUE(member, number) member = (number),
// The missing numbers are tests that are never requested.
enum class DiagnosticsTestID : std::int32_t {
  WIFI_PROFILE_TESTS(WIFI_PROFILE_VALUE, WIFI_PROFILE_VALUE, WIFI_PROFILE_VALUE, WIFI_PROFILE_VALUE)
};
#undef WIFI_PROFILE_VALUE

struct DiagnosticsTestName {
  DiagnosticsTestID id;
  std::string_view name;
};

// Every identifier with its name, in ascending order of the identifiers.
inline constexpr auto kDiagnosticsTestNames = [] {
#define WIFI_PROFILE_NAME(member, number) DiagnosticsTestName{DiagnosticsTestID::member, #member},
  std::array names{WIFI_PROFILE_TESTS(WIFI_PROFILE_NAME, WIFI_PROFILE_NAME, WIFI_PROFILE_NAME,
                                      WIFI_PROFILE_NAME)};
#undef WIFI_PROFILE_NAME
  std::ranges::sort(names, {}, &DiagnosticsTestName::id);
  return names;
}();

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
