// Process-wide services of the platform, each forwarding to one installed back end.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

#include "platform/Property.h"

namespace wifi_profile {

// The installed back end of one kind of service. Only a host and test fixtures install.
template <class Service>
class Installed {
 public:
  // Any thread. Asking for a service before one is installed is a programmer's error and ends the
  // process.
  static std::shared_ptr<Service> get() {
    std::shared_ptr<Service> service = slot()();
    if (!service) {
      std::fputs("wifi-profile: a platform service was used before its back end was installed\n",
                 stderr);
      std::abort();
    }
    return service;
  }

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

// Installs a back end and puts the one before back when it goes out of scope.
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
