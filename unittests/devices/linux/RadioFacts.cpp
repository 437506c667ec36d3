// Prints what the kernel knows of Wi-Fi, one fact a line; the lab's scenes look at the lines.
//   radio_facts [scan|await|on]    scan: triggers one before; await: waits for another program's
//                                  scan; on: turns the radio's switches on
#include <cstdio>
#include <poll.h>
#include <string>
#include <string_view>

#include "devices/linux/Rfkill.h"
#include "devices/linux/netlink/Addresses.h"
#include "devices/linux/netlink/Nl80211.h"

using namespace wifi_profile;
using namespace wifi_profile::machine;

namespace {

std::string safe(const std::string& text) {
  std::string shown;
  for (const char letter : text) {
    if (letter >= ' ' && letter <= '~') {
      shown += letter;
    } else {
      char code[5];
      std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned char>(letter));
      shown += code;
    }
  }
  return shown;
}

std::string text(const std::optional<int>& number) {
  return number ? std::to_string(*number) : "-";
}

std::string text(const std::optional<std::chrono::milliseconds>& time) {
  return time ? std::to_string(time->count()) : "-";
}

void print(std::string_view what, const checks::Unknown& unknown) {
  std::printf("%s: unknown %d: %s\n", std::string(what).c_str(), static_cast<int>(unknown.reason),
              unknown.sentence.c_str());
}

void print(const WifiInterface& one) {
  std::printf("interface: name=%s index=%d wiphy=%u mac=%s role=%d ssid=%s frequency=%s\n",
              safe(one.name).c_str(), one.index, one.wiphy, one.mac.c_str(),
              static_cast<int>(one.role), safe(one.ssid.value_or("-")).c_str(),
              text(one.frequency).c_str());
}

void print(const checks::Link& link) {
  std::printf("link: ssid=%s bssid=%s signal=%s frequency=%s interval=%s dtim=%s\n",
              safe(link.ssid).c_str(), link.bssid.c_str(), text(link.signal).c_str(),
              text(link.frequency).c_str(), text(link.beaconInterval).c_str(),
              text(link.dtimPeriod).c_str());
}

void print(const ScanList& list) {
  std::printf("scan: count=%zu age=%s\n", list.scan.accessPoints.size(), text(list.age).c_str());
  for (const auto& one : list.scan.accessPoints) {
    std::printf(
        "access point: bssid=%s ssid=%s hides=%d signal=%s channel=%s security=%d interval=%s "
        "dtim=%s country=%s stations=%s utilization=%s\n",
        one.bssid.c_str(), safe(one.ssid.value_or("-")).c_str(), one.hidesName ? 1 : 0,
        text(one.signal).c_str(), one.channel ? std::to_string(one.channel->primary).c_str() : "-",
        static_cast<int>(one.security), text(one.beaconInterval).c_str(),
        text(one.dtimPeriod).c_str(), safe(one.country.value_or("-")).c_str(),
        text(one.stations).c_str(), text(one.channelUtilization).c_str());
  }
}

void print(const std::vector<checks::ChannelSurvey>& surveys) {
  for (const auto& one : surveys) {
    std::printf("survey: frequency=%d used=%d noise=%s active=%s busy=%s transmit=%s\n",
                one.frequency, one.inUse ? 1 : 0, text(one.noise).c_str(), text(one.active).c_str(),
                text(one.busy).c_str(), text(one.transmit).c_str());
  }
}

void print(const checks::Radio& radio) {
  int disabled = 0;
  int radar = 0;
  for (const auto& one : radio.channels) {
    disabled += one.disabled ? 1 : 0;
    radar += one.radarDetection ? 1 : 0;
  }
  std::printf("radio: driver=%s channels=%zu disabled=%d radar=%d interfaces=%zu wapi=%d\n",
              radio.driver.c_str(), radio.channels.size(), disabled, radar, radio.interfaces.size(),
              radio.knowsWapi ? 1 : 0);
}

void print(const checks::Regulatory& regulatory) {
  std::printf("regulatory: country=%s\n", regulatory.country.c_str());
}

std::string listed(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& one : texts) all += (all.empty() ? "" : ",") + one;
  return all.empty() ? "-" : all;
}

void print(const checks::Addresses& addresses) {
  std::printf("addresses: ipv4=%s ipv6=%s gateway4=%s gateway6=%s\n",
              listed(addresses.ipv4).c_str(), listed(addresses.ipv6).c_str(),
              addresses.ipv4Gateway.value_or("-").c_str(),
              addresses.ipv6Gateway.value_or("-").c_str());
}

template <class T>
void print(std::string_view what, const checks::Known<T>& known) {
  if (known) {
    print(*known);
  } else {
    print(what, known.why());
  }
}

void scanBefore(Nl80211& kernel, const WifiInterface& interface, bool trigger,
                const Patience& patience) {
  const auto began = Clock::now();
  NotDone problem;
  if (trigger) {
    problem = kernel.triggerScan(interface, patience);
  } else {
    problem = kernel.watchScans(patience);
    if (!problem) problem = kernel.awaitScanResults(interface, patience);
  }
  const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - began);
  if (problem) print("scanned", *problem);
  std::printf("scanned: done=%d took=%lld ms\n", problem ? 0 : 1,
              static_cast<long long>(took.count()));
}

void printSwitches(const std::string& interface, bool turnOn, const Patience& patience) {
  Rfkill switches(interface);
  if (const auto problem = switches.open()) print("switches", *problem);
  const auto power = [&] {
    const auto on = switches.poweredOn();
    std::printf("switches: %s\n", !on ? "none" : *on ? "on" : "off");
  };
  power();
  if (!turnOn) return;
  if (const auto problem = switches.switchOn()) return print("switches", *problem);
  bool changed = false;
  while (!changed && waitFor(switches.descriptor(), POLLIN, patience) == Waited::ready) {
    switches.handleEvents([&](Rfkill::News) { changed = true; });
  }
  power();
}

}  // namespace

int main(int count, char** arguments) {
  const std::string_view what = count > 1 ? arguments[1] : "";
  const Cancellation cancellation;
  const Patience patience{Clock::now() + std::chrono::seconds(40), cancellation};
  Nl80211 kernel;
  const auto interfaces = kernel.interfaces(patience);
  if (!interfaces) {
    print("interfaces", interfaces.why());
    return 0;
  }
  for (const auto& one : *interfaces) print(one);
  const WifiInterface& first = interfaces->front();
  printSwitches(first.name, what == "on", patience);
  print("link", kernel.link(first, patience));
  if (what == "scan" || what == "await") scanBefore(kernel, first, what == "scan", patience);
  print("scan", kernel.scan(first, patience));
  print("surveys", kernel.surveys(first, patience));
  print("radio", kernel.radio(first, patience));
  print("regulatory", kernel.regulatory(first, patience));
  print("addresses", readAddresses(first.index, patience));
  return 0;
}
