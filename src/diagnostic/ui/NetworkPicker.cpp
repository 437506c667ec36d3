// The screen of the network picker: its construction, and how the list, the selection and the power
// of the radio change it. State: `navigationBar`, `navigationItem`, `tableView`, `refreshControl`,
// the two header views, `blueCheck`, `spacer`, `scanFinished`, `refreshEnabled`.

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/DeviceCapability.h"
#include "diagnostic/platform/StringTable.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "diagnostic/ui/PickerTable.h"
#include "diagnostic/ui/WiFiHeaderView.h"
#include "diagnostic/ui/WiFiTableViewCell.h"

namespace wifi_profile {
namespace {

constexpr double kStatusBarHeight = 20;  // points

std::shared_ptr<WiFiHeaderView> makeHeader(std::string_view key, bool showSpinner) {
  return WiFiHeaderView::initWithFrame({}, makeText(localizedString(key)), showSpinner);
}

}  // namespace

void WiFiProfileViewController::setupViewWithNetworkList(bool list) {
  view()->setBackgroundColor(toolkit::kWhite);
  {
    const toolkit::NavigationContainer container(*this);
    navigationBar.set(container.navigationBar());
  }
  const auto bar = navigationBar();
  bar->setLocked(false);
  bar->setDelegate(self());
  bar->setCenter({bar->center().x, bar->center().y + kStatusBarHeight});
  const bool saysWLAN = (QdGetBoolAnswer("wapi") & 1) != 0;
  navigationItem.set(std::make_shared<toolkit::NavigationItem>(
      localizedString(saysWLAN ? "WLAN_DIAGNOSTICS" : "WIFI_DIAGNOSTICS")));
  if (list) {
    navigationItem()->setRightBarButtonItem(std::make_shared<toolkit::BarButtonItem>(
        localizedString("NEXT"), toolkit::BarButtonStyle::plain,
        whileAlive([](auto& self) { self.nextTapped(nullptr); })));
    enableRightBarButtonItem(false);
  }
  bar->setItems({navigationItem()});
  bar->setLocked(true);
  view()->addSubview(bar);
  if (list) setupTable();
  view()->bringSubviewToFront(bar);
}

void WiFiProfileViewController::setupTable() {
  const auto table = std::make_shared<toolkit::TableView>(view()->frame());
  tableView.set(table);
  const double top = navigationBar()->frame().size.height + kStatusBarHeight;
  table->setContentInset({.top = top});
  table->setScrollIndicatorInsets({.top = top});
  table->setDelegate(self());
  table->setDataSource(self());
  table->setResizing({.flexibleWidth = true, .flexibleHeight = true});
  table->registerCell<WiFiTableViewCell>(kCellIdentifier);
  view()->addSubview(table);
  blueCheck.set(toolkit::Image::blueCheckMark()->redrawnFlatInTint());
  spacer.set(toolkit::Image::named("spacer"));
  selectedNetworkHeaderView.set(makeHeader("SELECTED_NETWORK", false));
  networksGroupHeaderView.set(makeHeader("CHOOSE_NETWORK", true));
}

void WiFiProfileViewController::setupRefreshControl() {
  refreshControl.set(std::make_shared<toolkit::RefreshControl>(
      whileAlive([](auto& self) { self.refreshNetworkList(nullptr); })));
  if (const auto table = tableView()) table->setRefreshControl(refreshControl());
  refreshEnabled.set(true);
}

void WiFiProfileViewController::showSpinner() {
  scanFinished.set(false);
  if (const auto header = networksGroupHeaderView()) header->spinner()->startAnimating();
}

void WiFiProfileViewController::hideSpinner() {
  scanFinished.set(true);
  if (const auto header = networksGroupHeaderView()) header->spinner()->stopAnimating();
}

void WiFiProfileViewController::enableTableViewSelection(bool enable) {
  if (const auto table = tableView()) table->setAllowsSelection(enable);
}

void WiFiProfileViewController::enableRightBarButtonItem(bool enable) {
  const auto item = navigationItem();
  if (item && item->rightBarButtonItem()) item->rightBarButtonItem()->setEnabled(enable);
}

void WiFiProfileViewController::removeNavigationBarButtons() {
  if (const auto item = navigationItem()) item->setRightBarButtonItem(nullptr);
}

// Called at fixed points of the list updates. There is no cell to reload and no focus to follow.
void WiFiProfileViewController::reloadRefreshCell() {}
void WiFiProfileViewController::scrollToLastFocusedItem() {}

void WiFiProfileViewController::scrollToSelectedNetwork() {
  if (const auto table = tableView()) {
    table->scrollToRow({kSelectedSection, 0}, toolkit::ScrollPosition::none, true);
  }
}

toolkit::BarPosition WiFiProfileViewController::positionForBar() const {
  return toolkit::BarPosition::topAttached;
}

}  // namespace wifi_profile
