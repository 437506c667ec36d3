// The controller of the Wi-Fi profile diagnostic: its state and its operations.
//
// Order of a run without the picker: `setupWithInputs`; `start` (status query, progress screen,
// navigation bar); the batches of tests on the global queue; 0.5 s later `endTestWithStatusCode`,
// also on the global queue. With the picker, `start` sets up the Wi-Fi manager, posts the first
// scan and builds the screen of the list; the batches run after the user has tapped the NEXT
// button. The host may call `teardown` at any time after `start`.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "diagnostic/controller/RunPlan.h"
#include "diagnostic/controller/WiFiProfileInputs.h"
#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/DiagnosticsService.h"
#include "diagnostic/platform/HostFramework.h"
#include "diagnostic/platform/Property.h"
#include "diagnostic/platform/WiFiManager.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "diagnostic/wifi/NetworkDictionary.h"
#include "diagnostic/wifi/ScanList.h"
#include "diagnostic/wifi/SortKeys.h"

namespace wifi_profile {

namespace toolkit {
class Image;
class Label;
class ProgressView;
}  // namespace toolkit
class WiFiHeaderView;

// A shared_ptr must own the controller, because queued work keeps it alive. Operations run on the
// main thread unless stated otherwise. Properties may be read on any thread, but the object of a
// view property belongs to the main thread.
class WiFiProfileViewController final : public HxDiagnosticViewController,
                                        public toolkit::NavigationBarDelegate,
                                        public toolkit::TableViewDataSource,
                                        public toolkit::TableViewDelegate {
 public:
  // --- State, in the order of declaration, which is the reverse order of destruction

  Property<DictionaryRef> currentNetworkConfiguration;  // {"MaxScanCacheAge"}
  Property<DictionaryRef> configuration;                // the same, with "NetworkName" if selected
  Property<DictionaryRef> freshScanConfiguration;       // {"MaxScanCacheAge": 0}
  Property<MutableDictionaryRef> deviceData;            // findings; written until the end
  Property<MutableDictionaryRef> currentNetworkData;
  Property<MutableDictionaryRef> selectedNetworkData;
  Property<VqWiFiStatusRef> wifiStatus;    // nil until a status query succeeds
  Property<ScanResultRef> currentNetwork;  // the joined access point, once a scan has found it
  Property<NetworkListRef> filteredWiFiScanResults;  // the listed networks, in list order
  Property<NetworkListRef> previousScanFilteredWiFiScanResults;  // before the latest refresh
  Property<NetworkDictionaryRef> distinctNetworks;               // every named network
  Property<NetworkDictionaryRef> filteredNetworks;               // the listed ones
  Property<NetworkDictionaryRef> previousScanFilteredNetworks;   // before the latest refresh
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
  Property<WiFiManagerClientRef> manager;  // one reference, which `cleanUp` releases
  Property<WiFiDeviceClientRef> device;    // one reference, which `cleanUp` releases
  Property<bool> wifiPoweredOn;
  Property<std::int32_t> completedTests;
  Property<std::int32_t> totalTests;
  Property<TextRef> previousSelectedNetworkName;
  Property<std::shared_ptr<WiFiProfileInputs>> inputs;
  Property<std::optional<RunPlan>> runPlan;  // for the host; empty until the tests begin

  // --- Lifecycle (controller/Lifecycle.cpp)

  // Aborts the process if `validInputs` are not valid. The responder is not used. May post to the
  // automation harness.
  void setupWithInputs(const std::shared_ptr<WiFiProfileInputs>& validInputs,
                       const std::shared_ptr<HxResponder>& responder);
  void start() override;
  void teardown() override;

  // Queries the status of the device from the service, on the calling thread (any). On failure,
  // logs one line and leaves `wifiStatus` unchanged.
  void determineCurrentNetwork();

  void nextTapped(const ObjectRef& sender);

  // Shows the progress screen and posts the run to the global queue.
  void runTests();

  // Returns nil if there is no date or it cannot be formatted. Any thread.
  TextRef timestampFormattedInISO8601(const std::optional<Date>& date) const;

  // Cancels the requests and releases the handles, on the calling thread (any). May be called
  // again.
  void cleanUp();

  // --- The end and the record (controller/ResultRecord.cpp)

  // Cleans up, fills in the result and finishes. Any thread. A second call repeats all of this.
  void endTestWithStatusCode(const NumberRef& status);
  void finishTest();

  // --- Batches (controller/Batches.cpp), on the run's background thread

  void runDeviceConfigurationDiagnosticsTests();
  void runCurrentNetworkDiagnosticsTests();
  void runSelectedNetworkDiagnosticsTests();

  // --- Running a test (tests/TestExecution.cpp), any thread except the main thread

  // Sends one request to the service. Writes the answer into `deviceData` or `resultsDictionary`.
  void runDeviceConfigurationTest(DiagnosticsTestID testID);
  void runCurrentNetworkTest(DiagnosticsTestID testID, const DictionaryRef& testConfiguration,
                             const MutableDictionaryRef& resultsDictionary);

  // Returns the first result. If there is none, logs one line and returns nil.
  std::shared_ptr<const DiagnosticsTestResult> testResultFromResults(
      const DiagnosticsTestResults& results) const;

  // --- The named operations, three forms of the tests in platform/DiagnosticsTestID.h:
  //   runDeviceConfigurationCustomIPv4()
  //   runCurrentNetworkPoorSignalWithConfiguration(testConfiguration, resultsDictionary)
  //   runSelectedNetworkPoorSignal()
  // The configuration may be nil. The third form runs the second one with `configuration` and
  // `selectedNetworkData`.

#define WIFI_PROFILE_DEVICE(member, number) \
  void runDeviceConfiguration##member() { runDeviceConfigurationTest(DiagnosticsTestID::member); }
#define WIFI_PROFILE_CURRENT(member, number)                                                   \
  void runCurrentNetwork##member##WithConfiguration(                                           \
      const DictionaryRef& testConfiguration, const MutableDictionaryRef& resultsDictionary) { \
    runCurrentNetworkTest(DiagnosticsTestID::member, testConfiguration, resultsDictionary);    \
  }
#define WIFI_PROFILE_NETWORK(member, number)                                              \
  WIFI_PROFILE_CURRENT(member, number)                                                    \
  void runSelectedNetwork##member() {                                                     \
    runCurrentNetwork##member##WithConfiguration(configuration(), selectedNetworkData()); \
  }
  WIFI_PROFILE_TESTS(WIFI_PROFILE_DEVICE, WIFI_PROFILE_NETWORK, WIFI_PROFILE_CURRENT,
                     WIFI_PROFILE_CURRENT)
