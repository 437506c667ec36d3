#include "diagnostic/controller/WiFiProfileViewController.h"

namespace wifi_profile {

void WiFiProfileViewController::runDeviceConfigurationCustomIPv4() {
  runDeviceConfigurationTest(DiagnosticsTestID::CustomIPv4);
}

void WiFiProfileViewController::runDeviceConfigurationCustomIPv6() {
  runDeviceConfigurationTest(DiagnosticsTestID::CustomIPv6);
}

void WiFiProfileViewController::runDeviceConfigurationCustomDNS() {
  runDeviceConfigurationTest(DiagnosticsTestID::CustomDNS);
}

void WiFiProfileViewController::runDeviceConfigurationCustomWebProxy() {
  runDeviceConfigurationTest(DiagnosticsTestID::CustomWebProxy);
}

void WiFiProfileViewController::runDeviceConfigurationPYNXRealTimeMode() {
  runDeviceConfigurationTest(DiagnosticsTestID::PYNXRealTimeMode);
}

void WiFiProfileViewController::runDeviceConfigurationBluetoothConnected() {
  runDeviceConfigurationTest(DiagnosticsTestID::BluetoothConnected);
}

void WiFiProfileViewController::runDeviceConfigurationBluetoothPaired() {
  runDeviceConfigurationTest(DiagnosticsTestID::BluetoothPaired);
}

void WiFiProfileViewController::runDeviceConfigurationBTCoex() {
  runDeviceConfigurationTest(DiagnosticsTestID::BTCoex);
}

void WiFiProfileViewController::runDeviceConfigurationLargePNL() {
  runDeviceConfigurationTest(DiagnosticsTestID::LargePNL);
}

void WiFiProfileViewController::runDeviceConfigurationPNLContainsHidden() {
  runDeviceConfigurationTest(DiagnosticsTestID::PNLContainsHidden);
}

void WiFiProfileViewController::runDeviceConfigurationConflictingSecurityTypeInPNL() {
  runDeviceConfigurationTest(DiagnosticsTestID::ConflictingSecurityTypeInPNL);
}

}  // namespace wifi_profile
