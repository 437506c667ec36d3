// A simulated device: its hardware, the answers of its service, and the actions of its user.
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "devices/scenario/World.h"
#include "diagnostic/platform/DiagnosticsService.h"

namespace wifi_profile::scenario {

struct DeviceSettings {
  bool radio = true;    // the device contains a Wi-Fi radio
  bool manager = true;  // creating a manager client returns a handle
  std::vector<std::string> interfaces{"wlan0"};
  bool power = true;            // the initial state of the radio
  bool powerOnSucceeds = true;  // a request to switch the radio on is followed by a notification
  bool wlanWording = false;     // says WLAN instead of Wi-Fi
  bool testAutomation = false;  // runs under the automation harness
};

// One answer to the status query.
struct StatusAnswer {
  TextRef ssid;  // nil: not joined
  TextRef bssid;
  VqErrorRef error;  // nil: none
};

// The requests that an answer is for, by the "NetworkName" of their configuration.
struct When {
  TextRef networkName;  // nil: requests without a name
};

// One answer to requests for one test.
struct Answer {
  std::optional<When> when;           // empty: every request
  std::optional<std::int64_t> times;  // number of requests it serves, at least 1; empty: no limit
  VqErrorRef error;
  DiagnosticsTestResults results;
  std::chrono::nanoseconds delay{0};
};

enum class Action {
  tapNetwork,
  tapRow,
  tapOther,
  type,
  tapAction,
  tapNext,
  pullToRefresh,
  setPower,
  scrollAway,
  teardown,
  wait,
};

// One action of the user or the environment.
struct Step {
  Action action;
  std::string text;                             // for tapNetwork, type, tapAction
  std::int64_t section = 0;                     // for tapRow, scrollAway
  std::int64_t row = 0;                         // for tapRow
  bool on = false;                              // for setPower
  std::chrono::nanoseconds time{0};             // for wait
  std::optional<DiagnosticsTestID> duringTest;  // done while its next request is served
};

struct Scenario {
  std::string description;
  DeviceSettings device;
  // At least one; the last one repeats. The default is one: the world's link, or not joined.
  std::vector<StatusAnswer> status{StatusAnswer{}};
  std::map<DiagnosticsTestID, std::vector<Answer>> answers;
  std::optional<World> world;             // answers requests for which `answers` has no answer
  std::optional<std::vector<Step>> user;  // empty: no script; an empty list is a script
};

// The longest `delay` and `wait`, in seconds.
inline constexpr double kLongestTime = 1'000'000;

}  // namespace wifi_profile::scenario
