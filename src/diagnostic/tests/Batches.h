// The three batches of a run.
#pragma once

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "diagnostic/platform/DiagnosticsTestID.h"
#include "diagnostic/platform/TestOutcome.h"

namespace wifi_profile {

// Each in the order in which its tests run.
#define WIFI_PROFILE_ID(member, number) DiagnosticsTestID::member,
#define WIFI_PROFILE_NO_ID(member, number)
inline constexpr std::array kDeviceConfigurationBatch{WIFI_PROFILE_TESTS(
    WIFI_PROFILE_ID, WIFI_PROFILE_NO_ID, WIFI_PROFILE_NO_ID, WIFI_PROFILE_NO_ID)};
inline constexpr std::array kCurrentNetworkBatch{
    WIFI_PROFILE_TESTS(WIFI_PROFILE_NO_ID, WIFI_PROFILE_ID, WIFI_PROFILE_ID, WIFI_PROFILE_NO_ID)};
inline constexpr std::array kSelectedNetworkBatch{WIFI_PROFILE_TESTS(
    WIFI_PROFILE_NO_ID, WIFI_PROFILE_ID, WIFI_PROFILE_NO_ID, WIFI_PROFILE_NO_ID)};
#undef WIFI_PROFILE_ID
#undef WIFI_PROFILE_NO_ID

static_assert(kDeviceConfigurationBatch.size() == 11 && kCurrentNetworkBatch.size() == 29 &&
              kSelectedNetworkBatch.size() == 16);

struct Batch {
  Section section;                 // of the record, which the tests write into
  std::string_view configuration;  // the controller's property that the tests are sent with
  std::span<const DiagnosticsTestID> tests;

  constexpr bool holds(DiagnosticsTestID id) const {
    return std::find(tests.begin(), tests.end(), id) != tests.end();
  }
};

// In the order of a run. `NoScanResults` belongs to no batch: the list of networks requests it.
inline constexpr std::array kBatches{
    Batch{Section::device, "configuration", kDeviceConfigurationBatch},
    Batch{Section::currentNetwork, "currentNetworkConfiguration", kCurrentNetworkBatch},
    Batch{Section::selectedNetwork, "configuration", kSelectedNetworkBatch},
};

constexpr const Batch& batchOf(Section section) {
  return *std::find_if(kBatches.begin(), kBatches.end(),
                       [section](const Batch& batch) { return batch.section == section; });
}

}  // namespace wifi_profile
