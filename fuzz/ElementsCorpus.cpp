// Writes inputs of fuzz_elements into a folder: what a kernel really heard, and the beacons of the
// tests.
//   elements_corpus FOLDER

#include <cstdio>
#include <fstream>
#include <linux/nl80211.h>
#include <map>

#include "ElementsInput.h"
#include "devices/linux/Captures.h"
#include "devices/linux/netlink/Attributes.h"
#include "ieee80211/Beacons.h"

using namespace wifi_profile::ieee80211;

namespace {

std::map<std::string, Octets> inputs() {
  std::map<std::string, Octets> made;
  using namespace wifi_profile::machine;
  for (const CapturedMessage& message : capturedMessages(kCapture)) {
    const Attributes all(message.attributes);
    const Attributes bss = all.nested(NL80211_ATTR_BSS);
    const auto capabilities = bss.number<std::uint16_t>(NL80211_BSS_CAPABILITY).value_or(0);
    const auto frequency = bss.number<std::uint32_t>(NL80211_BSS_FREQUENCY).value_or(0);
    for (const int kind : {NL80211_BSS_INFORMATION_ELEMENTS, NL80211_BSS_BEACON_IES}) {
      const auto elements = bss.find(kind);
      if (!elements) continue;
      made["captured-" + std::to_string(frequency) + "-" + std::to_string(elements->size())] =
          fuzzInput(capabilities, static_cast<int>(frequency), *elements);
    }
  }
  for (const Sample& sample : samples()) {
    made[sample.name] = fuzzInput(sample.capabilities, sample.frequency, sample.bytes());
  }
  return made;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: elements_corpus FOLDER\n");
    return 64;
  }
  for (const auto& [name, input] : inputs()) {
    std::ofstream file(std::string(arguments[1]) + "/" + name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(input.data()),
               static_cast<std::streamsize>(input.size()));
    file.close();
    if (!file) {
      std::fprintf(stderr, "elements_corpus: cannot write %s\n", name.c_str());
      return 74;
    }
  }
  return 0;
}
