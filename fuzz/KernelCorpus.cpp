// Writes inputs of fuzz_kernel: what a kernel really said, and entries made by hand with the
// beacons of the tests in them.
//   kernel_corpus FOLDER

#include <cstdio>
#include <fstream>
#include <linux/if_addr.h>
#include <linux/nl80211.h>
#include <linux/rfkill.h>
#include <linux/rtnetlink.h>
#include <map>

#include "KernelInput.h"
#include "devices/linux/Captures.h"
#include "devices/linux/NetlinkBytes.h"

using namespace wifi_profile::machine;
using wifi_profile::ieee80211::operator+;

namespace {

const Octets kAddress{2, 0, 0, 0, 0, 0x10};

Octets input(KernelInput kind, const Octets& bytes) {
  return Octets{static_cast<std::uint8_t>(kind)} + bytes;
}

// Two entries: a beacon, and an answered probe without what stands at the end of it.
Octets scanOf(const wifi_profile::ieee80211::Sample& sample) {
  const Octets beacon = sample.bytes();
  const Octets answer(beacon.begin(),
                      beacon.begin() + static_cast<std::ptrdiff_t>(beacon.size() / 2));
  const auto entry = [&](std::uint8_t last, const Octets& more) {
    Octets address = kAddress;
    address.back() = last;
    return attribute(0,
                     attribute(NL80211_BSS_BSSID, address) +
                         numberAttribute(NL80211_BSS_CAPABILITY, sample.capabilities) +
                         numberAttribute(NL80211_BSS_FREQUENCY,
                                         static_cast<std::uint32_t>(sample.frequency.value_or(0))) +
                         numberAttribute(NL80211_BSS_BEACON_INTERVAL, std::uint16_t{100}) +
                         numberAttribute(NL80211_BSS_SIGNAL_MBM, std::int32_t{-5500}) + more);
  };
  return entry(0x10, attribute(NL80211_BSS_INFORMATION_ELEMENTS, beacon) +
                         numberAttribute(NL80211_BSS_SEEN_MS_AGO, std::uint32_t{500})) +
         entry(0x11, attribute(NL80211_BSS_INFORMATION_ELEMENTS, answer) +
                         attribute(NL80211_BSS_BEACON_IES, beacon) +
                         attribute(NL80211_BSS_PRESP_DATA, Octets()) +
                         numberAttribute(NL80211_BSS_STATUS, std::uint32_t{1}));
}

Octets others() {
  const Octets station =
      numberAttribute(NL80211_STA_INFO_SIGNAL, std::int8_t{-50}) +
      attribute(NL80211_STA_INFO_STA_FLAGS, octetsOf(nl80211_sta_flag_update{})) +
      attribute(NL80211_STA_INFO_BSS_PARAM,
                numberAttribute(NL80211_STA_BSS_PARAM_DTIM_PERIOD, std::uint8_t{2}));
  const Octets survey = numberAttribute(NL80211_SURVEY_INFO_FREQUENCY, std::uint32_t{2437}) +
                        numberAttribute(NL80211_SURVEY_INFO_TIME, std::uint64_t{64}) +
                        numberAttribute(NL80211_SURVEY_INFO_TIME_BUSY, std::uint64_t{8});
  const Octets channel = attribute(0, numberAttribute(NL80211_FREQUENCY_ATTR_FREQ, 5260U) +
                                          attribute(NL80211_FREQUENCY_ATTR_RADAR, Octets()));
  return numberAttribute(NL80211_ATTR_WIPHY, 0U) + attribute(NL80211_ATTR_IFNAME, "wlan0") +
         attribute(NL80211_ATTR_MAC, kAddress) + attribute(NL80211_ATTR_SSID, kAddress) +
         attribute(NL80211_ATTR_STA_INFO, station) + attribute(NL80211_ATTR_SURVEY_INFO, survey) +
         attribute(NL80211_ATTR_WIPHY_BANDS,
                   attribute(0, attribute(NL80211_BAND_ATTR_FREQS, channel))) +
         numberAttribute(NL80211_ATTR_CIPHER_SUITES, 0x00147201U) +
         attribute(NL80211_ATTR_REG_ALPHA2, "DE");
}

// Each size of each command's answer once: a list that is asked for twice says the same.
void addCaptured(std::map<std::string, Octets>& made) {
  for (const CapturedMessage& message : capturedMessages(kCapture)) {
    const Octets& bytes = message.attributes;
    const auto bss = Attributes(bytes).find(NL80211_ATTR_BSS);
    made["captured-" + std::to_string(message.command) + "-" + std::to_string(bytes.size())] =
        bss ? input(KernelInput::scanEntry, attribute(0, Octets(bss->begin(), bss->end())))
            : input(KernelInput::others, bytes);
  }
}

std::map<std::string, Octets> inputs() {
  std::map<std::string, Octets> made;
  addCaptured(made);
  for (const auto& sample : wifi_profile::ieee80211::samples()) {
    made["scan-" + sample.name] = input(KernelInput::scanEntry, scanOf(sample));
  }
  made["others"] = input(KernelInput::others, others());
  ifaddrmsg address{};
  address.ifa_family = 2;
  address.ifa_index = 4;
  made["address"] = input(KernelInput::addresses,
                          octetsOf(address) + attribute(IFA_ADDRESS, Octets{192, 0, 2, 1}));
  rtmsg route{};
  route.rtm_family = 2;
  route.rtm_type = RTN_UNICAST;
  route.rtm_table = RT_TABLE_MAIN;
  made["route"] =
      input(KernelInput::addresses, octetsOf(route) + attribute(RTA_GATEWAY, Octets{192, 0, 2, 1}) +
                                        numberAttribute(RTA_OIF, 4U));
  rfkill_event event{};
  event.op = RFKILL_OP_CHANGE;
  made["rfkill"] = input(KernelInput::rfkill, octetsOf(event));
  return made;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: kernel_corpus FOLDER\n");
    return 64;
  }
  for (const auto& [name, bytes] : inputs()) {
    std::ofstream file(std::string(arguments[1]) + "/" + name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
      std::fprintf(stderr, "kernel_corpus: cannot write %s\n", name.c_str());
      return 74;
    }
  }
  return 0;
}
