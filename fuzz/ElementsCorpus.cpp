// Writes the beacons of the tests into a folder, as inputs of fuzz_elements.
//   elements_corpus FOLDER

#include <cstdio>
#include <fstream>

#include "ElementsInput.h"
#include "ieee80211/Beacons.h"

using namespace wifi_profile::ieee80211;

int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: elements_corpus FOLDER\n");
    return 64;
  }
  for (const Sample& sample : samples()) {
    const auto input = fuzzInput(sample.capabilities, sample.frequency, sample.bytes());
    std::ofstream file(std::string(arguments[1]) + "/" + sample.name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(input.data()),
               static_cast<std::streamsize>(input.size()));
    file.close();
    if (!file) {
      std::fprintf(stderr, "elements_corpus: cannot write %s\n", sample.name.c_str());
      return 74;
    }
  }
  return 0;
}
