// Selection of a network: from the list, or by a typed name. State: the selected name of the inputs
// and `previousSelectedNetworkName`.

#include <algorithm>

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/StringTable.h"
#include "diagnostic/platform/WorkQueues.h"
#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "diagnostic/ui/PickerTable.h"

namespace wifi_profile {

using toolkit::IndexPath;
using toolkit::RowAnimation;

namespace {

constexpr IndexPath kSelectedRow{kSelectedSection, 0};

// Empty if the list does not contain this object.
std::optional<std::int64_t> indexIn(const NetworkListRef& list, const ScanResultRef& network) {
  if (!list) return std::nullopt;
  const auto found = std::find(list->begin(), list->end(), network);
  if (found == list->end()) return std::nullopt;
  return found - list->begin();
}

// Returns the position of a network that was added and sorted: after names that compare equal. If
// the list already had this object, it now has the object twice. The two are adjacent, and either
// position is correct.
std::optional<std::int64_t> indexOfAdded(const NetworkListRef& list, const ScanResultRef& network) {
  if (!list) return std::nullopt;
  const auto last = std::find(list->rbegin(), list->rend(), network);
  if (last == list->rend()) return std::nullopt;
  const auto first =
      std::find_if(last, list->rend(), [&](const auto& other) { return other != network; });
  return list->rend() - first;
}

}  // namespace

void WiFiProfileViewController::updateSelectedNetwork(const ScanResultRef& network) {
  select(network->ssidString(), network);
}

void WiFiProfileViewController::updateSelectedNetworkFromOtherWithSSID(const TextRef& ssid) {
  if (equalNames(inputs()->selectedNetworkName(), ssid)) return;
  const NetworkDictionaryRef listed = filteredNetworks();
  select(ssid, listed ? listed->networkNamed(ssid) : nullptr);
}

void WiFiProfileViewController::select(const TextRef& name, const ScanResultRef& listed) {
  const auto table = tableView();
  if (!table) return;
  table->beginUpdates();
  const auto theInputs = inputs();
  const bool hadSelection = theInputs->selectedNetworkName() != nullptr;
  previousSelectedNetworkName.set(theInputs->selectedNetworkName());
  theInputs->setSelectedNetworkName(name);
  reloadSelectedNetwork(hadSelection);
  if (!hadSelection) enableRightBarButtonItem(true);
  if (const auto row = indexIn(filteredWiFiScanResults(), listed)) {
    removeNetworkFromFilteredNetworkList(listed);
    deleteSelectedNetwork(*row);
  }
  table->endUpdates();

  // A separate batch: its index refers to the list without the network just selected.
  table->beginUpdates();
  const NetworkDictionaryRef networks = distinctNetworks();
  const auto previous = networks ? networks->networkNamed(previousSelectedNetworkName()) : nullptr;
  if (previous) {
    addNetworkToFilteredNetworkList(previous);
    sortWiFiScanResults();
    insertPreviousSelectedNetwork(previous);
  }
  table->endUpdates();
}

void WiFiProfileViewController::reloadSelectedNetwork(bool shown) {
  const auto table = tableView();
  table->beginUpdates();
  if (shown) table->deleteRows({kSelectedRow}, RowAnimation::fade);
  table->insertRows({kSelectedRow}, RowAnimation::fade);
  table->endUpdates();
}

void WiFiProfileViewController::deleteSelectedNetwork(std::int64_t row) {
  IndexPath path;
  WorkQueues::shared()->runOnGlobalAndWait([&] { path = {kNetworksSection, row}; });
  const auto table = tableView();
  table->beginUpdates();
  table->deleteRows({path}, RowAnimation::fade);
  table->endUpdates();
}

void WiFiProfileViewController::insertPreviousSelectedNetwork(const ScanResultRef& previous) {
  std::vector<IndexPath> paths;  // empty if a scan has just replaced the list
  WorkQueues::shared()->runOnGlobalAndWait([&] {
    if (const auto row = indexOfAdded(filteredWiFiScanResults(), previous)) {
      paths.push_back({kNetworksSection, *row});
    }
  });
  const auto table = tableView();
  table->beginUpdates();
  table->insertRows(paths, RowAnimation::fade);
  table->endUpdates();
}

void WiFiProfileViewController::askForSSID() {
  const auto alert = std::make_shared<toolkit::Alert>(localizedString("OTHER_NETWORK_MESSAGE"));
  const auto field = std::make_shared<toolkit::TextField>();
  field->placeholder = localizedString("OTHER_NETWORK_PLACEHOLDER");
  field->onEditingChanged = whileAlive([](auto& self) { self.textFieldAlertDidChange(nullptr); });
  const auto done = std::make_shared<toolkit::AlertAction>(
      localizedString("DONE"), toolkit::ActionStyle::standard, whileAlive([field](auto& self) {
        self.updateSelectedNetworkFromOtherWithSSID(makeText(field->text));
        self.scrollToSelectedNetwork();
      }));
  done->setEnabled(false);
  alert->addTextField(field);
  // The confirming action must be the last: `textFieldAlertDidChange` relies on it.
  alert->addAction(std::make_shared<toolkit::AlertAction>(localizedString("CANCEL"),
                                                          toolkit::ActionStyle::cancel, nullptr));
  alert->addAction(done);
  present(alert, true);
}

void WiFiProfileViewController::textFieldAlertDidChange(const ObjectRef& /*sender*/) {
  const auto alert = presentedAlert();
  if (!alert || alert->textFields().empty() || alert->actions().empty()) return;
  alert->actions().back()->setEnabled(!alert->textFields().front()->text.empty());
}

}  // namespace wifi_profile