#undef WIFI_PROFILE_DEVICE
#undef WIFI_PROFILE_CURRENT
#undef WIFI_PROFILE_NETWORK

  // --- Wi-Fi manager and power (wifi/Power.cpp)

  // Returns true if there is a Wi-Fi device. Otherwise ends the run with -2 or -3.
  bool setupWiFi();

  // Called at every power notification. Loads the list if the radio is on; ends the run with -5 if
  // it is off.
  void powerChanged();

  // Asks the user whether to switch the radio on. The NO button ends the run with -4. The YES
  // button sends the request to the manager; the run continues only at its power notification.
  void presentWiFiPoweredOffAlert();

  // --- The list of networks (wifi/NetworkList.cpp)

  // Posts the first scan to the global queue. Before the scan, the main queue reloads the table.
  // After the scan, the main queue shows the list and installs the pull-to-refresh control.
  void displayNetworkList();
  // Handles a pull: posts a rescan to the global queue. After the rescan, the main queue changes
  // the rows.
  void refreshNetworkList(const ObjectRef& sender);

  // On the background thread of the scan, one after another.
  void dedupScanResultsToHighestRSSI();
  void updateFilteredNetworkListIfNeeded();

  // Any thread. A nil network changes nothing. The caller must sort afterwards.
  void sortWiFiScanResults();
  void removeNetworkFromFilteredNetworkList(const ScanResultRef& network);
  void addNetworkToFilteredNetworkList(const ScanResultRef& network);

  // Change the rows of the table, in batches.
  void loadInitialNetworkList();
  void updateNetworkList();
  void deleteLostNetworks();
  void insertNewNetworks();

  // --- Selection of a network (wifi/Selection.cpp)

  // `network` must be one of the listed networks.
  void updateSelectedNetwork(const ScanResultRef& network);
  // Takes the name as typed. Does nothing if that name is already selected.
  void updateSelectedNetworkFromOtherWithSSID(const TextRef& ssid);
  void askForSSID();
  void textFieldAlertDidChange(const ObjectRef& sender);

  // Change the rows of the table, in batches. There must be a table.
  void reloadSelectedNetwork(bool shown);
  void deleteSelectedNetwork(std::int64_t row);
  void insertPreviousSelectedNetwork(const ScanResultRef& previous);

  // --- Picker screen (ui/NetworkPicker.cpp). These operations ignore views that do not exist.

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

  // --- Content of the picker table (ui/PickerTable.cpp)

  // Returns the number of rows of the networks section: the listed networks, and one row for a
  // network that is not listed.
  std::int64_t networksOffset() const;

  std::int64_t numberOfSectionsInTableView(const toolkit::TableView& table) override;
  std::int64_t tableViewNumberOfRowsInSection(const toolkit::TableView& table,
                                              std::int64_t section) override;
  std::shared_ptr<toolkit::TableViewCell> tableViewCellForRowAtIndexPath(
      toolkit::TableView& table, toolkit::IndexPath path) override;
  double tableViewHeightForHeaderInSection(const toolkit::TableView& table,
                                           std::int64_t section) override;
  // Starts the spinner of the networks header if a scan is running.
  std::shared_ptr<toolkit::View> tableViewViewForHeaderInSection(const toolkit::TableView& table,
                                                                 std::int64_t section) override;
  double tableViewHeightForFooterInSection(const toolkit::TableView& table,
                                           std::int64_t section) override;
  void tableViewDidSelectRowAtIndexPath(toolkit::TableView& table,
                                        toolkit::IndexPath path) override;

  // --- Progress screen (ui/ProgressScreen.cpp)

  void displayProgressScreen();
  void updateViewConstraints() override;

  // Any thread. Counts one more finished test, then has the main queue move the bar to the fraction
  // that is current when that work runs.
  void updateProgress();

 private:
  std::shared_ptr<WiFiProfileViewController> self() {
    return std::static_pointer_cast<WiFiProfileViewController>(shared_from_this());
  }
  // Returns work for an object that the controller owns. It does nothing once the controller is
  // gone.
  template <class Operation>
  std::function<void()> whileAlive(Operation operation) {
    return [weak = std::weak_ptr(self()), operation = std::move(operation)] {
      if (const auto target = weak.lock()) operation(*target);
    };
  }
  void runBatchesAndScheduleEnd();
  void takeSelectedNetworkOutAfterRefresh(bool hadSelection);
  void showRefreshed(bool hadSelection);
  void select(const TextRef& name, const ScanResultRef& listed);
  void setupTable();

  SortKeys sortKeys_;  // of the names that scans found; any thread
};

}  // namespace wifi_profile
