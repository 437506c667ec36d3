#include "devices/DeviceBackEnds.h"

#include "diagnostic/platform/Number.h"

namespace wifi_profile::devices {
namespace {

class Capability final : public DeviceCapability {
 public:
  Capability(bool wlanWording, Trace& trace) : wlanWording_(wlanWording), trace_(trace) {}

  int boolAnswer(std::string_view key) override {
    const bool answer = key == "wapi" && wlanWording_;
    trace_.event("capability", {{"key", makeText(key)}, {"answer", Number::withBool(answer)}});
    return answer ? 1 : 0;
  }

 private:
  bool wlanWording_;
  Trace& trace_;
};

class Automation final : public HsTestAutomation {
 public:
  Automation(bool enabled, Trace& trace) : enabled_(enabled), trace_(trace) {}

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

std::shared_ptr<DeviceCapability> capabilityOf(bool wlanWording, Trace& trace) {
  return std::make_shared<Capability>(wlanWording, trace);
}

std::shared_ptr<HsTestAutomation> automationOf(bool enabled, Trace& trace) {
  return std::make_shared<Automation>(enabled, trace);
}

void traceRequest(Trace& trace, const VqDiagnosticsTestRequest& request) {
  trace.event("service.request", {{"test", makeText(nameOf(request.testID()))},
                                  {"id", Number::withInteger(static_cast<int>(request.testID()))},
                                  {"configuration", request.configuration()}});
}

void traceStatus(Trace& trace, const VqWiFiStatus& status, const VqErrorRef& error) {
  trace.event("service.status", {{"error", error ? Number::withInteger(error->code()) : nullptr},
                                 {"ssid", status.ssidString},
                                 {"bssid", status.bssid}});
}

void traceCancel(Trace& trace) { trace.event("service.cancel", {}); }

TextRef networkNameOf(const VqDiagnosticsTestRequest& request) {
  const DictionaryRef& configuration = request.configuration();
  return configuration ? as<Text>(configuration->objectForKey("NetworkName")) : nullptr;
}

VqErrorRef makeError(std::int64_t code, std::string description) {
  return std::make_shared<const VqError>(code, std::move(description));
}

}  // namespace wifi_profile::devices
