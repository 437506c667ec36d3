#include "simulation/Stage.h"

#include "diagnostic/controller/StatusCodes.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/Iso8601Formatter.h"
#include "support/FoldingCollator.h"

namespace wifi_profile::simulation {
namespace {

class NoLog final : public DiagnosticLog {
 public:
  explicit NoLog(History& history) : history_(history) {}
  bool isEnabled(int /*category*/, LogLevel /*level*/) const override { return true; }
  void write(int /*category*/, LogLevel /*level*/, const std::string& text) override {
    history_.note([&] { return "log: " + text; });
  }

 private:
  History& history_;
};

class NoAutomation final : public HsTestAutomation {
 public:
  bool testAutomationEnabled() const override { return false; }

 protected:
  void receiveConfiguration(const DictionaryRef& /*configuration*/) override {}
};

class SimulatedCapability final : public DeviceCapability {
 public:
  explicit SimulatedCapability(int answer) : answer_(answer) {}
  int boolAnswer(std::string_view /*key*/) override { return answer_; }

 private:
  const int answer_;
};

std::shared_ptr<WiFiProfileInputs> makeInputs(const World& world) {
  Dictionary::Entries parameters{{"maxScanCacheAge", Number::withInteger(30)},
                                 {"reprofileWithUI", Number::withBool(world.list)}};
  if (world.name) parameters.emplace("networkName", makeText(*world.name));
  auto inputs = std::make_shared<WiFiProfileInputs>();
  inputs->validateAndInitializeParameters(makeDictionary(std::move(parameters)));
  return inputs;
}

const std::set<std::int32_t> kTestsOfRuns = {11, 27, 40, 56};
const std::atomic<bool> kNeverStopped = false;
constexpr int kMostStepsToTheEnd = 12;

}  // namespace

struct Stage::Surroundings {
  explicit Surroundings(const Stage& stage)
      : capability(stage.world_.capability),
        log(stage.history_),
        platform({.queues = stage.queues_.get(),
                  .service = stage.service_.get(),
                  .wifiManager = stage.radio_.get(),
                  .capability = &capability,
                  .automation = &automation,
                  .dates = &dates,
                  .log = &log,
                  .texts = &texts,
                  .collator = &collator,
                  .screen = stage.screen_.get()}) {}
  SimulatedCapability capability;
  NoAutomation automation;
  runtime::Iso8601Formatter dates;
  NoLog log;
  runtime::BuiltInStringTable texts{runtime::kKeysLanguage};
  FoldingCollator collator;
  const InstalledPlatform platform;
};

Stage::Stage(World& world, runtime::RunLoop& loop, History& history, bool ordered)
    : world_(world),
      loop_(loop),
      history_(history),
      ordered_(ordered),
      queues_(std::make_shared<WatchedQueues>(loop, world.timeDivisor())),
      service_(std::make_shared<SimulatedService>(world, loop, history)),
      radio_(std::make_shared<SimulatedRadio>(world, *queues_, history)),
      list_(history),
      screen_(std::make_shared<WatchingScreen>(history, list_)),
      host_(std::make_shared<HostWatch>(history, *radio_)),
      user_(world, history),
      surroundings_(std::make_unique<Surroundings>(*this)) {
  user_.intentions = {.choose = [this] { screen_->choiceComes(); },
                      .decline = [this] { host_->expectEnd({kStatusPowerOnDeclined}); },
                      .startTheTests = [this] { host_->expectEnd(kCodesOfTests); }};
  // As the host does that is told that a run is over.
  host_->whenFinished = [this] { queues_->postToMain([this] { tearDown(); }); };
  radio_->whenToBeNotified = [this](bool on) {
    if (!on) host_->expectEnd({kStatusWiFiSwitchedOff});
  };
  radio_->whenNotified = [this](bool on) {
    if (on) screen_->displayBegan();
  };
  // Whoever acts now does so between the end of a scan and the work that shows its list.
  service_->whenAnswering = [this] {
    if (world_.random.oneIn(12)) queues_->postToMain([this] { takeStep(); });
  };
  if (!ordered_) {
    screen_->checkNothing();
    return;
  }
  queues_->afterMainWork = [this] { checkAfterWork(true); };
  queues_->afterGlobalWork = [this] { checkAfterWork(false); };
  service_->whenScanBegins = [this] {
    if (const auto controller = anyController_.lock()) list_.scanBegins(*controller);
  };
}

Stage::~Stage() = default;

void Stage::play() {
  controller_ = std::make_shared<WiFiProfileViewController>();
  anyController_ = controller_;
  radio_->expectListener(anyController_);
  controller_->setObserver(host_);
  screen_->watch(controller_.get());
  queues_->postToMain([this] { start(); });
  loop_.postToGlobal([this] { takeSteps(); });
  loop_.runUntilIdle();
  for (int i = 0; i < kMostStepsToTheEnd && controller_ && !tornDown_; ++i) {
    queues_->postToMain([this] { bringAboutTheEnd(); });
    loop_.runUntilIdle();
  }
  checkTestsWereRun();
  queues_->postToMain([this] {
    if (!tornDown_ && controller_) {
      host_->checkAtRest();
      tearDown();
    }
    dropController();
  });
  loop_.runUntilIdle();
  checkAtRest();
}

void Stage::start() {
  history_.note(
      [&] { return std::string("host: start, ") + (world_.list ? "with a list" : "without"); });
  if (!world_.list) host_->expectEnd(kCodesOfTests);
  if (world_.list && (!world_.hasRadio || !world_.makesManager)) {
    host_->expectEnd({kStatusNoWiFiManager});
  } else if (world_.list && (!world_.makesDeviceList || world_.devices == 0)) {
    host_->expectEnd({kStatusNoWiFiDevice});
  } else if (world_.list && world_.powerAtStart) {
    screen_->displayBegan();
  }
  controller_->setupWithInputs(makeInputs(world_), nullptr);
  controller_->start();
  controller_->appear();
  if (controller_->tableView()) screen_->tableAppeared();
}

// On a thread of its own, so that it waits like everybody else.
void Stage::takeSteps() {
  for (std::size_t i = 0; i < world_.steps; ++i) {
    loop_.pause(world_.someTime(1500), kNeverStopped);
    queues_->postToMain([this] { takeStep(); });
    if (world_.random.oneIn(2)) loop_.waitForMain();
  }
}

void Stage::takeStep() {
  Random& random = world_.random;
  if (world_.moves && random.oneIn(6)) {
    history_.note([] { return "world: another access point is joined, or none"; });
    return world_.move();
  }
  if (world_.touchesRadio && random.oneIn(8)) {
    const bool on = !random.oneIn(4);
    history_.note([on] { return std::string("world: the radio goes ") + (on ? "on" : "off"); });
    return radio_->switchFromOutside(on);
  }
  if (!controller_) return;
  if (world_.tearsDown && random.oneIn(10)) return tearDown();
  if (world_.dropsController && random.oneIn(10)) return dropController();
  user_.act(*controller_);
}

void Stage::bringAboutTheEnd() {
  if (!controller_ || tornDown_ || user_.bringAboutTheEnd(*controller_)) return;
  host_->checkAtRest();
  tearDown();
}

void Stage::tearDown() {
  if (!controller_ || std::exchange(tornDown_, true)) return;
  history_.note([] { return "host: teardown"; });
  controller_->teardown();
  history_.require(!ordered_ || !radio_->ownsAnything(),
                   [] { return "a run was torn down and owns handles"; });
}

// A host may forget about a run without tearing it down.
void Stage::dropController() {
  if (!controller_) return;
  history_.note([] { return "host: drops the controller"; });
  controller_->disappear();
  controller_->setObserver(nullptr);
  controller_ = nullptr;
}

void Stage::checkAfterWork(bool onMain) {
  const auto controller = anyController_.lock();
  if (!controller) {
    screen_->watch(nullptr);
    return;
  }
  if (!controller->inputs()) return;
  list_.check(*controller, screen_->displaysAreUnderWay(), screen_->refreshesAreUnderWay());
  if (onMain) screen_->checkAfterWork();
  checkProgress(*controller);
}

void Stage::checkProgress(const WiFiProfileViewController& controller) {
  const std::int32_t completed = controller.completedTests();
  const std::int32_t total = controller.totalTests();
  history_.require(completed >= 0 && completed <= total, [&] {
    return std::to_string(completed) + " of " + std::to_string(total) + " tests are done";
  });
}

void Stage::checkTestsWereRun() {
  if (!controller_ || !host_->saysThatTestsWereRun()) return;
  const std::int32_t completed = controller_->completedTests();
  const std::int32_t total = controller_->totalTests();
  history_.require(completed == total && kTestsOfRuns.contains(total), [&] {
    return std::to_string(completed) + " of " + std::to_string(total) + " tests were run";
  });
}

void Stage::checkAtRest() {
  history_.require(!anyController_.lock(), [] { return "the controller outlives its run"; });
  history_.require(!tornDown_ || !radio_->ownsAnything(),
                   [] { return "handles are left when everything is over"; });
  history_.require(
      !ordered_ || !(screen_->displaysAreUnderWay() || screen_->refreshesAreUnderWay()),
      [] { return "a scan was not shown"; });
  history_.require(!ordered_ || tornDown_ || !host_->hasFinished(),
                   [] { return "a run has finished and was not torn down"; });
}

}  // namespace wifi_profile::simulation
