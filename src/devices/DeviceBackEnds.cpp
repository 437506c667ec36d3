#include "devices/DeviceBackEnds.h"

#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Trace.h"

namespace wifi_profile::devices {
namespace {

class Capability final : public DeviceCapability {
 public:
  explicit Capability(bool wlanWording) : wlanWording_(wlanWording) {}

  int boolAnswer(std::string_view key) override {
    const bool answer = key == "wapi" && wlanWording_;
    traceEvent("capability", [&] {
      return Trace::Fields{{"key", makeText(key)}, {"answer", Number::withBool(answer)}};
    });
    return answer ? 1 : 0;
  }

 private:
  bool wlanWording_;
};

class Automation final : public HsTestAutomation {
 public:
  explicit Automation(bool enabled) : enabled_(enabled) {}

  bool testAutomationEnabled() const override { return enabled_; }

 protected:
  void receiveConfiguration(const DictionaryRef& configuration) override {
    traceEvent("host.automation", [&] { return Trace::Fields{{"configuration", configuration}}; });
  }

 private:
  bool enabled_;
};

}  // namespace

std::shared_ptr<DeviceCapability> capabilityOf(bool wlanWording) {
  return std::make_shared<Capability>(wlanWording);
}

std::shared_ptr<HsTestAutomation> automationOf(bool enabled) {
  return std::make_shared<Automation>(enabled);
}

void traceRequest(const VqDiagnosticsTestRequest& request) {
  traceEvent("service.request", [&] {
    return Trace::Fields{{"test", makeText(nameOf(request.testID()))},
                         {"id", Number::withInteger(static_cast<int>(request.testID()))},
                         {"configuration", request.configuration()}};
  });
}

void traceStatus(const VqWiFiStatus& status, const VqErrorRef& error) {
  traceEvent("service.status", [&] {
    return Trace::Fields{{"error", error ? Number::withInteger(error->code()) : nullptr},
                         {"ssid", status.ssidString},
                         {"bssid", status.bssid}};
  });
}

TextRef networkNameOf(const VqDiagnosticsTestRequest& request) {
  const DictionaryRef& configuration = request.configuration();
  return configuration ? as<Text>(configuration->objectForKey("NetworkName")) : nullptr;
}

VqErrorRef makeError(std::int64_t code, std::string description) {
  return std::make_shared<const VqError>(code, std::move(description));
}

}  // namespace wifi_profile::devices
