// The three batches: sequences of tests. Each test is followed by one step of the progress bar.

#include <array>

#include "diagnostic/controller/WiFiProfileViewController.h"

namespace wifi_profile {
namespace {

using Controller = WiFiProfileViewController;

// The named operations of each batch, in the order in which they run.
#define WIFI_PROFILE_DEVICE(member, number) &Controller::runDeviceConfiguration##member,
#define WIFI_PROFILE_CURRENT(member, number) \
  &Controller::runCurrentNetwork##member##WithConfiguration,
#define WIFI_PROFILE_SELECTED(member, number) &Controller::runSelectedNetwork##member,
#define WIFI_PROFILE_NONE(member, number)
constexpr std::array kDeviceOperations{WIFI_PROFILE_TESTS(WIFI_PROFILE_DEVICE, WIFI_PROFILE_NONE,
                                                          WIFI_PROFILE_NONE, WIFI_PROFILE_NONE)};
constexpr std::array kCurrentNetworkOperations{WIFI_PROFILE_TESTS(
    WIFI_PROFILE_NONE, WIFI_PROFILE_CURRENT, WIFI_PROFILE_CURRENT, WIFI_PROFILE_NONE)};
constexpr std::array kSelectedNetworkOperations{WIFI_PROFILE_TESTS(
    WIFI_PROFILE_NONE, WIFI_PROFILE_SELECTED, WIFI_PROFILE_NONE, WIFI_PROFILE_NONE)};
#undef WIFI_PROFILE_DEVICE
#undef WIFI_PROFILE_CURRENT
#undef WIFI_PROFILE_SELECTED
#undef WIFI_PROFILE_NONE

}  // namespace

void WiFiProfileViewController::runDeviceConfigurationDiagnosticsTests() {
  for (const auto runTest : kDeviceOperations) {
    (this->*runTest)();
    updateProgress();
  }
}

void WiFiProfileViewController::runCurrentNetworkDiagnosticsTests() {
  for (const auto runTest : kCurrentNetworkOperations) {
    (this->*runTest)(currentNetworkConfiguration(), currentNetworkData());
    updateProgress();
  }
}

void WiFiProfileViewController::runSelectedNetworkDiagnosticsTests() {
  for (const auto runTest : kSelectedNetworkOperations) {
    (this->*runTest)();
    updateProgress();
  }
}

}  // namespace wifi_profile
