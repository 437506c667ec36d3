#include "app/cli/UserActions.h"

#include <algorithm>

#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "diagnostic/ui/PickerTable.h"
#include "runtime/JsonWriter.h"

namespace wifi_profile::cli {
namespace {

using Obstacle = std::optional<std::string>;  // empty: the step can be performed
using scenario::Action;
using scenario::Step;

std::shared_ptr<toolkit::TableView> tableOnScreen(const WiFiProfileViewController& controller) {
  auto table = controller.tableView();
  return table && table->superview() ? table : nullptr;
}

std::int64_t countOf(const toolkit::TableView& table, std::int64_t section) {
  return static_cast<std::int64_t>(table.rowsOfSection(section).size());
}

Obstacle tapRow(toolkit::TableView& table, toolkit::IndexPath path) {
  if (path.row < 0 || path.row >= countOf(table, path.section)) {
    return "found " + std::to_string(countOf(table, path.section)) + " rows in section " +
           std::to_string(path.section) + ", expected a row " + std::to_string(path.row);
  }
  if (!table.allowsSelection()) return "found a list that is being refreshed, expected one at rest";
  if (!table.canTap(path)) return "found a row that cannot be tapped, expected one that can";
  table.tap(path);
  return std::nullopt;
}

Obstacle tapNetwork(toolkit::TableView& table, const std::string& name) {
  const auto& rows = table.rowsOfSection(kNetworksSection);
  const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto& row) {
    return row.title && row.title->string() == name;
  });
  if (found == rows.end()) {
    return "found no row " + runtime::jsonString(name) + " in the list of networks, expected one";
  }
  return tapRow(table, {kNetworksSection, found - rows.begin()});
}

Obstacle pull(const toolkit::TableView& table) {
  const auto& control = table.refreshControl();
  if (!control) return "found a list that cannot be pulled yet, expected one to refresh";
  if (control->isRefreshing()) return "found a list that is being refreshed, expected one at rest";
  control->pull();
  return std::nullopt;
}

Obstacle scrollAway(toolkit::TableView& table, std::int64_t section) {
  if (section < 0 || section >= table.numberOfSections()) {
    return "found " + std::to_string(table.numberOfSections()) + " sections, expected a section " +
           std::to_string(section);
  }
  table.scrollHeaderAwayAndBack(section);
  return std::nullopt;
}

Obstacle tapNext(const WiFiProfileViewController& controller) {
  const auto item = controller.navigationItem();
  const auto button = item ? item->rightBarButtonItem() : nullptr;
  if (!button) return "found no button in the navigation bar, expected the right-hand one";
  if (!button->isEnabled()) return "found the right-hand button disabled, expected it enabled";
  button->tap();
  return std::nullopt;
}

Obstacle type(toolkit::Alert& alert, const std::string& text) {
  if (alert.textFields().empty()) return "found an alert without a text field, expected one";
  alert.type(text);
  return std::nullopt;
}

Obstacle tapAction(toolkit::Alert& alert, const std::string& title) {
  const auto& actions = alert.actions();
  const auto found = std::find_if(actions.begin(), actions.end(),
                                  [&](const auto& action) { return action->title() == title; });
  if (found == actions.end()) {
    return "found no action " + runtime::jsonString(title) + " in the alert, expected one";
  }
  if (!(*found)->isEnabled()) {
    return "found the action " + runtime::jsonString(title) + " disabled, expected it enabled";
  }
  alert.tap(**found);
  return std::nullopt;
}

Obstacle onTable(toolkit::TableView& table, const scenario::Step& step) {
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

Obstacle performOnScreen(WiFiProfileViewController& controller, const scenario::Step& step) {
  const auto& alert = controller.presentedAlert();
  if (step.action == scenario::Action::type || step.action == scenario::Action::tapAction) {
    if (!alert) return "found no alert on the screen, expected one";
    return step.action == scenario::Action::type ? type(*alert, step.text)
                                                 : tapAction(*alert, step.text);
  }
  // A scroll is allowed under an alert: it is not a tap.
  if (alert && step.action != scenario::Action::scrollAway) {
    return "found an alert over the screen, expected none";
  }
  if (step.action == scenario::Action::tapNext) return tapNext(controller);
  const auto table = tableOnScreen(controller);
  if (!table) return "found no table on the screen, expected the list of networks";
  return onTable(*table, step);
}

}  // namespace wifi_profile::cli
