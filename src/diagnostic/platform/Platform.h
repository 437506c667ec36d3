// The services that the diagnostic asks of its host, and how a host installs them.
#pragma once

#include <atomic>
#include <string>

#include "diagnostic/platform/ProgrammingError.h"

namespace wifi_profile {

class DeviceCapability;
class DiagnosticLog;
class HsDateFormatter;
class HsTestAutomation;
class NameCollator;
class RunObserver;
class StringTable;
class Trace;
class VqClient;
class WiFiManagerService;
class WorkQueues;
namespace toolkit {
class Screen;
}

struct Platform {
  WorkQueues* queues = nullptr;
  VqClient* service = nullptr;
  WiFiManagerService* wifiManager = nullptr;
  DeviceCapability* capability = nullptr;
  HsTestAutomation* automation = nullptr;
  HsDateFormatter* dates = nullptr;
  DiagnosticLog* log = nullptr;
  StringTable* texts = nullptr;
  NameCollator* collator = nullptr;
  toolkit::Screen* screen = nullptr;
  RunObserver* observer = nullptr;  // optional
  Trace* trace = nullptr;           // optional
};

// Installs services for its lifetime. A null member leaves the service that is installed already.
// The services must outlive this object, and no thread may use them while it is destroyed. Objects
// of this class are destroyed in the reverse order of their creation.
class InstalledPlatform {
 public:
  explicit InstalledPlatform(const Platform& platform)
      : platform_(platform), before_(latest_.exchange(this)) {}
  InstalledPlatform(const InstalledPlatform&) = delete;
  InstalledPlatform& operator=(const InstalledPlatform&) = delete;
  ~InstalledPlatform() { latest_ = before_; }

  // Returns the installed service, or null. Any thread.
  template <class Service>
  static Service* find(Service* Platform::*service) {
    for (const InstalledPlatform* one = latest_; one; one = one->before_) {
      if (one->platform_.*service) return one->platform_.*service;
    }
    return nullptr;
  }

  // Returns the installed service. Any thread. Using a service that is not installed is a
  // programming error and aborts the process. `name` is the service's name in the message.
  template <class Service>
  static Service* get(Service* Platform::*service, const char* name) {
    if (const auto installed = find(service)) return installed;
    programmingError(std::string(name) +
                     " was used, but the host has not installed it; set it in Platform and keep an "
                     "InstalledPlatform");
  }

 private:
  static inline std::atomic<const InstalledPlatform*> latest_ = nullptr;

  const Platform platform_;
  const InstalledPlatform* const before_;
};

}  // namespace wifi_profile
