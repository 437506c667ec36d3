// The list of networks: the first scan, rescans, and the rows that they change. State:
// `wifiScanResults`, `distinctNetworks`, `filteredNetworks`, `filteredWiFiScanResults`, their two
// snapshots, `currentNetwork`.
//
// One list operation runs at a time: the user can pull to refresh only after the first list is
// shown and not during another operation, and the table allows no selection in the meantime. Values
// that two threads could still access are replaced as a whole.

#include <numeric>

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/WorkQueues.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "diagnostic/ui/PickerTable.h"

namespace wifi_profile {

using toolkit::IndexPath;
using toolkit::RowAnimation;

namespace {

// Runs a short computation on the global queue while the main thread waits.
template <class Rows>
std::vector<IndexPath> pathsOnGlobalQueue(const Rows& rows) {
  std::vector<IndexPath> paths;
  WorkQueues::shared()->runOnGlobalAndWait([&] {
    for (const std::int64_t row : rows()) paths.push_back({kNetworksSection, row});
  });
  return paths;
}

}  // namespace

void WiFiProfileViewController::displayNetworkList() {
  WorkQueues::shared()->postToGlobal([self = self()] {
    self->determineCurrentNetwork();
    const auto theInputs = self->inputs();
    if (!theInputs->selectedNetworkName()) {
      theInputs->setSelectedNetworkName(joinedNameOf(self->wifiStatus()));
    }
    // Reload before the scan, so that the table has the rows that are known without it.
    WorkQueues::shared()->postToMain([self] {
      if (const auto table = self->tableView()) table->reloadData();
      if (self->inputs()->selectedNetworkName()) self->enableRightBarButtonItem(true);
    });
    self->runCurrentNetworkNoScanResultsWithConfiguration(self->freshScanConfiguration(),
                                                          self->currentNetworkData());
    self->dedupScanResultsToHighestRSSI();
    self->updateFilteredNetworkListIfNeeded();
    self->sortWiFiScanResults();
    WorkQueues::shared()->postToMain([self] {
      self->hideSpinner();
      self->setupRefreshControl();
      self->loadInitialNetworkList();
      self->scrollToLastFocusedItem();
    });
  });
}

void WiFiProfileViewController::refreshNetworkList(const ObjectRef& /*sender*/) {
  const bool hadSelection = inputs()->selectedNetworkName() != nullptr;
  previousScanFilteredWiFiScanResults.set(filteredWiFiScanResults());
  previousScanFilteredNetworks.set(filteredNetworks());
  enableTableViewSelection(false);
  showSpinner();
  reloadRefreshCell();
  WorkQueues::shared()->postToGlobal([self = self(), hadSelection] {
    self->determineCurrentNetwork();
    self->runCurrentNetworkNoScanResultsWithConfiguration(self->freshScanConfiguration(),
                                                          self->currentNetworkData());
    self->dedupScanResultsToHighestRSSI();
    self->takeSelectedNetworkOutAfterRefresh(hadSelection);
    // The table keeps the rows of names that it already has, in their order.
    self->filteredWiFiScanResults.set(sortedByNameAfter(self->previousScanFilteredWiFiScanResults(),
                                                        self->filteredWiFiScanResults(),
                                                        self->sortKeys_));
    WorkQueues::shared()->postToMain([self, hadSelection] { self->showRefreshed(hadSelection); });
  });
}

void WiFiProfileViewController::takeSelectedNetworkOutAfterRefresh(bool hadSelection) {
  const auto theInputs = inputs();
  const TextRef joinedName = joinedNameOf(wifiStatus());
  if (equalNames(theInputs->selectedNetworkName(), joinedName)) return;
  if (!hadSelection) {
    theInputs->setSelectedNetworkName(joinedName);
    // Enable it even if there is no name, unlike after the first scan.
    WorkQueues::shared()->postToMain([self = self()] { self->enableRightBarButtonItem(true); });
  }
  const NetworkDictionaryRef networks = distinctNetworks();
  const auto selected =
      networks ? networks->networkNamed(theInputs->selectedNetworkName()) : nullptr;
  if (!selected) return;
  removeNetworkFromFilteredNetworkList(selected);
  if (hadSelection) addNetworkToFilteredNetworkList(currentNetwork());
}

void WiFiProfileViewController::showRefreshed(bool hadSelection) {
  hideSpinner();
  enableTableViewSelection(true);
  if (const auto control = refreshControl()) control->endRefreshing();
  const auto table = tableView();
  if (!table) return;
  table->beginUpdates();
  if (inputs()->selectedNetworkName() || joinedNameOf(wifiStatus()))
    reloadSelectedNetwork(hadSelection);
  updateNetworkList();
  reloadRefreshCell();
  table->endUpdates();
}

void WiFiProfileViewController::dedupScanResultsToHighestRSSI() {
  Deduplicated networks = deduplicated(wifiScanResults(), wifiStatus(), sortKeys_);
  distinctNetworks.set(std::move(networks.distinct));
  filteredNetworks.set(std::move(networks.filtered));
  filteredWiFiScanResults.set(std::move(networks.listed));
  // If a scan does not find the joined access point, keep that of an earlier scan.
  if (networks.current) currentNetwork.set(std::move(networks.current));
}

void WiFiProfileViewController::updateFilteredNetworkListIfNeeded() {
  const TextRef selectedName = inputs()->selectedNetworkName();
  const TextRef joinedName = joinedNameOf(wifiStatus());
  if (equalNames(selectedName, joinedName)) return;
  const NetworkDictionaryRef networks = distinctNetworks();
  const auto selected = networks ? networks->networkNamed(selectedName) : nullptr;
  if (!selected) return;
  removeNetworkFromFilteredNetworkList(selected);
  if (joinedName) addNetworkToFilteredNetworkList(currentNetwork());
}

void WiFiProfileViewController::sortWiFiScanResults() {
  filteredWiFiScanResults.set(sortedByName(filteredWiFiScanResults(), sortKeys_));
}

void WiFiProfileViewController::removeNetworkFromFilteredNetworkList(const ScanResultRef& network) {
  if (!network) return;
  filteredWiFiScanResults.set(without(filteredWiFiScanResults(), network));
  if (const NetworkDictionaryRef before = filteredNetworks()) {
    NetworkDictionary networks = *before;
    networks.remove(network->ssidString());
    filteredNetworks.set(std::make_shared<const NetworkDictionary>(std::move(networks)));
  }
}

void WiFiProfileViewController::addNetworkToFilteredNetworkList(const ScanResultRef& network) {
  if (!network) return;
  filteredWiFiScanResults.set(with(filteredWiFiScanResults(), network));
  const NetworkDictionaryRef before = filteredNetworks();
  NetworkDictionary networks = before ? *before : NetworkDictionary();
  networks.set(network);
  filteredNetworks.set(std::make_shared<const NetworkDictionary>(std::move(networks)));
}

void WiFiProfileViewController::loadInitialNetworkList() {
  const auto table = tableView();
  if (!table) return;
  const auto paths = pathsOnGlobalQueue([this] {
    const NetworkListRef list = filteredWiFiScanResults();
    std::vector<std::int64_t> rows(list ? list->size() : 0);
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
  });
  table->beginUpdates();
  reloadRefreshCell();
  table->insertRows(paths, RowAnimation::fade);
  table->endUpdates();
}

void WiFiProfileViewController::updateNetworkList() {
  const auto table = tableView();
  if (!table) return;
  table->beginUpdates();
  deleteLostNetworks();
  insertNewNetworks();
  table->endUpdates();
}

void WiFiProfileViewController::deleteLostNetworks() {
  const auto paths = pathsOnGlobalQueue([this] {
    return rowsMissingFrom(previousScanFilteredWiFiScanResults(), filteredNetworks());
  });
  const auto table = tableView();
  table->beginUpdates();
  table->deleteRows(paths, RowAnimation::fade);
  table->endUpdates();
}

void WiFiProfileViewController::insertNewNetworks() {
  const auto paths = pathsOnGlobalQueue([this] {
    return rowsMissingFrom(filteredWiFiScanResults(), previousScanFilteredNetworks());
  });
  const auto table = tableView();
  table->beginUpdates();
  table->insertRows(paths, RowAnimation::fade);
  table->endUpdates();
}

}  // namespace wifi_profile
