// The proxies that programs of this session use.
#pragma once

#include "analysis/facts/DeviceFacts.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/bus/Bus.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::bus {

// Finds a proxy in the variables http_proxy, https_proxy and all_proxy, in this order, their names
// in any case; an empty variable counts as unset. `environment` is like `environ`: "NAME=value"
// strings, ended by a null pointer.
facts::SessionProxy proxyInEnvironment(const char* const* environment);

// Looks in the environment, then in the desktop's settings, through its portal. Error if the
// portal does not answer. There are no settings, however, if there is no bus and the environment
// names neither a desktop (XDG_CURRENT_DESKTOP) nor a session bus (DBUS_SESSION_BUS_ADDRESS), or if
// there is no portal and the environment names no desktop.
Result<facts::SessionProxy> readSessionProxy(const char* const* environment, Bus& session,
                                             const Deadline& deadline);

}  // namespace wifi_profile::linux::bus
