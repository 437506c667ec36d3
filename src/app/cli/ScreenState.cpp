#include "app/cli/ScreenState.h"

#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/Label.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/ProgressView.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "diagnostic/ui/PickerTable.h"
#include "diagnostic/ui/WiFiHeaderView.h"

namespace wifi_profile::cli {
namespace {

ObjectRef orNull(ObjectRef value) { return value ? value : nullPlaceholder(); }

ObjectRef nextButton(const std::shared_ptr<toolkit::NavigationItem>& item) {
  if (!item || !item->rightBarButtonItem()) return nullptr;
  return makeText(item->rightBarButtonItem()->isEnabled() ? "enabled" : "disabled");
}

// Returns the titles of the table's rows; an empty list while the table is off the screen.
ObjectRef titles(const std::shared_ptr<toolkit::TableView>& table, std::int64_t section) {
  if (!table) return nullptr;
  std::vector<ObjectRef> all;
  if (table->superview()) {
    for (const auto& row : table->rowsOfSection(section)) all.push_back(orNull(row.title));
  }
  return std::make_shared<const Array>(std::move(all));
}

ObjectRef addresses(const WiFiProfileViewController& controller) {
  if (!controller.tableView()) return nullptr;
  std::vector<ObjectRef> all;
  if (const NetworkListRef list = controller.filteredWiFiScanResults()) {
    for (const auto& network : *list) all.push_back(orNull(network->bssid()));
  }
  return std::make_shared<const Array>(std::move(all));
}

}  // namespace

Trace::Fields screenState(WiFiProfileViewController& controller) {
  const auto item = controller.navigationItem();
  const auto table = controller.tableView();
  const auto header = controller.networksGroupHeaderView();
  const auto refresh = controller.refreshControl();
  const auto alert = controller.presentedAlert();
  const auto label = controller.mainLabel();
  const auto bar = controller.progressView();
  return {
      {"title", item ? makeText(item->title()) : nullptr},
      {"next", nextButton(item)},
      {"selected", titles(table, kSelectedSection)},
      {"networks", titles(table, kNetworksSection)},
      {"addresses", addresses(controller)},
      {"spinner", Number::withBool(header && header->spinner()->isAnimating())},
      {"refreshing", Number::withBool(refresh && refresh->isRefreshing())},
      {"alert", alert ? makeText(alert->message()) : nullptr},
      {"label", label ? label->text : nullptr},
      {"progress", bar ? Number::withDouble(bar->progress()) : nullptr},
  };
}

}  // namespace wifi_profile::cli
