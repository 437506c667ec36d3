// One run: a world, a diagnostic in it, and everything that watches.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wifi_profile::simulation {

struct Outcome {
  std::optional<std::string> violation;  // the first one; nothing: none
  std::vector<std::string> history;      // empty when it was not to be kept
};

// In virtual time: the same seed gives the same history. With every check.
Outcome playInVirtualTime(std::uint64_t seed, bool keepHistory);

// On real threads: the seed decides what can happen, the machine in which order. With the checks
// that hold whatever the order is. Not in a build of the core alone.
Outcome playOnThreads(std::uint64_t seed);

}  // namespace wifi_profile::simulation
