// The content of the table of the network picker. Section 0 contains the selected network. Section
// 1 contains the listed networks and a last row for a network that is not listed. Reads
// `filteredWiFiScanResults`, `scanFinished`, `wifiPoweredOn` and the selected name of the inputs.

#include "diagnostic/ui/PickerTable.h"

#include <limits>

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/StringTable.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "diagnostic/ui/WiFiHeaderView.h"

namespace wifi_profile {
namespace {

// Heights in points. The header of an empty section has no height. A table takes 0 as no
// answer, so the smallest positive number replaces it.
constexpr double kHeaderHeight = 32.66;
constexpr double kNoHeight = std::numeric_limits<double>::min();
constexpr double kAboveSpinner = 12;
constexpr double kBelowSpinner = 5;

std::int64_t countOf(const NetworkListRef& list) {
  return list ? static_cast<std::int64_t>(list->size()) : 0;
}

const ScanResultRef& networkAt(const NetworkListRef& list, std::int64_t row) {
  return (*list)[static_cast<std::size_t>(row)];
}

}  // namespace

std::int64_t WiFiProfileViewController::networksOffset() const {
  return countOf(filteredWiFiScanResults()) + 1;
}

std::int64_t WiFiProfileViewController::numberOfSectionsInTableView(
    const toolkit::TableView& /*table*/) {
  return 2;
}

std::int64_t WiFiProfileViewController::tableViewNumberOfRowsInSection(
    const toolkit::TableView& /*table*/, std::int64_t section) {
  if (section == kSelectedSection) return inputs()->selectedNetworkName() ? 1 : 0;
  return section == kNetworksSection ? networksOffset() : 0;
}

std::shared_ptr<toolkit::TableViewCell> WiFiProfileViewController::tableViewCellForRowAtIndexPath(
    toolkit::TableView& table, toolkit::IndexPath path) {
  auto cell = table.dequeueReusableCell(kCellIdentifier, path);
  if (path.section == kSelectedSection) {
    cell->textLabel().text = inputs()->selectedNetworkName();
    cell->image = blueCheck();
    cell->userInteractionEnabled = false;
  } else if (path.section == kNetworksSection) {
    const NetworkListRef list = filteredWiFiScanResults();
    TextRef title;  // nil for a row beyond a list that has just become shorter
    if (path.row < countOf(list)) title = networkAt(list, path.row)->ssidString();
    if (path.row == countOf(list)) title = makeText(localizedString("OTHER"));
    cell->textLabel().text = std::move(title);
    cell->image = spacer();
    cell->userInteractionEnabled = true;
  }
  return cell;
}

double WiFiProfileViewController::tableViewHeightForHeaderInSection(
    const toolkit::TableView& /*table*/, std::int64_t section) {
  if (section == kSelectedSection && !inputs()->selectedNetworkName()) return kNoHeight;
  if (section != kNetworksSection) return kHeaderHeight;
  const auto header = networksGroupHeaderView();
  const double spinnerHeight = header ? header->spinner()->frame().size.height : 0;
  return spinnerHeight + kAboveSpinner + kBelowSpinner;
}

std::shared_ptr<toolkit::View> WiFiProfileViewController::tableViewViewForHeaderInSection(
    const toolkit::TableView& /*table*/, std::int64_t section) {
  if (section == kSelectedSection && inputs()->selectedNetworkName()) {
    return selectedNetworkHeaderView();
  }
  if (section != kNetworksSection) return nullptr;
  // Restart the spinner if the header is scrolled away and back during a scan.
  if (wifiPoweredOn() && !scanFinished()) showSpinner();
  return networksGroupHeaderView();
}

double WiFiProfileViewController::tableViewHeightForFooterInSection(
    const toolkit::TableView& /*table*/, std::int64_t /*section*/) {
  return toolkit::kAutomaticDimension;
}

void WiFiProfileViewController::tableViewDidSelectRowAtIndexPath(toolkit::TableView& table,
                                                                 toolkit::IndexPath path) {
  if (path.section == kNetworksSection) {
    const NetworkListRef list = filteredWiFiScanResults();  // before the selection changes it
    if (path.row < countOf(list)) {
      updateSelectedNetwork(networkAt(list, path.row));
      scrollToSelectedNetwork();
    } else if (path.row == countOf(list)) {
      askForSSID();
    }
  }
  table.deselectRow(path, true);
}

}  // namespace wifi_profile
