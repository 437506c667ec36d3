// The back ends of a device, real or simulated, on which the diagnostic runs.
#pragma once

#include <memory>

#include "devices/ManagedRadio.h"
#include "diagnostic/platform/DeviceCapability.h"
#include "diagnostic/platform/DiagnosticsService.h"
#include "diagnostic/platform/DiagnosticsSupport.h"

namespace wifi_profile::devices {

struct DeviceBackEnds {
  std::shared_ptr<VqClient> service;
  std::shared_ptr<ManagedRadio> radio;
  std::shared_ptr<DeviceCapability> capability;
  std::shared_ptr<HsTestAutomation> automation;
};

// Returns the capabilities of a device that says WLAN instead of Wi-Fi, or does not.
std::shared_ptr<DeviceCapability> capabilityOf(bool wlanWording);

// Returns the automation of a device that runs under the automation harness, or does not.
std::shared_ptr<HsTestAutomation> automationOf(bool enabled);

// Trace that a service accepts a request, or answers a status query.
void traceRequest(const VqDiagnosticsTestRequest& request);
void traceStatus(const VqWiFiStatus& status, const VqErrorRef& error);

// Returns "NetworkName" of a request's configuration; nil if it has none.
TextRef networkNameOf(const VqDiagnosticsTestRequest& request);

// Returns the error of a failed request or query.
VqErrorRef makeError(std::int64_t code, std::string description);

}  // namespace wifi_profile::devices
