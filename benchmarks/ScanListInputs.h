// Scans to measure with: the same for the same seed, on every machine.
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/DiagnosticsService.h"

namespace wifi_profile {

// The air around a device. Of a scan's results 5 % have no name and 35 % repeat the name of another
// one; the names are of routers as they come, of families, of cafés and of phones, of several
// lengths, in mixed case, some with accents and a few in other scripts.
class Neighbourhood {
 public:
  // `size`: the results of one scan.
  Neighbourhood(std::size_t size, unsigned seed);

  // A scan's results in no order. All objects are new, and the strengths are new.
  ArrayRef scan();

  // A fifth of the names goes, and as many new ones come.
  void change();

  // The device is joined to the first name's network.
  VqWiFiStatusRef status() const;

 private:
  std::size_t upTo(std::size_t end) { return static_cast<std::size_t>(random_() % end); }
  std::string newName();

  std::size_t size_;
  std::mt19937_64 random_;
  std::size_t made_ = 0;  // names so far
  std::vector<std::string> names_;
};

}  // namespace wifi_profile
