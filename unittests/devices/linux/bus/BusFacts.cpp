// Prints what this machine's services say: bus_facts INTERFACE [scan|on|off]
// A line a fact. For looking at real services, as in the lab; the tests have services of their own.

#include <cstdio>
#include <string>
#include <unistd.h>

#include "devices/linux/Coexistence.h"
#include "devices/linux/bus/Bluez.h"
#include "devices/linux/bus/ConnectionManager.h"
#include "devices/linux/bus/SessionProxies.h"

namespace {

using namespace wifi_profile;
using namespace wifi_profile::machine;
using namespace std::chrono_literals;

std::string flag(bool value) { return value ? "yes" : "no"; }
std::string flag(const std::optional<bool>& value) { return value ? flag(*value) : "not told"; }

std::string textOf(bool value) { return flag(value); }

std::string textOf(const checks::AddressSettings& settings) {
  std::string text = "method " + std::to_string(static_cast<int>(settings.method));
  for (const std::string& server : settings.dnsServers) text += " dns " + server;
  text += " ignores DNS " + flag(settings.ignoresNetworkDns);
  return text + " extra addresses " + flag(settings.hasExtraAddresses);
}

std::string textOf(const checks::ActiveProfile& profile) {
  return "IPv4: " + textOf(profile.ipv4) + "; IPv6: " + textOf(profile.ipv6) + "; proxy " +
         flag(profile.hasProxy) + "; metered " + flag(profile.metered) + "; portal " +
         profile.captivePortalApi.value_or("not told");
}

std::string textOf(const std::vector<std::string>& texts) {
  std::string joined = std::to_string(texts.size());
  for (const std::string& text : texts) joined += " " + text;
  return joined;
}

std::string textOf(const std::vector<checks::SavedNetwork>& networks) {
  std::string text = std::to_string(networks.size());
  for (const auto& network : networks) {
    const auto joined =
        network.lastJoined ? iso8601FromDate(*network.lastJoined) : std::optional<std::string>();
    text += "\n  \"" + network.ssid + "\" security " +
            std::to_string(static_cast<int>(network.security)) + " hidden " +
            flag(network.isHidden) + " joins by itself " + flag(network.joinsByItself) +
            " joined " + joined.value_or("never") + " access points " +
            std::to_string(network.accessPoints);
  }
  return text;
}

std::string textOf(const LastScan& time) {
  return time ? std::to_string(time->count()) + " ms after the start" : "never";
}
std::string textOf(ScanStart start) { return start == ScanStart::started ? "started" : "too soon"; }

std::string textOf(const checks::Bluetooth& bluetooth) {
  return "powered " + flag(bluetooth.powered) + " paired " + std::to_string(bluetooth.paired) +
         " connected " + std::to_string(bluetooth.connected);
}

std::string textOf(const checks::SessionProxy& proxy) {
  return proxy.source.empty() ? "none" : proxy.source;
}

std::string textOf(const checks::Coexistence& coexistence) {
  return coexistence.driver + " " + coexistence.parameter + " " + flag(coexistence.takesTurns);
}

std::string textOf(ConnectionManager::Kind kind) {
  return kind == ConnectionManager::Kind::networkManager ? "NetworkManager"
         : kind == ConnectionManager::Kind::iwd          ? "iwd"
                                                         : "wpa_supplicant";
}

template <class Ask>
void print(const char* name, Ask ask) {
  const auto began = Clock::now();
  const auto known = ask();
  const auto took = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - began);
  const std::string text = known
                               ? textOf(*known)
                               : "unknown " + std::to_string(static_cast<int>(known.why().reason)) +
                                     ": " + known.why().sentence;
  std::printf("%s (%ld us): %s\n", name, static_cast<long>(took.count()), text.c_str());
}

}  // namespace

int main(int count, char** arguments) {
  const std::string interface = count > 1 ? arguments[1] : "wlan0";
  const std::string action = count > 2 ? arguments[2] : "";
  const Cancellation cancellation;
  const auto patience = [&cancellation] { return Patience{Clock::now() + 5s, cancellation}; };
  const auto system = Bus::system();
  const auto session = Bus::session();
  ConnectionManager manager(*system);
  print("manager", [&] { return manager.kind(interface, patience()); });
  print("active profile", [&] { return manager.activeProfile(interface, patience()); });
  print("DNS servers", [&] { return manager.dnsServers(interface, patience()); });
  print("saved networks", [&] { return manager.savedNetworks(interface, patience()); });
  print("last scan", [&] { return manager.lastScan(interface, patience()); });
  print("radio", [&] { return manager.isRadioOn(interface, patience()); });
  print("Bluetooth", [&] { return readBluetooth(*system, patience()); });
  print("proxy", [&] { return readSessionProxy(environ, session.get(), patience()); });
  print("coexistence", [&] { return readCoexistence(interface); });
  if (action == "scan") print("scan", [&] { return manager.requestScan(interface, patience()); });
  if (action == "on" || action == "off") {
    const auto problem = manager.setRadioOn(interface, action == "on", patience());
    std::printf("switch: %s\n", problem ? problem->sentence.c_str() : "done");
  }
}
