// The command line of the simulation.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace wifi_profile::simulation {

struct Arguments {
  std::uint64_t runs = 1000;
  std::uint64_t seed = 1;  // of the first run; the next one has the next
  bool verbose = false;    // prints every run's whole history
  bool twice = false;      // plays every run twice and compares the histories
  bool threads = false;    // on real threads
};

// The arguments after the program's name, or what is wrong with them.
std::variant<Arguments, std::string> readArguments(const std::vector<std::string>& given);

}  // namespace wifi_profile::simulation
