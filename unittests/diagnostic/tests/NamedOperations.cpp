#include "diagnostic/tests/ExpectedTests.h"

namespace wifi_profile {
namespace {

using Controller = WiFiProfileViewController;

}  // namespace

const std::vector<DeviceOperation>& deviceOperations() {
  static const std::vector<DeviceOperation> all{
      {14, &Controller::runDeviceConfigurationCustomIPv4},
      {15, &Controller::runDeviceConfigurationCustomIPv6},
      {16, &Controller::runDeviceConfigurationCustomDNS},
      {17, &Controller::runDeviceConfigurationCustomWebProxy},
      {22, &Controller::runDeviceConfigurationPYNXRealTimeMode},
      {19, &Controller::runDeviceConfigurationBluetoothConnected},
      {18, &Controller::runDeviceConfigurationBluetoothPaired},
      {20, &Controller::runDeviceConfigurationBTCoex},
      {47, &Controller::runDeviceConfigurationLargePNL},
      {48, &Controller::runDeviceConfigurationPNLContainsHidden},
      {29, &Controller::runDeviceConfigurationConflictingSecurityTypeInPNL},
  };
  return all;
}

const std::vector<NetworkOperation>& networkOperations() {
  static const std::vector<NetworkOperation> all{
      {8, &Controller::runCurrentNetworkDetectDoubleNATWithConfiguration},
      {34, &Controller::runCurrentNetworkLongBeaconIntervalWithConfiguration},
      {35, &Controller::runCurrentNetworkLongDTIMIntervalWithConfiguration},
      {38, &Controller::runCurrentNetworkNoSecurityWithConfiguration},
      {39, &Controller::runCurrentNetworkLegacySecurityWEPWithConfiguration},
      {40, &Controller::runCurrentNetworkLegacySecurityWPAWithConfiguration},
      {41, &Controller::runCurrentNetworkLegacyRates11bWithConfiguration},
      {42, &Controller::runCurrentNetworkAmbiguousNetworkNameWithConfiguration},
      {43, &Controller::runCurrentNetworkHiddenNetworkWithConfiguration},
      {44, &Controller::runCurrentNetworkNimoPersonalHotspotWithConfiguration},
      {46, &Controller::runCurrentNetworkCaptivePortalWithConfiguration},
      {45, &Controller::runCurrentNetworkPasspointWithConfiguration},
      {36, &Controller::runCurrentNetworkConflictingPHYMode11ACWithConfiguration},
      {37, &Controller::runCurrentNetworkConflictingPHYMode11NWithConfiguration},
      {33, &Controller::runCurrentNetworkBrellinBaseStationWithConfiguration},
      {3, &Controller::runCurrentNetworkPingLANWithConfiguration},
      {6, &Controller::runCurrentNetworkPingWANWithConfiguration},
      {12, &Controller::runCurrentNetworkIPv4AssignedWithConfiguration},
      {13, &Controller::runCurrentNetworkIPv6AssignedWithConfiguration},
      {7, &Controller::runCurrentNetworkResolveDNSWithConfiguration},
      {9, &Controller::runCurrentNetworkReachOrvaneWithConfiguration},
      {11, &Controller::runCurrentNetworkRetrieveOrvaneWithConfiguration},
      {24, &Controller::runCurrentNetworkCongestedChannelWithConfiguration},
      {25, &Controller::runCurrentNetworkCongested2GHzWithConfiguration},
      {26, &Controller::runCurrentNetworkCongested5GHzWithConfiguration},
      {27, &Controller::runCurrentNetworkHT402GHzChannelWithConfiguration},
      {28, &Controller::runCurrentNetworkConflictingCountryCodeWithConfiguration},
      {32, &Controller::runCurrentNetworkPoorSignalWithConfiguration},
      {30, &Controller::runCurrentNetworkHiddenScanResultsWithConfiguration},
      {31, &Controller::runCurrentNetworkNoScanResultsWithConfiguration},
  };
  return all;
}

const std::vector<SelectedOperation>& selectedOperations() {
  static const std::vector<SelectedOperation> all{
      {34, &Controller::runSelectedNetworkLongBeaconInterval},
      {38, &Controller::runSelectedNetworkNoSecurity},
      {39, &Controller::runSelectedNetworkLegacySecurityWEP},
      {40, &Controller::runSelectedNetworkLegacySecurityWPA},
      {41, &Controller::runSelectedNetworkLegacyRates11b},
      {42, &Controller::runSelectedNetworkAmbiguousNetworkName},
      {43, &Controller::runSelectedNetworkHiddenNetwork},
      {44, &Controller::runSelectedNetworkNimoPersonalHotspot},
      {46, &Controller::runSelectedNetworkCaptivePortal},
      {45, &Controller::runSelectedNetworkPasspoint},
      {36, &Controller::runSelectedNetworkConflictingPHYMode11AC},
      {37, &Controller::runSelectedNetworkConflictingPHYMode11N},
      {33, &Controller::runSelectedNetworkBrellinBaseStation},
      {24, &Controller::runSelectedNetworkCongestedChannel},
      {28, &Controller::runSelectedNetworkConflictingCountryCode},
      {32, &Controller::runSelectedNetworkPoorSignal},
  };
  return all;
}

}  // namespace wifi_profile
