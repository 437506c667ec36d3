#include "devices/scenario/ScenarioDevice.h"

#include "platform/Number.h"

namespace wifi_profile::scenario {
namespace {

class ScenarioCapability final : public DeviceCapability {
 public:
  ScenarioCapability(bool wlanWording, Trace& trace) : wlanWording_(wlanWording), trace_(trace) {}

  int boolAnswer(std::string_view key) override {
    const bool answer = key == "wapi" && wlanWording_;
    trace_.event("capability", {{"key", makeText(key)}, {"answer", Number::withBool(answer)}});
    return answer ? 1 : 0;
  }

 private:
  bool wlanWording_;
  Trace& trace_;
};

class ScenarioAutomation final : public HsTestAutomation {
 public:
  ScenarioAutomation(bool enabled, Trace& trace) : enabled_(enabled), trace_(trace) {}

  bool testAutomationEnabled() const override { return enabled_; }

 protected:
  void receiveConfiguration(const DictionaryRef& configuration) override {
    trace_.event("host.automation", {{"configuration", configuration}});
  }

 private:
  bool enabled_;
  Trace& trace_;
};

}  // namespace

ScenarioDevice::ScenarioDevice(const Scenario& scenario, Pace& pace, Trace& trace)
    : service(std::make_shared<ScenarioService>(scenario, pace, trace)),
      radio(std::make_shared<ScenarioRadio>(scenario.device, trace)),
      capability(std::make_shared<ScenarioCapability>(scenario.device.wlanWording, trace)),
      automation(std::make_shared<ScenarioAutomation>(scenario.device.testAutomation, trace)) {}

}  // namespace wifi_profile::scenario
