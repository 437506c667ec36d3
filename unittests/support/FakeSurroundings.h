// The smaller things of the platform, as fakes that record what they were told.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/DeviceCapability.h"
#include "platform/DiagnosticLog.h"
#include "platform/DiagnosticsSupport.h"
#include "platform/HostFramework.h"
#include "platform/NameCollator.h"
#include "platform/toolkit/ProgressView.h"
#include "runtime/VirtualTimeRunLoop.h"
#include "screens/none/NoScreen.h"
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

// Folds ASCII letters; counts the keys it was asked for.
class FakeCollator final : public NameCollator {
 public:
  mutable std::atomic<int> keys = 0;
  void appendSortKey(std::string_view name, std::string& key) const override {
    ++keys;
    for (const char c : name) key += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
};

// Grants layout passes as any host that draws nothing does.
class RecordingScreen final : public NoScreen {
 public:
  struct AddedConstraint {
    const toolkit::View* holder;
    toolkit::LayoutConstraint constraint;
  };

  std::size_t layoutsWanted = 0;
  std::vector<AddedConstraint> constraints;
  std::vector<float> progress;
  std::function<void()> whenProgressWasSet = [] {};

  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override {
    ++layoutsWanted;
    NoScreen::needsLayout(controller);
  }
  void constraintWasAdded(const toolkit::View& holder,
                          const toolkit::LayoutConstraint& constraint) override {
    constraints.push_back({&holder, constraint});
  }
  void progressWasSet(const toolkit::ProgressView& progressView) override {
    progress.push_back(progressView.progress());
    whenProgressWasSet();
  }
};

// The host's side of a diagnostic's end.
class RecordingHost final : public HxDiagnosticObserver {
 public:
  RecordingHost(EventsRef events, std::shared_ptr<VirtualTimeRunLoop> queues)
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
  std::shared_ptr<VirtualTimeRunLoop> queues_;
};

}  // namespace wifi_profile
