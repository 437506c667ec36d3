#include "app/cli/TracingScreen.h"

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"
#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/ProgressView.h"
#include "diagnostic/platform/toolkit/Spinner.h"

namespace wifi_profile::cli {
namespace {

using namespace toolkit::table_event;

// The progress screen adds eight constraints at every layout pass.
constexpr std::int64_t kConstraintsOfARound = 8;

ObjectRef code(auto value) { return Number::withInteger(static_cast<std::int64_t>(value)); }
ObjectRef flag(bool value) { return Number::withBool(value); }

ObjectRef place(const toolkit::IndexPath& path) {
  return std::make_shared<const Array>(std::vector<ObjectRef>{code(path.section), code(path.row)});
}

ObjectRef places(const std::vector<toolkit::IndexPath>& paths) {
  std::vector<ObjectRef> all;
  all.reserve(paths.size());
  for (const auto& path : paths) all.push_back(place(path));
  return std::make_shared<const Array>(std::move(all));
}

// The fields of the `ui.table` event for each event of a table.
struct FieldsOf {
  using Fields = Trace::Fields;
  static Fields op(std::string_view name) { return {{"op", makeText(name)}}; }

  Fields operator()(const Reloaded& /*event*/) const { return op("reload"); }
  Fields operator()(const BatchBegan& /*event*/) const { return op("begin"); }
  Fields operator()(const BatchEnded& /*event*/) const { return op("end"); }
  Fields operator()(const RowsInserted& event) const {
    return {{"op", makeText("insert")},
            {"rows", places(event.rows)},
            {"animation", code(event.animation)}};
  }
  Fields operator()(const RowsDeleted& event) const {
    return {{"op", makeText("delete")},
            {"rows", places(event.rows)},
            {"animation", code(event.animation)}};
  }
  Fields operator()(const Scrolled& event) const {
    return {{"op", makeText("scroll")},
            {"row", place(event.row)},
            {"position", code(event.position)},
            {"animated", flag(event.animated)}};
  }
  Fields operator()(const Deselected& event) const {
    return {{"op", makeText("deselect")},
            {"row", place(event.row)},
            {"animated", flag(event.animated)}};
  }
  Fields operator()(const AllowsSelectionWasSet& event) const {
    return {{"op", makeText("allowsSelection")}, {"value", flag(event.value)}};
  }
  Fields operator()(const RemovedFromScreen& /*event*/) const { return op("removed"); }
  Fields operator()(const Repaired& event) const {
    return {{"op", makeText("repaired")},       {"section", code(event.section)},
            {"before", code(event.before)},     {"deleted", code(event.deleted)},
            {"inserted", code(event.inserted)}, {"expected", code(event.expected)}};
  }
  // These follow from the other events: no fields, so no event is written.
  Fields operator()(const RowsWereRead& /*event*/) const { return {}; }
  Fields operator()(const RowsChanged& /*event*/) const { return {}; }
};

ObjectRef describe(const toolkit::AlertAction& action) {
  const bool cancels = action.style() == toolkit::ActionStyle::cancel;
  return makeDictionary({{"title", makeText(action.title())},
                         {"style", makeText(cancels ? "cancel" : "default")},
                         {"enabled", flag(action.isEnabled())}});
}

}  // namespace

void TracingScreen::needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) {
  screen_->needsLayout(controller);
}

void TracingScreen::constraintWasAdded(const toolkit::View& holder,
                                       const toolkit::LayoutConstraint& constraint) {
  trace_.event("ui.constraint", {{"number", code(constraints_++ % kConstraintsOfARound + 1)}});
  screen_->constraintWasAdded(holder, constraint);
}

void TracingScreen::progressWasSet(const toolkit::ProgressView& progressView) {
  const double progress = progressView.progress();
  trace_.event("ui.progress", {{"value", Number::withDouble(progress)}});
  screen_->progressWasSet(progressView);
}

void TracingScreen::tableDid(const toolkit::TableEvent& event) {
  const auto fields = std::visit(FieldsOf(), event);
  if (!fields.empty()) trace_.event("ui.table", fields);
  screen_->tableDid(event);
}

void TracingScreen::buttonWasEnabled(const toolkit::BarButtonItem& button) {
  trace_.event("ui.button", {{"op", makeText("enabled")}, {"value", flag(button.isEnabled())}});
  screen_->buttonWasEnabled(button);
}

void TracingScreen::buttonWasRemoved() {
  trace_.event("ui.button", {{"op", makeText("removed")}});
  screen_->buttonWasRemoved();
}

void TracingScreen::spinnerWasSwitched(const toolkit::Spinner& spinner) {
  trace_.event("ui.spinner", {{"op", makeText(spinner.isAnimating() ? "start" : "stop")}});
  screen_->spinnerWasSwitched(spinner);
}

void TracingScreen::refreshWasInstalled() {
  trace_.event("ui.refresh", {{"op", makeText("installed")}});
  screen_->refreshWasInstalled();
}

void TracingScreen::refreshBegan() {
  trace_.event("ui.refresh", {{"op", makeText("begin")}});
  screen_->refreshBegan();
}

void TracingScreen::refreshEnded() {
  trace_.event("ui.refresh", {{"op", makeText("end")}});
  screen_->refreshEnded();
}

void TracingScreen::alertWasPresented(const toolkit::Alert& alert) {
  std::vector<ObjectRef> actions;
  for (const auto& action : alert.actions()) actions.push_back(describe(*action));
  const auto& fields = alert.textFields();
  trace_.event("ui.alert",
               {{"op", makeText("presented")},
                {"message", makeText(alert.message())},
                {"actions", std::make_shared<const Array>(std::move(actions))},
                {"textField",
                 fields.empty()
                     ? nullptr
                     : makeDictionary({{"placeholder", makeText(fields.front()->placeholder)}})}});
  screen_->alertWasPresented(alert);
}

void TracingScreen::alertTextWasEdited(const toolkit::Alert& alert) {
  trace_.event(
      "ui.alert",
      {{"op", makeText("text")},
       {"text", makeText(alert.textFields().front()->text)},
       {"enabled", flag(!alert.actions().empty() && alert.actions().back()->isEnabled())}});
  screen_->alertTextWasEdited(alert);
}

void TracingScreen::alertActionWasTapped(const toolkit::Alert& alert,
                                         const toolkit::AlertAction& action) {
  trace_.event("ui.alert", {{"op", makeText("action")}, {"title", makeText(action.title())}});
  screen_->alertActionWasTapped(alert, action);
}

}  // namespace wifi_profile::cli
