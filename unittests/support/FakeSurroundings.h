// The smaller things of the platform, as fakes that record what they were told.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "diagnostic/platform/DeviceCapability.h"
#include "diagnostic/platform/DiagnosticLog.h"
#include "diagnostic/platform/DiagnosticsSupport.h"
#include "diagnostic/platform/HostFramework.h"
#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/ProgressView.h"
#include "diagnostic/platform/toolkit/Spinner.h"
#include "diagnostic/platform/toolkit/TableEvent.h"
#include "runtime/NoScreen.h"
#include "runtime/VirtualTimeRunLoop.h"
#include "support/Events.h"

namespace wifi_profile {

// Logs every level until one is switched off.
class RecordingLog final : public DiagnosticLog {
 public:
  struct Line {
    int category;
    LogLevel level;
    std::string text;
    bool operator==(const Line&) const = default;
  };

  void switchOff(LogLevel level) { off_.insert(level); }

  const std::vector<Line>& lines() const { return lines_; }
  // The texts of the error lines of category 3 (the diagnostic's own). Any other line among them
  // shows as itself with a mark in front.
  std::vector<std::string> errors() const {
    std::vector<std::string> texts;
    for (const Line& line : lines_) {
      const bool usual = line.category == 3 && line.level == LogLevel::error;
      texts.push_back((usual ? "" : "(odd category or level) ") + line.text);
    }
    return texts;
  }
  void clear() { lines_.clear(); }

  bool isEnabled(int /*category*/, LogLevel level) const override { return !off_.contains(level); }
  void write(int category, LogLevel level, const std::string& text) override {
    lines_.push_back({category, level, text});
  }

 private:
  std::set<LogLevel> off_;
  std::vector<Line> lines_;
};

class FakeAutomation final : public HsTestAutomation {
 public:
  bool enabled = false;
  std::vector<DictionaryRef> posted;
  std::function<void()> whenPosted = [] {};

  bool testAutomationEnabled() const override { return enabled; }

 protected:
  void receiveConfiguration(const DictionaryRef& configuration) override {
    posted.push_back(configuration);
    whenPosted();
  }
};

class FakeCapability final : public DeviceCapability {
 public:
  int answer = 0;
  std::vector<std::string> asked;

  int boolAnswer(std::string_view key) override {
    asked.emplace_back(key);
    return answer;
  }
};

// Grants layout passes as any host that draws nothing does, and writes down what it is told, but
// for constraints and progress in words: "insert [1,0] [1,1]", "spinner start", "alert MESSAGE".
// Codes other than the usual ones show as such.
class RecordingScreen final : public runtime::NoScreen {
 public:
  using runtime::NoScreen::NoScreen;

  struct AddedConstraint {
    const toolkit::View* holder;
    toolkit::LayoutConstraint constraint;
  };

  std::size_t layoutsWanted = 0;
  std::vector<AddedConstraint> constraints;
  std::vector<float> progress;
  std::function<void()> whenProgressWasSet = [] {};
  std::vector<std::string> told;
  // When rows had been read, and which sections had changed: "read", "changed 1: -2 +3".
  std::vector<std::string> rows;

  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override {
    ++layoutsWanted;
    runtime::NoScreen::needsLayout(controller);
  }
  void constraintWasAdded(const toolkit::View& holder,
                          const toolkit::LayoutConstraint& constraint) override {
    constraints.push_back({&holder, constraint});
  }
  void progressWasSet(const toolkit::ProgressView& progressView) override {
    progress.push_back(progressView.progress());
    whenProgressWasSet();
  }
  void tableDid(const toolkit::TableEvent& event) override {
    std::visit(
        [this](const auto& happened) {
          if constexpr (requires { inWords(happened); }) {
            told.push_back(inWords(happened));
          } else {
            note(happened);
          }
        },
        event);
  }
  void buttonWasEnabled(const toolkit::BarButtonItem& button) override {
    told.emplace_back(button.isEnabled() ? "button on" : "button off");
  }
  void buttonWasRemoved() override { told.emplace_back("button removed"); }
  void spinnerWasSwitched(const toolkit::Spinner& spinner) override {
    told.emplace_back(spinner.isAnimating() ? "spinner start" : "spinner stop");
  }
  void refreshWasInstalled() override { told.emplace_back("refresh installed"); }
  void refreshBegan() override { told.emplace_back("refresh began"); }
  void refreshEnded() override { told.emplace_back("refresh ended"); }
  void alertWasPresented(const toolkit::Alert& alert) override {
    told.push_back("alert " + alert.message());
  }
  void alertTextWasEdited(const toolkit::Alert& alert) override {
    told.push_back("alert text " + alert.textFields().front()->text);
  }
  void alertActionWasTapped(const toolkit::Alert& /*alert*/,
                            const toolkit::AlertAction& action) override {
    told.push_back("alert action " + action.title());
  }
  void alertWasDismissed(const toolkit::Alert& alert) override {
    dismissed.push_back(alert.message());
  }
  std::vector<std::string> dismissed;  // alerts

