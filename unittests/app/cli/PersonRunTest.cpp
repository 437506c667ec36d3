// Runs with a person at the screen: a person made of code, who acts when a condition holds.

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mutex>

#include "app/Content.h"
#include "app/cli/ScenarioRun.h"
#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "runtime/NoScreen.h"
#include "runtime/ThreadRunLoop.h"

namespace wifi_profile::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// Does one thing when it can be done, and says whether it has.
using Deed = std::function<bool(toolkit::ViewController&)>;

// A queue that lets a person act whenever there is no work at hand.
class PersonsQueue final : public runtime::MainQueue {
 public:
  std::function<bool()> act = [] { return false; };

  void post(Work work) override {
    {
      const std::lock_guard lock(mutex_);
      works_.push_back(std::move(work));
    }
    came_.notify_one();
  }
  void handleNext() override {
    std::unique_lock lock(mutex_);
    while (works_.empty()) {
      lock.unlock();
      if (act()) return;
      lock.lock();
      came_.wait_for(lock, std::chrono::milliseconds(1), [&] { return !works_.empty(); });
    }
    Work work = std::move(works_.front());
    works_.pop_front();
    lock.unlock();
    work();
  }

 private:
  std::mutex mutex_;
  std::condition_variable came_;
  std::deque<Work> works_;
};

class FakePerson final : public app::PersonScreen {
 public:
  explicit FakePerson(std::vector<Deed> deeds) : deeds_(std::move(deeds)) {
    queue_->act = [this] {
      if (!controller_ || next_ == deeds_.size() || !deeds_[next_](*controller_)) return false;
      ++next_;
      return true;
    };
  }

  std::vector<app::TestsDone> tests;
  std::vector<app::EmptyList> emptyLists;
  std::function<void()> askedToStop;

  std::shared_ptr<runtime::MainQueue> mainQueue() const override { return queue_; }
  void show(std::shared_ptr<toolkit::ViewController> controller,
            std::function<void()> askedToEnd) override {
    controller_ = std::move(controller);
    askedToStop = std::move(askedToEnd);
  }
  void showTests(const app::TestsDone& done) override { tests.push_back(done); }
  void showEmptyList(app::EmptyList state) override { emptyLists.push_back(std::move(state)); }
  void showReport(report::Report /*report*/) override {}
  void close() override {}
  bool isClosed() const override { return true; }
  void abandon() override {}

  toolkit::Size size() const override { return none_->size(); }
  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override {
    none_->needsLayout(controller);
  }

 private:
  std::shared_ptr<PersonsQueue> queue_ = std::make_shared<PersonsQueue>();
  std::shared_ptr<runtime::NoScreen> none_ = std::make_shared<runtime::NoScreen>();
  std::vector<Deed> deeds_;
  std::size_t next_ = 0;
  std::shared_ptr<toolkit::ViewController> controller_;
};

ScenarioResult runWithPerson(const std::string& file, const std::shared_ptr<FakePerson>& person,
                             bool pick = true) {
  runtime::ThreadRunLoop loop(person->mainQueue());
  Wish wish;
  wish.pick = pick;
  wish.person = person;
  return runScenario(projectFile(file), loop, wish);
}

bool isOnScreen(const std::shared_ptr<toolkit::TableView>& table) {
  return table && table->allowsSelection();
}

// Once the list is complete.
Deed tapRow(std::int64_t row) {
  return [row](toolkit::ViewController& controller) {
    const auto table = app::contentOf(*controller.view()).table;
    if (!isOnScreen(table) || !table->refreshControl() || !table->canTap({1, row})) return false;
    table->tap({1, row});
    return true;
  };
}

Deed tapNext() {
  return [](toolkit::ViewController& controller) {
    const auto item = app::contentOf(*controller.view()).item;
    const auto button = item ? item->rightBarButtonItem() : nullptr;
    if (!button || !button->isEnabled()) return false;
    button->tap();
    return true;
  };
}

TEST(PersonRun, ReachesItsRecordByWhatThePersonDoes) {
  const auto person = std::make_shared<FakePerson>(std::vector<Deed>{tapRow(0), tapNext()});
  const auto result = runWithPerson("scenarios/pick-another.json", person);
  EXPECT_EQ(result.ending, cli::Ending::finished);
  EXPECT_THAT(result.trace, HasSubstr(R"("op":"deselect","row":[1,0])"));
  EXPECT_THAT(result.record, HasSubstr("\"selectedNetwork\""));
}

TEST(PersonRun, TellsThePersonHowFarTheTestsAre) {
  const auto person = std::make_shared<FakePerson>(std::vector<Deed>{});
  EXPECT_EQ(runWithPerson("scenarios/healthy-office.json", person, false).ending,
            cli::Ending::finished);
  ASSERT_FALSE(person->tests.empty());
  const app::TestsDone& last = person->tests.back();
  EXPECT_GT(last.total, 0);
  EXPECT_EQ(last.done, last.total);
  EXPECT_TRUE(std::ranges::is_sorted(person->tests, {}, &app::TestsDone::done));
  EXPECT_FALSE(std::ranges::find(person->tests, 1, &app::TestsDone::done)->running.empty());
  EXPECT_EQ(last.running, "");
}

TEST(PersonRun, IsTornDownWhenThePersonAsksForIt) {
  std::shared_ptr<FakePerson> person;
  person = std::make_shared<FakePerson>(std::vector<Deed>{[&](toolkit::ViewController&) {
    person->askedToStop();
    return true;
  }});
  const auto result = runWithPerson("scenarios/pick-another.json", person);
  EXPECT_EQ(result.ending, cli::Ending::tornDown);
  EXPECT_THAT(result.trace, HasSubstr("host.teardown"));
}

