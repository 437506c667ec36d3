#include "simulation/User.h"

#include "diagnostic/platform/toolkit/NavigationBar.h"

namespace wifi_profile::simulation {
namespace {

std::shared_ptr<toolkit::TableView> tableOnScreen(const WiFiProfileViewController& controller) {
  auto table = controller.tableView();
  return table && table->superview() ? table : nullptr;
}

std::int64_t lastRowOf(const toolkit::TableView& table, std::int64_t section) {
  return static_cast<std::int64_t>(table.rowsOfSection(section).size()) - 1;
}

}  // namespace

void User::act(WiFiProfileViewController& controller) {
  Random& random = world_.random;
  if (const auto alert = controller.presentedAlert()) {
    // What scrolls may lie under an alert; everything else may not.
    const auto table = tableOnScreen(controller);
    if (table && random.oneIn(12)) return table->scrollHeaderAwayAndBack(1);
    if (alert->textFields().empty() || random.oneIn(2)) return answer(*alert);
    return type(*alert, someText(controller));
  }
  if (world_.tapsNext && random.oneIn(8) && tapNext(controller)) return;
  const auto table = tableOnScreen(controller);
  if (!table) return;
  switch (random.below(8)) {
    case 0:
    case 1:
      if (const auto& control = table->refreshControl()) control->pull();
      return;
    case 2:
      return table->scrollHeaderAwayAndBack(static_cast<std::int64_t>(random.below(3)));
    case 3:
      return tap(*table, {1, lastRowOf(*table, 1)});
    case 4:
      return tap(*table, {0, 0});
    default:
      // Also the last row, and one that is not there.
      return tap(*table,
                 {1, static_cast<std::int64_t>(random.below(table->rowsOfSection(1).size() + 2))});
  }
}

bool User::bringAboutTheEnd(WiFiProfileViewController& controller) {
  if (const auto alert = controller.presentedAlert()) {
    if (!alert->textFields().empty() && !alert->actions().back()->isEnabled()) type(*alert, "Zoo");
    const auto& actions = alert->actions();
    tap(*alert, alert->textFields().empty() ? *actions.front() : *actions.back());
    return true;
  }
  if (world_.tapsNext && tapNext(controller)) return true;
  const auto table = tableOnScreen(controller);
  if (!table || !world_.tapsNext || !table->allowsSelection()) return false;
  tap(*table, {1, lastRowOf(*table, 1)});
  return true;
}

bool User::tapNext(WiFiProfileViewController& controller) {
  const auto item = controller.navigationItem();
  const auto button = item ? item->rightBarButtonItem() : nullptr;
  if (!button || !button->isEnabled()) return false;
  history_.note([] { return "user: taps NEXT"; });
  intentions.startTheTests();
  button->tap();
  return true;
}

void User::answer(toolkit::Alert& alert) { tap(alert, *world_.random.pick(alert.actions())); }

void User::tap(toolkit::Alert& alert, const toolkit::AlertAction& action) {
  history_.note([&] { return "user: taps " + action.title(); });
  if (action.isEnabled() && action.title() == "NO") intentions.decline();
  if (action.isEnabled() && action.title() == "DONE") intentions.choose();
  alert.tap(action);
}

void User::type(toolkit::Alert& alert, const std::string& text) {
  history_.note([&] { return "user: types \"" + text + "\""; });
  alert.type(text);
}

void User::tap(toolkit::TableView& table, toolkit::IndexPath path) {
  const bool isChoice = table.canTap(path) && path.section == 1;
  history_.note([&] {
    return "user: taps row " + std::to_string(path.section) + "/" + std::to_string(path.row) +
           (isChoice ? "" : ", which cannot be tapped");
  });
  if (isChoice) intentions.choose();
  table.tap(path);
}

std::string User::someText(WiFiProfileViewController& controller) {
  Random& random = world_.random;
  switch (random.below(5)) {
    case 0:
      if (const TextRef selected = controller.inputs()->selectedNetworkName()) {
        return selected->string();
      }
      return "";
    case 1:
      return random.oneIn(2) ? "" : " ";
    case 2:
      return "Nowhere";
    default:
      return world_.someName();
  }
}

}  // namespace wifi_profile::simulation
