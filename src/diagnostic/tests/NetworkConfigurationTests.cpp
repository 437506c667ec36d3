#include "diagnostic/controller/WiFiProfileViewController.h"

namespace wifi_profile {

void WiFiProfileViewController::runCurrentNetworkDetectDoubleNATWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::DetectDoubleNAT, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkLongBeaconIntervalWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::LongBeaconInterval, testConfiguration,
                        resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkLongDTIMIntervalWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::LongDTIMInterval, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkNoSecurityWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::NoSecurity, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkLegacySecurityWEPWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::LegacySecurityWEP, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkLegacySecurityWPAWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::LegacySecurityWPA, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkLegacyRates11bWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::LegacyRates11b, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkAmbiguousNetworkNameWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::AmbiguousNetworkName, testConfiguration,
                        resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkHiddenNetworkWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::HiddenNetwork, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkNimoPersonalHotspotWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::NimoPersonalHotspot, testConfiguration,
                        resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkCaptivePortalWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::CaptivePortal, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkPasspointWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::Passpoint, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkConflictingPHYMode11ACWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::ConflictingPHYMode11AC, testConfiguration,
                        resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkConflictingPHYMode11NWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::ConflictingPHYMode11N, testConfiguration,
                        resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkBrellinBaseStationWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::BrellinBaseStation, testConfiguration,
                        resultsDictionary);
}

}  // namespace wifi_profile
