#include "diagnostic/controller/WiFiProfileViewController.h"

namespace wifi_profile {

void WiFiProfileViewController::runCurrentNetworkPingLANWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::PingLAN, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkPingWANWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::PingWAN, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkIPv4AssignedWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::IPv4Assigned, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkIPv6AssignedWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::IPv6Assigned, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkResolveDNSWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::ResolveDNS, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkReachOrvaneWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::ReachOrvane, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkRetrieveOrvaneWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::RetrieveOrvane, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkCongestedChannelWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::CongestedChannel, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkCongested2GHzWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::Congested2GHz, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkCongested5GHzWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::Congested5GHz, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkHT402GHzChannelWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::HT402GHzChannel, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkConflictingCountryCodeWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::ConflictingCountryCode, testConfiguration,
                        resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkPoorSignalWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::PoorSignal, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkNoScanResultsWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::NoScanResults, testConfiguration, resultsDictionary);
}

void WiFiProfileViewController::runCurrentNetworkHiddenScanResultsWithConfiguration(
    const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) {
  runCurrentNetworkTest(DiagnosticsTestID::HiddenScanResults, testConfiguration, resultsDictionary);
}

}  // namespace wifi_profile
