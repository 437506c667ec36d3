// What stands behind the diagnostic's questions to a device, on paper or not.
#pragma once

#include <memory>

#include "devices/ManagedRadio.h"
#include "platform/DeviceCapability.h"
#include "platform/DiagnosticsService.h"
#include "platform/DiagnosticsSupport.h"
#include "platform/Trace.h"

namespace wifi_profile {

struct DeviceBackEnds {
  std::shared_ptr<VqClient> service;
  std::shared_ptr<ManagedRadio> radio;
  std::shared_ptr<DeviceCapability> capability;
  std::shared_ptr<HsTestAutomation> automation;
};

// A device that says WLAN where others say Wi-Fi, or not. `trace` must outlive it.
std::shared_ptr<DeviceCapability> capabilityOf(bool wlanWording, Trace& trace);

// A device that runs under the automation harness, or not. `trace` must outlive it.
std::shared_ptr<HsTestAutomation> automationOf(bool enabled, Trace& trace);

// The events of a service: of a request or a query that it takes up, and of a cancel.
void traceRequest(Trace& trace, const VqDiagnosticsTestRequest& request);
void traceStatus(Trace& trace, const VqWiFiStatus& status, const VqErrorRef& error);
void traceCancel(Trace& trace);

// "NetworkName" of a request's configuration; nil: it has none.
TextRef networkNameOf(const VqDiagnosticsTestRequest& request);

// A failed request's or query's error.
VqErrorRef makeError(std::int64_t code, std::string description);

}  // namespace wifi_profile
