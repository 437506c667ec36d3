// Plays random users, services and radios against the diagnostic. README.md says how to use it.

#include <csignal>
#include <cstdio>
#include <unistd.h>

#include "simulation/Arguments.h"
#include "simulation/Run.h"

#ifdef WIFI_PROFILE_SANITIZED
#include <sanitizer/common_interface_defs.h>
#endif

namespace wifi_profile::simulation {
namespace {

constexpr int kUsageError = 64;
constexpr std::size_t kLastLines = 60;

char seedLine[64];  // of the run being played, ready for a process that is about to die

void writeSeed() { (void)!write(STDERR_FILENO, seedLine, sizeof seedLine); }
void aborted(int /*signal*/) { writeSeed(); }

void rememberSeed(std::uint64_t seed) {
  const int length = std::snprintf(seedLine, sizeof seedLine, "seed %llu: the process ends here",
                                   static_cast<unsigned long long>(seed));
  for (auto i = static_cast<std::size_t>(length); i < sizeof seedLine; ++i) {
    seedLine[i] = i + 1 < sizeof seedLine ? ' ' : '\n';
  }
}

void print(const std::vector<std::string>& history, std::size_t most) {
  const std::size_t left = history.size() > most ? history.size() - most : 0;
  if (left > 0) std::printf("  (%zu lines before)\n", left);
  for (std::size_t i = left; i < history.size(); ++i) std::printf("  %s\n", history[i].c_str());
}

Outcome play(const Arguments& arguments, std::uint64_t seed) {
#ifdef WIFI_PROFILE_SIMULATION_THREADS
  if (arguments.threads) return playOnThreads(seed);
#endif
  Outcome outcome = playInVirtualTime(seed, arguments.verbose || arguments.twice);
  if (arguments.twice && playInVirtualTime(seed, true).history != outcome.history) {
    outcome.violation = "a second run with this seed went another way";
  }
  // A run can be played again, so that only one that went wrong needs its history.
  if (outcome.violation && outcome.history.empty()) {
    outcome.history = playInVirtualTime(seed, true).history;
  }
  return outcome;
}

int playAll(const Arguments& arguments) {
  std::signal(SIGABRT, aborted);
#ifdef WIFI_PROFILE_SANITIZED
  __sanitizer_set_death_callback(writeSeed);
#endif
  for (std::uint64_t run = 0; run < arguments.runs; ++run) {
    const std::uint64_t seed = arguments.seed + run;
    rememberSeed(seed);
    const Outcome outcome = play(arguments, seed);
    if (arguments.verbose) print(outcome.history, outcome.history.size());
    if (!outcome.violation) continue;
    std::printf("seed %llu: %s\n", static_cast<unsigned long long>(seed),
                outcome.violation->c_str());
    if (!arguments.verbose) print(outcome.history, kLastLines);
    return 1;
  }
  std::printf("%llu runs, nothing violated\n", static_cast<unsigned long long>(arguments.runs));
  return 0;
}

}  // namespace
}  // namespace wifi_profile::simulation

int main(int count, char** values) {
  using namespace wifi_profile::simulation;
  const auto arguments = readArguments({values + 1, values + count});
  const auto* problem = std::get_if<std::string>(&arguments);
  std::string text = problem ? *problem : "";
#ifndef WIFI_PROFILE_SIMULATION_THREADS
  if (!problem && std::get<Arguments>(arguments).threads) {
    text = "found --threads, expected a build that has threads";
  }
#endif
  if (text.empty()) return playAll(std::get<Arguments>(arguments));
  std::fprintf(stderr, "simulation: %s\n", text.c_str());
  return kUsageError;
}
