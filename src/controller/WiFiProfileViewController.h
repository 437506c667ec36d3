// The one controller of the Wi-Fi profile diagnostic: its state and its operations.
//
// Order of a run without the picker: `setupWithInputs`, `start` (status query, progress screen,
// navigation bar), then on the global queue the batches of tests, then 0.5 s later, on the global
// queue, `endTestWithStatusCode`. With the picker, `start` brings up the Wi-Fi manager, posts the
// first scan and builds the list's screen; the batches follow when a person taps the NEXT button.
// The host may call `teardown` at any time after `start`.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "controller/RunPlan.h"
#include "controller/WiFiProfileInputs.h"
#include "platform/Array.h"
#include "platform/DiagnosticsService.h"
#include "platform/HostFramework.h"
#include "platform/Property.h"
#include "platform/WiFiManager.h"
#include "platform/toolkit/NavigationBar.h"
#include "platform/toolkit/TableView.h"
#include "wifi/NameOrder.h"
#include "wifi/NetworkDictionary.h"
#include "wifi/ScanList.h"

namespace wifi_profile {

namespace toolkit {
class Image;
class Label;
class ProgressView;
}  // namespace toolkit
class WiFiHeaderView;
struct CatalogueTest;

// Must be owned by a shared_ptr: work in the queues keeps the controller alive. Operations run on
// the main thread unless they say otherwise; properties may be read on any thread, but what a view
// property points to belongs to the main thread.
class WiFiProfileViewController final : public HxDiagnosticViewController,
                                        public toolkit::NavigationBarDelegate,
                                        public toolkit::TableViewDataSource,
                                        public toolkit::TableViewDelegate {
 public:
  // --- State, in the order of declaration, which is the reverse order of destruction

  Property<DictionaryRef> currentNetworkConfiguration;  // {"MaxScanCacheAge"}
  Property<DictionaryRef> configuration;                // the same, with "NetworkName" if selected
  Property<DictionaryRef> freshScanConfiguration;       // {"MaxScanCacheAge": 0}
  Property<MutableDictionaryRef> deviceData;            // findings; live until the end
  Property<MutableDictionaryRef> currentNetworkData;
  Property<MutableDictionaryRef> selectedNetworkData;
  Property<VqWiFiStatusRef> wifiStatus;    // nil until a status query succeeds
  Property<ScanResultRef> currentNetwork;  // the joined network's access point, once heard
  Property<NetworkListRef> filteredWiFiScanResults;  // the listed networks, in the list's order
  Property<NetworkListRef> previousScanFilteredWiFiScanResults;  // as a refresh found them
  Property<NetworkDictionaryRef> distinctNetworks;               // every named network
  Property<NetworkDictionaryRef> filteredNetworks;               // the listed ones
  Property<NetworkDictionaryRef> previousScanFilteredNetworks;   // as a refresh found them
  Property<ArrayRef> wifiScanResults;  // of VqWiFiScanResult, in the service's order
  Property<std::shared_ptr<toolkit::TableView>> tableView;
  Property<std::shared_ptr<toolkit::RefreshControl>> refreshControl;
  Property<std::shared_ptr<toolkit::NavigationBar>> navigationBar;
  Property<std::shared_ptr<toolkit::NavigationItem>> navigationItem;
  Property<std::shared_ptr<WiFiHeaderView>> networksGroupHeaderView;
  Property<std::shared_ptr<WiFiHeaderView>> selectedNetworkHeaderView;
  Property<toolkit::ImageRef> blueCheck;
  Property<toolkit::ImageRef> spacer;
  Property<std::shared_ptr<toolkit::Label>> mainLabel;
  Property<std::shared_ptr<toolkit::ProgressView>> progressView;
  Property<bool> refreshEnabled;
  Property<bool> progressScreenVisible;
  Property<bool> scanFinished;
  Property<WiFiManagerClientRef> manager;  // one reference of ours, released by `cleanUp`
  Property<WiFiDeviceClientRef> device;    // one reference of ours, released by `cleanUp`
  Property<bool> wifiPoweredOn;
  Property<std::int32_t> completedTests;
  Property<std::int32_t> totalTests;
  Property<TextRef> previousSelectedNetworkName;
  Property<std::shared_ptr<WiFiProfileInputs>> inputs;
  Property<std::optional<RunPlan>> runPlan;  // for the host; empty until the tests begin

  // --- Lifecycle (controller/Lifecycle.cpp)

  // `validInputs` must have been validated. The responder is not used. May post to the automation
  // harness.
  void setupWithInputs(const std::shared_ptr<WiFiProfileInputs>& validInputs,
                       const std::shared_ptr<HxResponder>& responder);
  void start() override;
  void teardown() override;

  // Asks the service for the device's status, on the calling thread (any). On failure one line is
  // logged and `wifiStatus` keeps what it held.
  void determineCurrentNetwork();

  void nextTapped(const ObjectRef& sender);

  // Shows the progress screen and posts the run to the global queue.
  void runTests();

  // nil when there is no date, or none that has such a text. Any thread.
  TextRef timestampFormattedInISO8601(const std::optional<Date>& date) const;

  // Any thread. Cancels and releases, on the calling thread; safe to call again.
  void cleanUp();

  // --- The end and the record (controller/ResultRecord.cpp)

  // Any thread: cleans up, fills in the result, finishes. A second call does the same again.
  void endTestWithStatusCode(const NumberRef& status);
  void finishTest();

  // --- Batches (controller/Batches.cpp), on the run's background thread

  void runDeviceConfigurationDiagnosticsTests();
  void runCurrentNetworkDiagnosticsTests();
  void runSelectedNetworkDiagnosticsTests();

  // --- How a test is run (tests/TestExecution.cpp), any thread but the main one

  // One request to the service; its answer goes into `deviceData`, or into `resultsDictionary`.
  void runDeviceConfigurationTest(DiagnosticsTestID testID);
  void runCurrentNetworkTest(DiagnosticsTestID testID, const DictionaryRef& testConfiguration,
                             const MutableDictionaryRef& resultsDictionary);

  // The first of the results, or nil (one line logged) when there is none.
  std::shared_ptr<const DiagnosticsTestResult> testResultFromResults(
      const DiagnosticsTestResults& results) const;

  // --- Tests of the device (tests/DeviceConfigurationTests.cpp)

  void runDeviceConfigurationCustomIPv4();
  void runDeviceConfigurationCustomIPv6();
  void runDeviceConfigurationCustomDNS();
  void runDeviceConfigurationCustomWebProxy();
  void runDeviceConfigurationPYNXRealTimeMode();
  void runDeviceConfigurationBluetoothConnected();
  void runDeviceConfigurationBluetoothPaired();
  void runDeviceConfigurationBTCoex();
  void runDeviceConfigurationLargePNL();
  void runDeviceConfigurationPNLContainsHidden();
  void runDeviceConfigurationConflictingSecurityTypeInPNL();

  // --- Tests of a network's configuration (tests/NetworkConfigurationTests.cpp)
  // Here and below: the configuration, which may be nil, and the results dictionary to write into.

  void runCurrentNetworkDetectDoubleNATWithConfiguration(const DictionaryRef&,
                                                         const MutableDictionaryRef&);
  void runCurrentNetworkLongBeaconIntervalWithConfiguration(const DictionaryRef&,
                                                            const MutableDictionaryRef&);
  void runCurrentNetworkLongDTIMIntervalWithConfiguration(const DictionaryRef&,
                                                          const MutableDictionaryRef&);
  void runCurrentNetworkNoSecurityWithConfiguration(const DictionaryRef&,
                                                    const MutableDictionaryRef&);
  void runCurrentNetworkLegacySecurityWEPWithConfiguration(const DictionaryRef&,
                                                           const MutableDictionaryRef&);
  void runCurrentNetworkLegacySecurityWPAWithConfiguration(const DictionaryRef&,
                                                           const MutableDictionaryRef&);
  void runCurrentNetworkLegacyRates11bWithConfiguration(const DictionaryRef&,
                                                        const MutableDictionaryRef&);
  void runCurrentNetworkAmbiguousNetworkNameWithConfiguration(const DictionaryRef&,
                                                              const MutableDictionaryRef&);
  void runCurrentNetworkHiddenNetworkWithConfiguration(const DictionaryRef&,
                                                       const MutableDictionaryRef&);
  void runCurrentNetworkNimoPersonalHotspotWithConfiguration(const DictionaryRef&,
                                                             const MutableDictionaryRef&);
  void runCurrentNetworkCaptivePortalWithConfiguration(const DictionaryRef&,
                                                       const MutableDictionaryRef&);
  void runCurrentNetworkPasspointWithConfiguration(const DictionaryRef&,
                                                   const MutableDictionaryRef&);
  void runCurrentNetworkConflictingPHYMode11ACWithConfiguration(const DictionaryRef&,
                                                                const MutableDictionaryRef&);
  void runCurrentNetworkConflictingPHYMode11NWithConfiguration(const DictionaryRef&,
                                                               const MutableDictionaryRef&);
  void runCurrentNetworkBrellinBaseStationWithConfiguration(const DictionaryRef&,
                                                            const MutableDictionaryRef&);

  // --- Tests of connectivity and the radio (tests/ConnectivityTests.cpp)

  void runCurrentNetworkPingLANWithConfiguration(const DictionaryRef&, const MutableDictionaryRef&);
  void runCurrentNetworkPingWANWithConfiguration(const DictionaryRef&, const MutableDictionaryRef&);
  void runCurrentNetworkIPv4AssignedWithConfiguration(const DictionaryRef&,
                                                      const MutableDictionaryRef&);
  void runCurrentNetworkIPv6AssignedWithConfiguration(const DictionaryRef&,
                                                      const MutableDictionaryRef&);
  void runCurrentNetworkResolveDNSWithConfiguration(const DictionaryRef&,
                                                    const MutableDictionaryRef&);
  void runCurrentNetworkReachOrvaneWithConfiguration(const DictionaryRef&,
                                                     const MutableDictionaryRef&);
  void runCurrentNetworkRetrieveOrvaneWithConfiguration(const DictionaryRef&,
                                                        const MutableDictionaryRef&);
  void runCurrentNetworkCongestedChannelWithConfiguration(const DictionaryRef&,
                                                          const MutableDictionaryRef&);
  void runCurrentNetworkCongested2GHzWithConfiguration(const DictionaryRef&,
                                                       const MutableDictionaryRef&);
  void runCurrentNetworkCongested5GHzWithConfiguration(const DictionaryRef&,
                                                       const MutableDictionaryRef&);
  void runCurrentNetworkHT402GHzChannelWithConfiguration(const DictionaryRef&,
                                                         const MutableDictionaryRef&);
  void runCurrentNetworkConflictingCountryCodeWithConfiguration(const DictionaryRef&,
                                                                const MutableDictionaryRef&);
  void runCurrentNetworkPoorSignalWithConfiguration(const DictionaryRef&,
                                                    const MutableDictionaryRef&);
  void runCurrentNetworkNoScanResultsWithConfiguration(const DictionaryRef&,
                                                       const MutableDictionaryRef&);
  void runCurrentNetworkHiddenScanResultsWithConfiguration(const DictionaryRef&,
                                                           const MutableDictionaryRef&);

  // --- The selected network's tests (tests/SelectedNetworkTests.cpp)
  // Each is the current network's test of that name with
  // `configuration` and `selectedNetworkData`.

  void runSelectedNetworkLongBeaconInterval();
  void runSelectedNetworkNoSecurity();
  void runSelectedNetworkLegacySecurityWEP();
  void runSelectedNetworkLegacySecurityWPA();
  void runSelectedNetworkLegacyRates11b();
  void runSelectedNetworkAmbiguousNetworkName();
  void runSelectedNetworkHiddenNetwork();
  void runSelectedNetworkNimoPersonalHotspot();
  void runSelectedNetworkCaptivePortal();
  void runSelectedNetworkPasspoint();
  void runSelectedNetworkConflictingPHYMode11AC();
  void runSelectedNetworkConflictingPHYMode11N();
  void runSelectedNetworkBrellinBaseStation();
  void runSelectedNetworkCongestedChannel();
  void runSelectedNetworkConflictingCountryCode();
  void runSelectedNetworkPoorSignal();

  // --- Wi-Fi manager and power (wifi/Power.cpp)

  // YES when there is a Wi-Fi device; else the run has been ended with -2 or -3.
  bool setupWiFi();

  // At every power notification: with the radio on, loads the list; with the radio off, ends the
  // run with -5.
  void powerChanged();

  // Asks whether to switch the radio on. NO ends the run with -4; YES asks the manager, and only
  // its notification goes on.
  void presentWiFiPoweredOffAlert();

  // --- The list of networks (wifi/NetworkList.cpp)

  // Posts the first scan to the global queue. Before the scan it has the main queue reload the
  // table, after it show the list and install the pull-to-refresh control.
  void displayNetworkList();
  // A pull: posts a rescan to the global queue, and after it has the main queue change the rows.
  void refreshNetworkList(const ObjectRef& sender);

  // On the scan's background thread, one after another.
  void dedupScanResultsToHighestRSSI();
  void updateFilteredNetworkListIfNeeded();

  // Any thread. A nil network changes nothing. Callers sort afterwards.
  void sortWiFiScanResults();
  void removeNetworkFromFilteredNetworkList(const ScanResultRef& network);
  void addNetworkToFilteredNetworkList(const ScanResultRef& network);

  // The table's rows, in batches.
  void loadInitialNetworkList();
  void updateNetworkList();
  void deleteLostNetworks();
  void insertNewNetworks();

  // --- The choice of a network (wifi/Selection.cpp)

  // `network` is one of the listed ones.
  void updateSelectedNetwork(const ScanResultRef& network);
  // Takes the name as it was typed. The one that is selected already changes nothing.
  void updateSelectedNetworkFromOtherWithSSID(const TextRef& ssid);
  void askForSSID();
  void textFieldAlertDidChange(const ObjectRef& sender);

  // Rows of the table, in batches. There must be a table.
  void reloadSelectedNetwork(bool shown);
  void deleteSelectedNetwork(std::int64_t row);
  void insertPreviousSelectedNetwork(const ScanResultRef& previous);

  // --- Picker screen (ui/NetworkPicker.cpp). What is not there is left alone.

  void setupViewWithNetworkList(bool list);
  void setupRefreshControl();
  void showSpinner();
  void hideSpinner();
  void enableTableViewSelection(bool enable);
  void enableRightBarButtonItem(bool enable);
  void removeNavigationBarButtons();
  void reloadRefreshCell();
  void scrollToSelectedNetwork();
  void scrollToLastFocusedItem();
  toolkit::BarPosition positionForBar() const override;

  bool shouldAutorotate() const override { return false; }
  unsigned supportedInterfaceOrientations() const override { return toolkit::kPortraitOnly; }

  // --- What the picker's table shows (ui/PickerTable.cpp)

  // Rows of the networks' section: the listed ones, and one for a network that is not listed.
  std::int64_t networksOffset() const;

  std::int64_t numberOfSectionsInTableView(const toolkit::TableView& table) override;
  std::int64_t tableViewNumberOfRowsInSection(const toolkit::TableView& table,
                                              std::int64_t section) override;
  std::shared_ptr<toolkit::TableViewCell> tableViewCellForRowAtIndexPath(
      toolkit::TableView& table, toolkit::IndexPath path) override;
  double tableViewHeightForHeaderInSection(const toolkit::TableView& table,
                                           std::int64_t section) override;
  // Asking for the networks' header while a scan is on has its spinner turn.
  std::shared_ptr<toolkit::View> tableViewViewForHeaderInSection(const toolkit::TableView& table,
                                                                 std::int64_t section) override;
  double tableViewHeightForFooterInSection(const toolkit::TableView& table,
                                           std::int64_t section) override;
  void tableViewDidSelectRowAtIndexPath(toolkit::TableView& table,
                                        toolkit::IndexPath path) override;

  // --- Progress screen (ui/ProgressScreen.cpp)

  void displayProgressScreen();
  void updateViewConstraints() override;

  // Any thread: counts one more finished test here, then has the main queue move the
  // bar, to the fraction that holds when its turn comes.
  void updateProgress();

 private:
  std::shared_ptr<WiFiProfileViewController> self() {
    return std::static_pointer_cast<WiFiProfileViewController>(shared_from_this());
  }
  void runBatchesAndScheduleEnd();
  void takeSelectedNetworkOutAfterRefresh(bool hadSelection);
  void showRefreshed(bool hadSelection);
  void select(const TextRef& name, const ScanResultRef& listed);
  void setupTable();

  NameOrder nameOrder_;  // of the names that scans brought; any thread
};

}  // namespace wifi_profile
