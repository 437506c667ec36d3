#include "devices/linux/bus/SessionProxies.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "devices/linux/bus/Services.h"

namespace wifi_profile::linux::bus {

using facts::SessionProxy;

namespace {

// Ignores the locale, because the names of the variables are ASCII.
char lowered(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool isNamed(std::string_view name, std::string_view lowerCase) {
  return std::equal(name.begin(), name.end(), lowerCase.begin(), lowerCase.end(),
                    [](char a, char b) { return lowered(a) == b; });
}

bool isSet(const char* const* environment, std::string_view variable) {
  for (const char* const* entry = environment; entry && *entry; ++entry) {
    const std::string_view text(*entry);
    if (text.size() > variable.size() + 1 && text.starts_with(variable) &&
        text[variable.size()] == '=') {
      return true;
    }
  }
  return false;
}

}  // namespace

SessionProxy proxyInEnvironment(const char* const* environment) {
  for (const char* const wanted : {"http_proxy", "https_proxy", "all_proxy"}) {
    for (const char* const* entry = environment; entry && *entry; ++entry) {
      const std::string_view variable(*entry);
      const auto equals = variable.find('=');
      if (equals == std::string_view::npos || equals + 1 == variable.size()) continue;
      const std::string_view name = variable.substr(0, equals);
      if (isNamed(name, wanted)) return {std::string(name) + " in the environment"};
    }
  }
  return {};
}

Result<SessionProxy> readSessionProxy(const char* const* environment, Bus& session,
                                      const Deadline& deadline) {
  SessionProxy proxy = proxyInEnvironment(environment);
  if (!proxy.source.empty()) return proxy;
  using Kind = BusError::Kind;
  const bool hasDesktop = isSet(environment, "XDG_CURRENT_DESKTOP");
  const bool hasSession = hasDesktop || isSet(environment, "DBUS_SESSION_BUS_ADDRESS");
  const auto hasNoSettings = [&](const BusAnswer& answer) {
    if (!answer.error) return false;
    if (answer.error->kind == Kind::noBus) return !hasSession;
    return !hasDesktop &&
           (answer.error->kind == Kind::noService || answer.error->kind == Kind::noSuchThing);
  };
  const BusAnswer owner = session.ownerOf(kPortal.busName, deadline);
  if (hasNoSettings(owner)) return proxy;
  if (!owner.isGood()) return unknownFrom(owner, kPortal);
  const BusAnswer answer = session.call({owner.first().text().value_or(""),
                                         "/org/freedesktop/portal/desktop",
                                         "org.freedesktop.portal.ProxyResolver",
                                         "Lookup",
                                         {"http://example.com/"}},
                                        deadline);
  if (hasNoSettings(answer)) return proxy;
  if (!answer.isGood()) return unknownFrom(answer, kPortal);
  const BusValue::List& proxies = answer.first().list();
  const bool direct = std::all_of(proxies.begin(), proxies.end(),
                                  [](const BusValue& one) { return one.text() == "direct://"; });
  if (!direct) proxy.source = "the desktop's settings";
  return proxy;
}

}  // namespace wifi_profile::linux::bus
