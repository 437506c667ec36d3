// The proxies that programs of this session use.
#pragma once

#include "checks/DeviceFacts.h"
#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/bus/Bus.h"

namespace wifi_profile::machine {

// From the variables http_proxy, https_proxy and all_proxy, in this order and in letters of any
// case; an empty one sets nothing. `environment` is like `environ`: "NAME=value" until a null.
checks::SessionProxy proxyInEnvironment(const char* const* environment);

// The environment, and then the settings of the desktop, from its portal. Where the environment
// names neither a desktop (XDG_CURRENT_DESKTOP) nor a session bus (DBUS_SESSION_BUS_ADDRESS), no
// bus means no settings, and where it names no desktop, no portal does. Otherwise unknown where
// there is no answer.
checks::Known<checks::SessionProxy> readSessionProxy(const char* const* environment, Bus& session,
                                                     const Patience& patience);

}  // namespace wifi_profile::machine
