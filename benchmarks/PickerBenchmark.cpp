// How long the main thread is busy at a stretch while a person uses a list of many networks.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>

#include "benchmarks/ScanListInputs.h"
#include "devices/scenario/ScenarioDevice.h"
#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/DiagnosticLog.h"
#include "diagnostic/platform/DiagnosticsSupport.h"
#include "diagnostic/platform/toolkit/Alert.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/IcuNameCollator.h"
#include "runtime/Iso8601Formatter.h"
#include "runtime/NoScreen.h"
#include "runtime/VirtualTimeRunLoop.h"

namespace wifi_profile {
namespace {

using Clock = std::chrono::steady_clock;

// Virtual time, with a stopwatch on every piece of work of the main queue.
class TimedQueues final : public WorkQueues {
 public:
  void postToMain(Work work) override {
    loop.postToMain([this, work = std::move(work)] { time(work); });
  }
  void postToGlobal(Work work) override { loop.postToGlobal(std::move(work)); }
  void postToGlobalAfter(std::chrono::nanoseconds delay, Work work) override {
    loop.postToGlobalAfter(delay, std::move(work));
  }
  void runOnGlobalAndWait(const Work& work) override { loop.runOnGlobalAndWait(work); }
  bool onMainThread() const override { return loop.onMainThread(); }

  void time(const Work& work) {
    const auto before = Clock::now();
    work();
    longest = std::max(longest, Clock::now() - before);
  }

  runtime::VirtualTimeRunLoop loop;
  Clock::duration longest{0};
};

// Answers every scan with the next of a sequence of lists, the last one again and again.
class Scans final : public VqClient {
 public:
  explicit Scans(std::vector<ArrayRef> lists) : lists_(std::move(lists)) {}

  DiagnosticsTestResults runDiagnosticsTests(const VqDiagnosticsTestRequests& /*requests*/,
                                             const VqPeer* /*peer*/, const VqTestUpdate& /*update*/,
                                             VqErrorRef& /*error*/) override {
    const ArrayRef list = lists_[std::min(next_++, lists_.size() - 1)];
    return std::vector{std::make_shared<const DiagnosticsTestResult>(
        DiagnosticsTestResult{true, true, makeDictionary({{"ScanResults", list}})})};
  }
  std::shared_ptr<const VqStatus> queryStatusForPeer(const VqPeer* /*peer*/,
                                                     VqErrorRef& /*error*/) override {
    return std::make_shared<const VqStatus>();
  }
  void cancelAllRequests() override {}

 private:
  std::vector<ArrayRef> lists_;
  std::size_t next_ = 0;
};

class Quiet final : public DiagnosticLog {
 public:
  bool isEnabled(int /*category*/, LogLevel /*level*/) const override { return false; }
  void write(int /*category*/, LogLevel /*level*/, const std::string& /*text*/) override {}
};

// A picker with everything that it needs, and a person.
class Picker {
 public:
  explicit Picker(std::vector<ArrayRef> lists)
      : device_(scenario_, queues_->loop), service_(std::make_shared<Scans>(std::move(lists))) {
    const auto inputs = std::make_shared<WiFiProfileInputs>();
    inputs->validateAndInitializeParameters(
        makeDictionary({{"maxScanCacheAge", Number::withUnsigned(60)},
                        {"reprofileWithUI", Number::withBool(true)}}));
    controller_->setupWithInputs(inputs, nullptr);
  }

  // One piece of work on the main thread, and all that comes of it.
  template <class Action>
  void perform(Action action) {
    queues_->postToMain([&] { action(*controller_); });
    queues_->loop.runUntilIdle();
  }

  double longestInMilliseconds() const {
    return std::chrono::duration<double, std::milli>(queues_->longest).count();
  }

 private:
  scenario::Scenario scenario_;
  std::shared_ptr<TimedQueues> queues_ = std::make_shared<TimedQueues>();
  scenario::ScenarioDevice device_;
  std::shared_ptr<Scans> service_;
  runtime::Iso8601Formatter dates_;
  Quiet log_;
  runtime::BuiltInStringTable texts_{"en"};
  runtime::IcuNameCollator collator_{"en"};
  runtime::NoScreen screen_;
  const InstalledPlatform platform_{{.queues = queues_.get(),
                                     .service = service_.get(),
                                     .wifiManager = device_.radio.get(),
                                     .capability = device_.capability.get(),
                                     .automation = device_.automation.get(),
                                     .dates = &dates_,
                                     .log = &log_,
                                     .texts = &texts_,
                                     .collator = &collator_,
                                     .screen = &screen_}};
  std::shared_ptr<WiFiProfileViewController> controller_ =
      std::make_shared<WiFiProfileViewController>();
};

using Controller = WiFiProfileViewController;

void tapRow(Controller& controller, std::int64_t row) { controller.tableView()->tap({1, row}); }

// The first list, a rescan with a fifth of the names changed, an unchanged rescan, two choices from
// the list and one by name. `longest_ms` is the longest stretch of the main thread in all of them.
void mainThreadAtAStretch(benchmark::State& state) {
  Neighbourhood air(static_cast<std::size_t>(state.range(0)), 1);
  std::vector<ArrayRef> lists{air.scan()};
  air.change();
  lists.push_back(air.scan());
  lists.push_back(air.scan());
  double longest = 0;
  for (auto _ : state) {
    Picker picker(lists);
    picker.perform([](Controller& controller) {
      controller.start();
      controller.appear();
    });
    for (int pull = 0; pull < 2; ++pull) {
      picker.perform([](Controller& controller) { controller.refreshControl()->pull(); });
    }
    picker.perform([](Controller& controller) { tapRow(controller, 0); });
    picker.perform(
        [](Controller& controller) { tapRow(controller, controller.networksOffset() / 2); });
    picker.perform([](Controller& controller) {
      tapRow(controller, controller.networksOffset() - 1);
      controller.presentedAlert()->type("Kellerkneipe");
      controller.presentedAlert()->tap(*controller.presentedAlert()->actions().back());
    });
    longest = std::max(longest, picker.longestInMilliseconds());
  }
  state.counters["longest_ms"] = longest;
}

BENCHMARK(mainThreadAtAStretch)->Arg(100)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace wifi_profile
