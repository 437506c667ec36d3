// A diagnostic among fakes, in virtual time.
#pragma once

#include <gtest/gtest.h>
#include <memory>

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/WorkQueues.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/Iso8601Formatter.h"
#include "runtime/VirtualTimeRunLoop.h"
#include "support/Events.h"
#include "support/FakeService.h"
#include "support/FakeSurroundings.h"
#include "support/FakeWiFiManager.h"
#include "support/FoldingCollator.h"

namespace wifi_profile {

// Parameters {"maxScanCacheAge": 30, "reprofileWithUI": `list`, "networkName": `name`}, validated.
// A nil name is left out.
std::shared_ptr<WiFiProfileInputs> makeInputs(const TextRef& name, bool list = false);

class DiagnosticFixture : public ::testing::Test {
 protected:
  DiagnosticFixture();
  ~DiagnosticFixture() override;

  // Replaces `controller` by a new one, observed by `host` and set up with `inputs`.
  void setUpController(const std::shared_ptr<WiFiProfileInputs>& inputs);

  // A whole run on a device joined to `joined` with `selected` asked for; nil for none.
  void run(const TextRef& joined, const TextRef& selected);

  // Makes every request of the service take `time`, in which the main thread comes to its turn.
  void letRequestsTake(std::chrono::nanoseconds time);

  const EventsRef events;
  const std::shared_ptr<runtime::VirtualTimeRunLoop> queues;
  const std::shared_ptr<FakeService> service;
  const std::shared_ptr<RecordingLog> log;
  const std::shared_ptr<FakeAutomation> automation;
  const std::shared_ptr<FakeCapability> capability;
  const std::shared_ptr<FoldingCollator> collator;
  const std::shared_ptr<RecordingScreen> screen;
  const std::shared_ptr<FakeWiFiManager> wifiManager;
  const std::shared_ptr<RecordingHost> host;
  std::shared_ptr<WiFiProfileViewController> controller;

 private:
  runtime::BuiltInStringTable texts_{runtime::kKeysLanguage};  // texts are their own keys
  runtime::Iso8601Formatter dates_;
  const InstalledPlatform platform_;
};

}  // namespace wifi_profile
