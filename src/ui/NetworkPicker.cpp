// The screen's navigation bar. State: `navigationBar`, `navigationItem`.

#include "controller/WiFiProfileViewController.h"
#include "platform/DeviceCapability.h"
#include "platform/StringTable.h"
#include "platform/toolkit/NavigationBar.h"

namespace wifi_profile {
namespace {

constexpr double kStatusBarHeight = 20;

}  // namespace

void WiFiProfileViewController::setupViewWithNetworkList(bool /*list*/) {
  view()->setBackgroundColor(toolkit::kWhite);
  {
    const toolkit::NavigationContainer container(weak_from_this());
    navigationBar.set(container.navigationBar());
  }
  const auto bar = navigationBar();
  bar->setLocked(false);
  bar->setDelegate(weak_from_this());
  bar->setCenter({bar->center().x, bar->center().y + kStatusBarHeight});
  const bool saysWLAN = (QdGetBoolAnswer("wapi") & 1) != 0;
  navigationItem.set(std::make_shared<toolkit::NavigationItem>(
      localizedString(saysWLAN ? "WLAN_DIAGNOSTICS" : "WIFI_DIAGNOSTICS")));
  bar->setItems({navigationItem()});
  bar->setLocked(true);
  view()->addSubview(bar);
  view()->bringSubviewToFront(bar);
}

void WiFiProfileViewController::removeNavigationBarButtons() {
  if (const auto item = navigationItem()) item->setRightBarButtonItem(nullptr);
}

}  // namespace wifi_profile
