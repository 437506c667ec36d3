// A device on paper: how it is made, what its service answers, and what its user does.
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "devices/scenario/World.h"
#include "platform/DiagnosticsService.h"

namespace wifi_profile::scenario {

struct DeviceSettings {
  bool radio = true;    // the device contains a Wi-Fi radio
  bool manager = true;  // creating a manager client gives a handle
  std::vector<std::string> interfaces{"wlan0"};
  bool power = true;            // the radio's state at the start
  bool powerOnSucceeds = true;  // a request to switch the radio on is followed by a notification
  bool wlanWording = false;     // says WLAN where others say Wi-Fi
  bool testAutomation = false;  // runs under the automation harness
};

// One answer to the status query.
struct StatusAnswer {
  TextRef ssid;  // nil: not joined
  TextRef bssid;
  VqErrorRef error;  // nil: none
};

// Which requests an answer is for, by the "NetworkName" of their configuration.
struct When {
  TextRef networkName;  // nil: those that have none
};

// One answer to requests of one test.
struct Answer {
  std::optional<When> when;           // nothing: every request
  std::optional<std::int64_t> times;  // how many requests it serves, at least 1; nothing: no limit
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

// One thing that the user, or the world, does.
struct Step {
  Action action;
  std::string text;                             // of tapNetwork, type, tapAction
  std::int64_t section = 0;                     // of tapRow, scrollAway
  std::int64_t row = 0;                         // of tapRow
  bool on = false;                              // of setPower
  std::chrono::nanoseconds time{0};             // of wait
  std::optional<DiagnosticsTestID> duringTest;  // done while that test's next request is served
};

struct Scenario {
  std::string description;
  DeviceSettings device;
  // At least one; the last one repeats. Without any of its own: that of the world's link.
  std::vector<StatusAnswer> status{StatusAnswer{}};
  std::map<DiagnosticsTestID, std::vector<Answer>> answers;
  std::optional<World> world;             // answers what `answers` does not
  std::optional<std::vector<Step>> user;  // nothing: no script; an empty one is a script, too
};

// Longest `delay` and `wait`, in seconds.
inline constexpr double kLongestTime = 1'000'000;

}  // namespace wifi_profile::scenario
