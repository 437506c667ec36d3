// Process-wide services of the platform. Each forwards to one installed back end.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

#include "diagnostic/platform/Property.h"

namespace wifi_profile {

// The installed back end of one kind of service. Only a host and test fixtures install back ends.
template <class Service>
class Installed {
 public:
  // Returns the installed back end. Any thread. Calling it before a back end is installed is a
  // programming error and aborts the process.
  static std::shared_ptr<Service> get() {
    std::shared_ptr<Service> service = slot()();
    if (!service) {
      std::fputs("wifi-profile: a platform service was used before its back end was installed\n",
                 stderr);
      std::abort();
    }
    return service;
  }

  // Returns the installed back end, or null.
  static std::shared_ptr<Service> find() { return slot()(); }

  // Returns the back end that was installed before, or null.
  static std::shared_ptr<Service> install(std::shared_ptr<Service> service) {
    return slot().exchange(std::move(service));
  }

 private:
  static Property<std::shared_ptr<Service>>& slot() {
    static Property<std::shared_ptr<Service>> installed;
    return installed;
  }
};

// Installs a back end and restores the previous one on destruction.
template <class Service>
class ScopedInstall {
 public:
  explicit ScopedInstall(std::shared_ptr<Service> service)
      : before_(Installed<Service>::install(std::move(service))) {}
  ScopedInstall(const ScopedInstall&) = delete;
  ScopedInstall& operator=(const ScopedInstall&) = delete;
  ~ScopedInstall() { Installed<Service>::install(std::move(before_)); }

 private:
  std::shared_ptr<Service> before_;
};

}  // namespace wifi_profile
