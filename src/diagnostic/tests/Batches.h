// The three batches of tests, each in the order in which its tests run.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile {

// `NoScanResults` belongs to no batch: the list of networks runs it.
inline constexpr std::array kDeviceConfigurationBatch{
    DiagnosticsTestID::CustomIPv4,
    DiagnosticsTestID::CustomIPv6,
    DiagnosticsTestID::CustomDNS,
    DiagnosticsTestID::CustomWebProxy,
    DiagnosticsTestID::PYNXRealTimeMode,
    DiagnosticsTestID::BluetoothConnected,
    DiagnosticsTestID::BluetoothPaired,
    DiagnosticsTestID::BTCoex,
    DiagnosticsTestID::LargePNL,
    DiagnosticsTestID::PNLContainsHidden,
    DiagnosticsTestID::ConflictingSecurityTypeInPNL,
};
inline constexpr std::array kCurrentNetworkBatch{
    DiagnosticsTestID::DetectDoubleNAT,
    DiagnosticsTestID::LongBeaconInterval,
    DiagnosticsTestID::LongDTIMInterval,
    DiagnosticsTestID::NoSecurity,
    DiagnosticsTestID::LegacySecurityWEP,
    DiagnosticsTestID::LegacySecurityWPA,
    DiagnosticsTestID::LegacyRates11b,
    DiagnosticsTestID::AmbiguousNetworkName,
    DiagnosticsTestID::HiddenNetwork,
    DiagnosticsTestID::NimoPersonalHotspot,
    DiagnosticsTestID::CaptivePortal,
    DiagnosticsTestID::Passpoint,
    DiagnosticsTestID::ConflictingPHYMode11AC,
    DiagnosticsTestID::ConflictingPHYMode11N,
    DiagnosticsTestID::BrellinBaseStation,
    DiagnosticsTestID::PingLAN,
    DiagnosticsTestID::PingWAN,
    DiagnosticsTestID::IPv4Assigned,
    DiagnosticsTestID::IPv6Assigned,
    DiagnosticsTestID::ResolveDNS,
    DiagnosticsTestID::ReachOrvane,
    DiagnosticsTestID::RetrieveOrvane,
    DiagnosticsTestID::CongestedChannel,
    DiagnosticsTestID::Congested2GHz,
    DiagnosticsTestID::Congested5GHz,
    DiagnosticsTestID::HT402GHzChannel,
    DiagnosticsTestID::ConflictingCountryCode,
    DiagnosticsTestID::PoorSignal,
    DiagnosticsTestID::HiddenScanResults,
};
inline constexpr std::array kSelectedNetworkBatch{
    DiagnosticsTestID::LongBeaconInterval,     DiagnosticsTestID::NoSecurity,
    DiagnosticsTestID::LegacySecurityWEP,      DiagnosticsTestID::LegacySecurityWPA,
    DiagnosticsTestID::LegacyRates11b,         DiagnosticsTestID::AmbiguousNetworkName,
    DiagnosticsTestID::HiddenNetwork,          DiagnosticsTestID::NimoPersonalHotspot,
    DiagnosticsTestID::CaptivePortal,          DiagnosticsTestID::Passpoint,
    DiagnosticsTestID::ConflictingPHYMode11AC, DiagnosticsTestID::ConflictingPHYMode11N,
    DiagnosticsTestID::BrellinBaseStation,     DiagnosticsTestID::CongestedChannel,
    DiagnosticsTestID::ConflictingCountryCode, DiagnosticsTestID::PoorSignal,
};

template <class Batch>
constexpr bool batchHolds(const Batch& batch, DiagnosticsTestID id) {
  return std::find(batch.begin(), batch.end(), id) != batch.end();
}

namespace batch_checks {

template <class Batch>
constexpr bool batchIsOf(const Batch& batch, TestSubject subject) {
  for (std::size_t i = 0; i < batch.size(); ++i) {
    if (catalogueTest(batch[i]).subject != subject) return false;
    if (std::count(batch.begin(), batch.end(), batch[i]) != 1) return false;
  }
  return true;
}

static_assert(kDeviceConfigurationBatch.size() == 11 &&
              batchIsOf(kDeviceConfigurationBatch, TestSubject::device));
static_assert(kCurrentNetworkBatch.size() == 29 &&
              batchIsOf(kCurrentNetworkBatch, TestSubject::network));
static_assert(kSelectedNetworkBatch.size() == 16 &&
              batchIsOf(kSelectedNetworkBatch, TestSubject::network));

}  // namespace batch_checks

}  // namespace wifi_profile
