// Whole runs of the project's scenarios against the records and traces that are kept beside them.
// After a change that is meant, write them anew: WIFI_PROFILE_WRITE_GOLDEN=1 wifi_profile_tests
// --gtest_filter='*Golden*', and read the difference.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>

#include "app/cli/ScenarioRun.h"
#include "runtime/ThreadRunLoop.h"

namespace wifi_profile::testing {
namespace {

struct GoldenRun {
  const char* name;
  const char* scenario;
  std::optional<std::string> networkName;
  bool pick = false;

  Wish wish() const {
    Wish made(networkName);
    made.pick = pick;
    if (pick) made.language = "en";  // in which the scripts tap an alert's actions
    return made;
  }
};

std::ostream& operator<<(std::ostream& out, const GoldenRun& run) { return out << run.name; }

const GoldenRun kRuns[] = {
    {"demo", "demo", std::nullopt},
    {"demo-cafe", "demo", "Café Linde"},
    {"demo-excluded-neighbour", "demo", "lab_NoMap"},
    {"healthy-office", "healthy-office", std::nullopt},
    {"captive-cafe", "captive-cafe", std::nullopt},
    {"nomap-home", "nomap-home", std::nullopt},
    {"nomap-home-and-another", "nomap-home", "Other"},
    {"not-joined", "not-joined", std::nullopt},
    {"not-joined-with-name", "not-joined", "Home"},
    {"failing-service", "failing-service", std::nullopt},
    {"failing-service-with-name", "failing-service", "Other"},
    {"interrupted", "interrupted", std::nullopt},
    {"demo-picked", "demo", std::nullopt, true},
    {"failing-service-picked", "failing-service", std::nullopt, true},
    {"pick-another", "pick-another", std::nullopt, true},
    {"pick-another-with-name", "pick-another", "Nordlicht", true},
    {"pick-typed", "pick-typed", std::nullopt, true},
    {"pick-rescan", "pick-rescan", std::nullopt, true},
    {"pick-radio-off-yes", "pick-radio-off-yes", std::nullopt, true},
    {"pick-radio-off-no", "pick-radio-off-no", std::nullopt, true},
    {"pick-radio-lost-in-list", "pick-radio-lost-in-list", std::nullopt, true},
    {"pick-radio-lost-in-run", "pick-radio-lost-in-run", std::nullopt, true},
    {"pick-no-radio", "pick-no-radio", std::nullopt, true},
    {"pick-no-manager", "pick-no-manager", std::nullopt, true},
    {"pick-no-device", "pick-no-device", std::nullopt, true},
    {"pick-nomap", "pick-nomap", std::nullopt, true},
};

class Golden : public ::testing::TestWithParam<GoldenRun> {
 protected:
  static std::string scenario() {
    return projectFile(std::string("scenarios/") + GetParam().scenario + ".json");
  }
  static void compare(const std::string& suffix, const std::string& found) {
    const std::string path = std::string("unittests/golden/") + GetParam().name + suffix;
    if (std::getenv("WIFI_PROFILE_WRITE_GOLDEN")) {
      if (!found.empty()) {
        std::ofstream(WIFI_PROFILE_SOURCE_DIR "/" + path, std::ios::binary) << found;
      }
      return;
    }
    if (found.empty()) {
      EXPECT_FALSE(std::filesystem::exists(WIFI_PROFILE_SOURCE_DIR "/" + path)) << path;
    } else {
      EXPECT_EQ(projectFile(path), found);
    }
  }
};

TEST_P(Golden, RecordAndTraceAreAsKept) {
  const ScenarioResult result = runInVirtualTime(scenario(), 0, GetParam().wish());
  compare(".record.json", result.record);
  compare(".trace.ndjson", result.trace);
}

TEST_P(Golden, OrderOfWorkDoesNotDependOnTheSeed) {
  const ScenarioResult first = runInVirtualTime(scenario(), 0, GetParam().wish());
  for (std::uint64_t seed = 1; seed <= 10; ++seed) {
    const ScenarioResult other = runInVirtualTime(scenario(), seed, GetParam().wish());
    EXPECT_EQ(first.trace, other.trace) << "seed " << seed;
    EXPECT_EQ(first.record, other.record) << "seed " << seed;
  }
}

TEST_P(Golden, ThreadsGiveTheSameTraceAsVirtualTime) {
  // In real time, with the scenario's own waits made short.
  static const std::regex kWait(R"re("(delay|wait)":\s*[0-9.]*[1-9][0-9.]*)re");
  const std::string shortened = std::regex_replace(scenario(), kWait, "\"$1\":0.001");
  runtime::ThreadRunLoop threads;
  const ScenarioResult onThreads = runScenario(shortened, threads, GetParam().wish());
  const ScenarioResult inVirtualTime = runInVirtualTime(shortened, 0, GetParam().wish());
  EXPECT_EQ(onThreads.trace, inVirtualTime.trace);
  EXPECT_EQ(onThreads.record, inVirtualTime.record);
}

INSTANTIATE_TEST_SUITE_P(Scenarios, Golden, ::testing::ValuesIn(kRuns), [](const auto& test) {
  std::string name = test.param.name;
  for (char& c : name) c = c == '-' ? '_' : c;
  return name;
});

}  // namespace
}  // namespace wifi_profile::testing