// The script of that scenario chooses a network and then switches the radio off.
TEST(PersonRun, LeavesTheWorldToTheScriptAndTheScreenToThePerson) {
  const auto person = std::make_shared<FakePerson>(std::vector<Deed>{tapRow(0)});
  const auto result = runWithPerson("scenarios/pick-radio-lost-in-list.json", person);
  EXPECT_EQ(result.ending, cli::Ending::finished);
  EXPECT_THAT(result.record, HasSubstr("\"statusCode\":-5"));
}

TEST(PersonRun, WaitsForThePersonBeforeTheWorldGoesOn) {
  const auto person = std::make_shared<FakePerson>(
      std::vector<Deed>{[&, waited = 0](toolkit::ViewController& controller) mutable {
                          EXPECT_NE(app::contentOf(*controller.view()).table, nullptr);
                          return ++waited == 100;  // in idle moments
                        },
                        tapRow(0)});
  const auto result = runWithPerson("scenarios/pick-radio-lost-in-list.json", person);
  const auto tap = result.trace.find(R"("op":"deselect")");
  EXPECT_LT(tap, result.trace.find("device.power"));
}

// --- What there is to say of an empty list

// A run on a device with these answers and no script, which ends when the deeds are done.
std::shared_ptr<FakePerson> personOfEmptyList(const std::string& device, const std::string& answers,
                                              std::vector<Deed> deeds = {}) {
  std::shared_ptr<FakePerson> person;
  // Once the screen was told why the list is empty.
  deeds.push_back([&person](toolkit::ViewController&) {
    if (person->emptyLists.empty()) return false;
    if (person->emptyLists.back().why == app::EmptyList::Why::notKnownYet) return false;
    person->askedToStop();
    return true;
  });
  person = std::make_shared<FakePerson>(std::move(deeds));
  runtime::ThreadRunLoop loop(person->mainQueue());
  Wish wish;
  wish.pick = true;
  wish.person = person;
  runScenario(R"({"scenario":1,"status":[{"ssid":"Home","bssid":"02:01"}],"device":)" + device +
                  R"(,"answers":{"NoScanResults":[)" + answers + "]}}",
              loop, wish);
  return person;
}

TEST(EmptyListOfARun, HasNoNetworksInRange) {
  const auto person =
      personOfEmptyList("{}", R"({"result":true,"didPass":true,"info":{"ScanResults":[]}})");
  EXPECT_EQ(person->emptyLists.back().why, app::EmptyList::Why::noneInRange);
}

TEST(EmptyListOfARun, HasTheOwnNetworkInRangeOnly) {
  const auto person = personOfEmptyList("{}", R"({"result":true,"didPass":true,"info":
      {"ScanResults":[{"ssid":"Home","bssid":"02:01","rssi":-40}]}})");
  EXPECT_EQ(person->emptyLists.back().why, app::EmptyList::Why::noOtherInRange);
}

TEST(EmptyListOfARun, HasHiddenNetworksInRangeOnly) {
  const auto person = personOfEmptyList("{}", R"({"result":true,"didPass":true,"info":
      {"ScanResults":[{"ssid":null,"bssid":"02:02","rssi":-40}]}})");
  EXPECT_EQ(person->emptyLists.back().why, app::EmptyList::Why::onlyHiddenInRange);
}

TEST(EmptyListOfARun, HasTheReasonOfAFailedScan) {
  const auto person =
      personOfEmptyList("{}", R"({"error":{"code":5,"description":"radio asleep"}})");
  EXPECT_EQ(person->emptyLists.back().why, app::EmptyList::Why::scanFailed);
  EXPECT_EQ(person->emptyLists.back().reason, "radio asleep");
  EXPECT_EQ(person->emptyLists.back().askForPower, nullptr);
}

TEST(EmptyListOfARun, HasARadioThatIsOff) {
  const auto person = personOfEmptyList(R"({"power":false})", "");
  EXPECT_EQ(person->emptyLists.back().why, app::EmptyList::Why::radioOff);
  EXPECT_EQ(person->emptyLists.back().askForPower, nullptr);  // it is being asked
}

TEST(EmptyListOfARun, HasTheReasonWhyTheRadioStaysOffAndAsksAgain) {
  std::shared_ptr<FakePerson> person;
  int questions = 0;
  const auto yes = [&questions](toolkit::ViewController& controller) {
    const auto alert = controller.presentedAlert();
    if (!alert) return false;
    EXPECT_EQ(alert->message(), "POWER_ON_WIFI");
    ++questions;
    alert->tap(*alert->actions().back());
    return true;
  };
  const auto again = [&person](toolkit::ViewController& controller) {
    if (controller.presentedAlert() || person->emptyLists.empty()) return false;
    const app::EmptyList& state = person->emptyLists.back();
    if (!state.askForPower) return false;
    EXPECT_EQ(state.why, app::EmptyList::Why::powerOnFailed);
    EXPECT_THAT(state.reason, HasSubstr("powerOnSucceeds"));
    const auto ask = state.askForPower;
    ask();
    ask();  // once is enough
    return true;
  };
  const auto stop = [&person](toolkit::ViewController&) {
    person->askedToStop();
    return true;
  };
  person = std::make_shared<FakePerson>(std::vector<Deed>{yes, again, yes, again, stop});
  runtime::ThreadRunLoop loop(person->mainQueue());
  Wish wish;
  wish.pick = true;
  wish.person = person;
  const auto result =
      runScenario(R"({"scenario":1,"device":{"power":false,"powerOnSucceeds":false}})", loop, wish);
  EXPECT_EQ(result.ending, cli::Ending::tornDown);
  EXPECT_EQ(questions, 2);
  EXPECT_FALSE(person->emptyLists.empty());
}

}  // namespace
}  // namespace wifi_profile::testing
