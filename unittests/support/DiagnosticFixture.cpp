#include "support/DiagnosticFixture.h"

namespace wifi_profile {

std::shared_ptr<WiFiProfileInputs> makeInputs(const TextRef& name, bool list) {
  Dictionary::Entries parameters{{"maxScanCacheAge", Number::withInteger(30)},
                                 {"reprofileWithUI", Number::withBool(list)}};
  if (name) parameters.emplace("networkName", name);
  auto inputs = std::make_shared<WiFiProfileInputs>();
  EXPECT_TRUE(inputs->validateAndInitializeParameters(makeDictionary(std::move(parameters))));
  return inputs;
}

DiagnosticFixture::DiagnosticFixture()
    : events(std::make_shared<Events>()),
      queues(std::make_shared<runtime::VirtualTimeRunLoop>()),
      service(std::make_shared<FakeService>(events)),
      log(std::make_shared<RecordingLog>()),
      automation(std::make_shared<FakeAutomation>()),
      capability(std::make_shared<FakeCapability>()),
      collator(std::make_shared<FoldingCollator>()),
      screen(std::make_shared<RecordingScreen>()),
      wifiManager(std::make_shared<FakeWiFiManager>(events)),
      host(std::make_shared<RecordingHost>(events, queues)),
      platform_({.queues = queues.get(),
                 .service = service.get(),
                 .wifiManager = wifiManager.get(),
                 .capability = capability.get(),
                 .automation = automation.get(),
                 .dates = &dates_,
                 .log = log.get(),
                 .texts = &texts_,
                 .collator = collator.get(),
                 .screen = screen.get()}) {}

// What is still in the queues needs the fakes.
DiagnosticFixture::~DiagnosticFixture() { queues->runUntilIdle(); }

void DiagnosticFixture::setUpController(const std::shared_ptr<WiFiProfileInputs>& inputs) {
  controller = std::make_shared<WiFiProfileViewController>();
  controller->setObserver(host);
  controller->setupWithInputs(inputs, nullptr);
}

void DiagnosticFixture::run(const TextRef& joined, const TextRef& selected) {
  service->joinTo(joined);
  setUpController(makeInputs(selected));
  controller->start();
  queues->runUntilIdle();
}

void DiagnosticFixture::letRequestsTake(std::chrono::nanoseconds time) {
  service->whileRunning = [this, time](const FakeService::Request&) {
    static const std::atomic<bool> uncut = false;
    queues->pause(time, uncut);
  };
}

}  // namespace wifi_profile