 private:
  static std::string inWords(toolkit::IndexPath path) {
    return " [" + std::to_string(path.section) + "," + std::to_string(path.row) + "]";
  }
  static std::string inWords(const std::vector<toolkit::IndexPath>& rows,
                             toolkit::RowAnimation animation) {
    std::string words;
    for (const toolkit::IndexPath& row : rows) words += inWords(row);
    return words + (static_cast<int>(animation) == 0 ? "" : " (odd animation)");
  }
  static std::string inWords(toolkit::table_event::Reloaded) { return "reload"; }
  static std::string inWords(toolkit::table_event::BatchBegan) { return "begin"; }
  static std::string inWords(toolkit::table_event::BatchEnded) { return "end"; }
  static std::string inWords(const toolkit::table_event::RowsInserted& inserted) {
    return "insert" + inWords(inserted.rows, inserted.animation);
  }
  static std::string inWords(const toolkit::table_event::RowsDeleted& deleted) {
    return "delete" + inWords(deleted.rows, deleted.animation);
  }
  static std::string inWords(const toolkit::table_event::Scrolled& scrolled) {
    return "scroll" + inWords(scrolled.row) + (scrolled.animated ? "" : " at once") +
           (static_cast<int>(scrolled.position) == 0 ? "" : " (odd position)");
  }
  static std::string inWords(const toolkit::table_event::Deselected& deselected) {
    return "deselect" + inWords(deselected.row) + (deselected.animated ? "" : " at once");
  }
  static std::string inWords(toolkit::table_event::AllowsSelectionWasSet set) {
    return set.value ? "selection on" : "selection off";
  }
  static std::string inWords(toolkit::table_event::RemovedFromScreen) { return "table removed"; }
  static std::string inWords(const toolkit::table_event::Repaired& repaired) {
    return "repaired " + std::to_string(repaired.section) + ": " + std::to_string(repaired.before) +
           " - " + std::to_string(repaired.deleted) + " + " + std::to_string(repaired.inserted) +
           ", expected " + std::to_string(repaired.expected);
  }
  void note(toolkit::table_event::RowsWereRead /*read*/) { rows.emplace_back("read"); }
  void note(const toolkit::table_event::RowsChanged& changed) {
    std::string words = "changed";
    for (const auto& [section, changes] : changed.changes) {
      words += " " + std::to_string(section) + ": -" + std::to_string(changes.deleted.size()) +
               " +" + std::to_string(changes.inserted.size());
    }
    rows.push_back(words);
  }
};

// The host's side of a diagnostic's end.
class RecordingHost final : public HxDiagnosticObserver {
 public:
  RecordingHost(EventsRef events, std::shared_ptr<runtime::VirtualTimeRunLoop> queues)
      : events_(std::move(events)), queues_(std::move(queues)) {}

  std::vector<NumberRef> statusCodes;
  std::vector<DictionaryRef> data;
  std::vector<std::chrono::nanoseconds> finishedAt;
  std::vector<bool> finishedOnMainThread;

  void statusCodeWasSet(const NumberRef& statusCode) override {
    events_->add("status code");
    statusCodes.push_back(statusCode);
  }
  void dataWasSet(const DictionaryRef& sections) override {
    events_->add("data");
    data.push_back(sections);
  }
  void finishedWasSet(bool finished) override {
    events_->add(finished ? "finished" : "not finished");
    finishedAt.push_back(queues_->now());
    finishedOnMainThread.push_back(queues_->onMainThread());
  }

 private:
  EventsRef events_;
  std::shared_ptr<runtime::VirtualTimeRunLoop> queues_;
};

}  // namespace wifi_profile
