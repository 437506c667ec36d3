#include "app/cli/UserActions.h"

#include <algorithm>

#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "diagnostic/ui/PickerTable.h"
#include "runtime/JsonWriter.h"

namespace wifi_profile::cli {
namespace {

std::shared_ptr<toolkit::TableView> tableOnScreen(const WiFiProfileViewController& controller) {
  auto table = controller.tableView();
  return table && table->superview() ? table : nullptr;
}

// Says why a step cannot be performed.
Error obstacle(std::string message) { return {Reason::failed, std::move(message)}; }

std::int64_t countOf(const toolkit::TableView& table, std::int64_t section) {
  return static_cast<std::int64_t>(table.rowsOfSection(section).size());
}

Status tapRow(toolkit::TableView& table, toolkit::IndexPath path) {
  if (path.row < 0 || path.row >= countOf(table, path.section)) {
    return obstacle("no row " + std::to_string(path.row) + " in section " +
                    std::to_string(path.section) + ", which has " +
                    std::to_string(countOf(table, path.section)) + " rows");
  }
  if (!table.allowsSelection()) return obstacle("the list is being refreshed");
  if (!table.canTap(path)) return obstacle("the row cannot be tapped");
  table.tap(path);
  return {};
}

Status tapNetwork(toolkit::TableView& table, const std::string& name) {
  const auto& rows = table.rowsOfSection(kNetworksSection);
  const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto& row) {
    return row.title && row.title->string() == name;
  });
  if (found == rows.end()) {
    return obstacle("no row " + runtime::jsonString(name) + " in the list of networks");
  }
  return tapRow(table, {kNetworksSection, found - rows.begin()});
}

Status pull(const toolkit::TableView& table) {
  const auto& control = table.refreshControl();
  if (!control) return obstacle("the list cannot be refreshed yet");
  if (control->isRefreshing()) return obstacle("the list is being refreshed");
  control->pull();
  return {};
}

Status scrollAway(toolkit::TableView& table, std::int64_t section) {
  if (section < 0 || section >= table.numberOfSections()) {
    return obstacle("no section " + std::to_string(section) + " in the table");
  }
  table.scrollHeaderAwayAndBack(section);
  return {};
}

Status tapNext(const WiFiProfileViewController& controller) {
  const auto item = controller.navigationItem();
  const auto button = item ? item->rightBarButtonItem() : nullptr;
  if (!button) return obstacle("the navigation bar has no button");
  if (!button->isEnabled()) return obstacle("the button is disabled");
  button->tap();
  return {};
}

Status type(toolkit::Alert& alert, const std::string& text) {
  if (alert.textFields().empty()) return obstacle("the alert has no text field");
  alert.type(text);
  return {};
}

Status tapAction(toolkit::Alert& alert, const std::string& title) {
  const auto& actions = alert.actions();
  const auto found = std::find_if(actions.begin(), actions.end(),
                                  [&](const auto& action) { return action->title() == title; });
  if (found == actions.end()) {
    return obstacle("no action " + runtime::jsonString(title) + " in the alert");
  }
  if (!(*found)->isEnabled()) {
    return obstacle("the action " + runtime::jsonString(title) + " is disabled");
  }
  alert.tap(**found);
  return {};
}

Status onTable(toolkit::TableView& table, const scenario::Step& step) {
  switch (step.action) {
    case scenario::Action::tapNetwork:
      return tapNetwork(table, step.text);
    case scenario::Action::tapRow:
      return tapRow(table, {step.section, step.row});
    case scenario::Action::tapOther:
      return tapRow(table, {kNetworksSection, countOf(table, kNetworksSection) - 1});
    case scenario::Action::pullToRefresh:
      return pull(table);
    default:
      return scrollAway(table, step.section);
  }
}

}  // namespace

Status performOnScreen(WiFiProfileViewController& controller, const scenario::Step& step) {
  const auto& alert = controller.presentedAlert();
  if (step.action == scenario::Action::type || step.action == scenario::Action::tapAction) {
    if (!alert) return obstacle("no alert is presented");
    return step.action == scenario::Action::type ? type(*alert, step.text)
                                                 : tapAction(*alert, step.text);
  }
  // A scroll is allowed under an alert: it is not a tap.
  if (alert && step.action != scenario::Action::scrollAway) {
    return obstacle("an alert covers the screen");
  }
  if (step.action == scenario::Action::tapNext) return tapNext(controller);
  const auto table = tableOnScreen(controller);
  if (!table) return obstacle("the list of networks is not on the screen");
  return onTable(*table, step);
}

}  // namespace wifi_profile::cli
