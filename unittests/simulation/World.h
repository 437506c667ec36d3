// What a seed makes of a run: the device, its surroundings and the temper of its user.
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/DiagnosticsService.h"
#include "simulation/Random.h"

namespace wifi_profile::simulation {

// How the radio answers when it is asked to come on.
enum class PowerOn { comesOn, comesOnLate, staysOffSilently, saysItStaysOff };

class World {
 public:
  World(std::uint64_t seed, std::int64_t timeDivisor);

  // Any thread.
  Random random;

  // By how much shorter every wait is than in virtual time.
  std::int64_t timeDivisor() const { return timeDivisor_; }

  // --- Decided once

  bool list;                        // the input: a list to choose from
  std::optional<std::string> name;  // the input: a network to look at
  bool hasRadio;
  bool makesManager;
  bool makesDeviceList;
  std::size_t devices;
  bool powerAtStart;
  PowerOn powerOn;
  int capability;
  std::size_t longestWait;  // of a request, in milliseconds
  std::size_t steps;        // of the user and the surroundings, before the end is brought about
  bool tapsNext;
  bool touchesRadio;
  bool tearsDown;
  bool dropsController;
  bool moves;       // joins, roams, leaves
  bool odd;         // the service may answer with nonsense and errors
  bool oddStation;  // access points may change their names

  // --- As it goes. Any thread.

  // A wait that fits in the run: often none, at most `milliseconds`.
  std::chrono::nanoseconds someTime(std::size_t milliseconds);

  // The device joins another access point, or none.
  void move();

  VqStatus status();
  // What a scan hears now.
  ArrayRef scan();

  // A name of the small pool that all names come from.
  const std::string& someName();

 private:
  struct AccessPoint {
    TextRef name;
    TextRef address;
  };
  static constexpr std::size_t kAccessPoints = 9;

  const std::int64_t timeDivisor_;
  std::vector<AccessPoint> accessPoints_;
  std::atomic<std::size_t> joined_;  // kAccessPoints: none
};

}  // namespace wifi_profile::simulation
