#include "app/cli/DiagnosticRun.h"

#include "app/cli/Console.h"
#include "app/cli/EmptyList.h"
#include "app/cli/LogLines.h"
#include "app/cli/ScreenState.h"
#include "app/cli/TracingScreen.h"
#include "app/cli/UserActions.h"
#include "diagnostic/tests/Catalogue.h"
#include "runtime/Iso8601Formatter.h"
#include "runtime/NoScreen.h"

namespace wifi_profile::cli {
namespace {

// Returns a copy of the section in its present state.
ObjectRef copyOf(const ObjectRef& section) {
  const auto dictionary = as<Dictionary>(section);
  return dictionary ? makeDictionary(dictionary->entries()) : nullPlaceholder();
}

DictionaryRef copyOfSections(const DictionaryRef& data) {
  Dictionary::Entries sections = data->entries();
  for (auto& [key, section] : sections) section = copyOf(section);
  return makeDictionary(std::move(sections));
}

std::shared_ptr<toolkit::Screen> screenOf(const Surroundings& surroundings) {
  std::shared_ptr<toolkit::Screen> screen = surroundings.person;
  if (!screen) screen = std::make_shared<runtime::NoScreen>();
  Trace* const trace = InstalledPlatform::find(&Platform::trace);
  if (trace) screen = std::make_shared<TracingScreen>(std::move(screen), *trace);
  return screen;
}

}  // namespace

struct DiagnosticRun::Installations {
  Installations(const devices::DeviceBackEnds& device, const Surroundings& surroundings,
                RunObserver& observer)
      : log(surroundings.line),
        screen(screenOf(surroundings)),
        platform({.queues = &surroundings.loop,
                  .service = device.service.get(),
                  .wifiManager = device.radio.get(),
                  .capability = device.capability.get(),
                  .automation = device.automation.get(),
                  .dates = &dates,
                  .log = &log,
                  .texts = &surroundings.texts,
                  .collator = &surroundings.collator,
                  .screen = screen.get(),
                  .observer = &observer}) {}
  runtime::Iso8601Formatter dates;
  LogLines log;
  const std::shared_ptr<toolkit::Screen> screen;
  const InstalledPlatform platform;
};

DiagnosticRun::DiagnosticRun(std::unique_ptr<RunDevice> device,
                             std::shared_ptr<WiFiProfileInputs> inputs, Surroundings surroundings)
    : surroundings_(std::move(surroundings)),
      device_(std::move(device)),
      backEnds_(device_->backEnds()),
      installations_(std::make_unique<Installations>(backEnds_, surroundings_, *this)),
      inputs_(std::move(inputs)),
      controller_(std::make_shared<WiFiProfileViewController>()),
      script_(device_->userSteps(), surroundings_.person ? ScreenUser::person : ScreenUser::script,
              [this](const scenario::Step& step) { return perform(step); }) {
  device_->setWhileServing([this](DiagnosticsTestID test) { whileServing(test); });
}

DiagnosticRun::~DiagnosticRun() = default;

Ending DiagnosticRun::run() {
  runtime::RunLoop& loop = surroundings_.loop;
  controller_->setObserver(shared_from_this());
  loop.postToMain([this] { start(); });
  loop.runUntilIdle();
  while (!isOver() && (script_.hasIdleStep() || surroundings_.person)) {
    if (surroundings_.person) showEmptyList();
    if (script_.hasIdleStep()) {
      traceEvent("screen", [this] { return screenState(*controller_); });
      loop.postToMain([this] { script_.performNextStep(); });
    } else {
      surroundings_.person->mainQueue()->handleNext();
    }
    loop.runUntilIdle();
  }
  if (!isOver()) {
    loop.postToMain([this] {
      if (isOver()) return;
      stuck_ = true;
      tearDown();
    });
    loop.runUntilIdle();
  }
  traceEvent("screen", [this] { return screenState(*controller_); });
  controller_->disappear();
  controller_->setObserver(nullptr);
  const MutexLock lock(mutex_);
  if (stuck_ || !script_.status()) return Ending::stuck;
  if (finishedRun_) return Ending::finished;
  return interrupted_ ? Ending::interrupted : Ending::tornDown;
}

void DiagnosticRun::start() {
  if (isOver()) return;  // interrupted before the run began
  traceEvent("host.setup");
  controller_->setupWithInputs(inputs_, nullptr);
  traceEvent("host.start");
  controller_->start();
  controller_->appear();
  if (surroundings_.person) surroundings_.person->show(controller_, [this] { endEarly(); });
}

void DiagnosticRun::statusWasQueried(const std::optional<Error>& error) {
  collector_.statusWasQueried(error);
}

void DiagnosticRun::testStarted(Section section, DiagnosticsTestID test) {
  collector_.testStarted(section, test);
  const std::string_view label = catalogueTest(test).label;
  surroundings_.line.showActivity(label);
  showTests([label](app::TestsDone& tests) {
    if (tests.done < tests.total) tests.running = label;
  });
}

void DiagnosticRun::testEnded(const TestOutcome& outcome) {
  collector_.testEnded(outcome);
  if (outcome.test == DiagnosticsTestID::NoScanResults) latestScan_.set(outcome);
}

void DiagnosticRun::progressed(std::int32_t done, std::int32_t total) {
  surroundings_.line.showProgress(static_cast<double>(done) / total);
  showTests([done, total](app::TestsDone& tests) {
    tests.done = done;
    tests.total = total;
    if (done == total) tests.running.clear();
  });
}

void DiagnosticRun::personDid(PersonAction action) {
  if (!surroundings_.person) return;
  script_.personDid(action);
  surroundings_.loop.postToMain([] {});  // wakes the main thread for the script's next step
}

void DiagnosticRun::runEnded() { collector_.runEnded(); }

// Changes the counts and shows them, on the main thread, unless the run is over.
void DiagnosticRun::showTests(std::function<void(app::TestsDone&)> change) {
  if (!surroundings_.person) return;
  surroundings_.loop.postToMain([self = shared_from_this(), change = std::move(change)] {
    if (self->isOver()) return;
    change(self->tests_);
    self->surroundings_.person->showTests(self->tests_);
  });
}

void DiagnosticRun::showEmptyList() {
  app::EmptyList state =
      emptyListOf(*controller_, latestScan_(), backEnds_.radio->powerOnFailure());
  if (!controller_->wifiPoweredOn() && !controller_->presentedAlert()) {
    state.askForPower = [weak = weak_from_this()] {
      if (const auto self = weak.lock()) self->askForPower();
    };
  }
  const bool asks = state.askForPower != nullptr;
  const bool asked = shownEmptyList_.askForPower != nullptr;
  if (state.why == shownEmptyList_.why && state.reason == shownEmptyList_.reason && asks == asked) {
    return;
  }
  shownEmptyList_ = state;
  surroundings_.person->showEmptyList(std::move(state));
}

void DiagnosticRun::askForPower() {
  if (isOver() || controller_->wifiPoweredOn() || controller_->presentedAlert()) return;
  controller_->presentWiFiPoweredOffAlert();
}

void DiagnosticRun::tearDown() {
  {
    const MutexLock lock(mutex_);
    tornDown_ = true;
  }
  script_.end();
  traceEvent("host.teardown");
  device_->close();  // before the teardown's cancel lets pending requests continue
  controller_->teardown();
}

bool DiagnosticRun::isOver() const {
  const MutexLock lock(mutex_);
  return tornDown_ || finishedRun_;
}

void DiagnosticRun::interrupt() {
  // Without this, a script's wait would delay the teardown on the main thread.
  interrupted_ = true;
  endEarly();
}

void DiagnosticRun::endEarly() {
  surroundings_.loop.cutPauses();
  surroundings_.loop.postToMain([self = shared_from_this()] {
    if (!self->isOver()) self->tearDown();
    self->surroundings_.loop.hurry();  // after the teardown, which cancels requests that wait
  });
}

std::string DiagnosticRun::reason() const {
  const Status status = script_.status();
  return status ? script_.reasonForBeingStuck() : textOf(status.error());
}

void DiagnosticRun::whileServing(DiagnosticsTestID test) {
  if (!script_.hasStepDuring(test)) return;
  surroundings_.loop.postToMain([this, test] {
    if (!script_.hasStepDuring(test)) return;
    script_.performNextStep();
    if (script_.status()) return;
    surroundings_.loop.hurry();
    tearDown();
  });
  // The answer must come after the work that the step posts (such as a power notification) and
  // after the work that this work posts (such as the host's teardown).
  for (int round = 0; round < 3; ++round) surroundings_.loop.waitForMain();
}

Status DiagnosticRun::perform(const scenario::Step& step) {
  switch (step.action) {
    case scenario::Action::setPower:
      device_->switchPower(step.on);
      return {};
    case scenario::Action::wait:
      if (surroundings_.person) {
        surroundings_.loop.postToGlobalAfter(step.time, [] {});  // the screen stays responsive
      } else {
        surroundings_.loop.pause(step.time, interrupted_);
      }
      return {};
    case scenario::Action::teardown:
      tearDown();
      return {};
    default:
      return performOnScreen(*controller_, step);
  }
}

void DiagnosticRun::statusCodeWasSet(const NumberRef& statusCode) {
  traceEvent("host.statusCode", [&] { return Trace::Fields{{"value", statusCode}}; });
}

void DiagnosticRun::dataWasSet(const DictionaryRef& data) {
  traceEvent("host.data", [&] { return Trace::Fields{{"value", data}}; });
}

void DiagnosticRun::finishedWasSet(bool finished) {
  traceEvent("host.finished", [&] { return Trace::Fields{{"value", Number::withBool(finished)}}; });
  if (!finished) return;
  script_.end();
  {
    const MutexLock lock(mutex_);
    if (finishedRun_ || tornDown_) return;
    finishedRun_ = report::FinishedRun{
        .statusCode = std::get<std::int64_t>(controller_->result().statusCode()->value()),
        .plan = controller_->runPlan(),
        .site = device_->site(),
        .collected = collector_.collected(),
    };
    data_ = copyOfSections(controller_->result().data());
  }
  surroundings_.loop.postToMain([this] { tearDown(); });
}

}  // namespace wifi_profile::cli
