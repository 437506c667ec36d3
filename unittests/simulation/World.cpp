#include "simulation/World.h"

#include <array>

#include "diagnostic/platform/Number.h"

namespace wifi_profile::simulation {
namespace {

const std::array<std::string, 10> kNames = {"Home", "home",       "HOME",        "Cafe",     "cafe",
                                            "Zoo",  "Cafe_nomap", "B\xC3\xBCro", "\xFF\xFE", ""};
constexpr std::array<std::int64_t, 4> kStrengths = {-80, -60, -60, -40};

std::string addressOf(std::size_t number) { return "02:00:00:00:00:0" + std::to_string(number); }

}  // namespace

World::World(std::uint64_t seed, std::int64_t timeDivisor)
    : random(seed),
      list(!random.oneIn(10)),
      hasRadio(!random.oneIn(40)),
      makesManager(!random.oneIn(40)),
      makesDeviceList(!random.oneIn(40)),
      devices(random.oneIn(30) ? 0 : 1 + random.below(2)),
      powerAtStart(!random.oneIn(5)),
      powerOn(static_cast<PowerOn>(random.below(4))),
      capability(static_cast<int>(random.below(4))),
      longestWait(random.oneIn(4) ? 0 : 1 + random.below(3000)),
      steps(2 + random.below(24)),
      tapsNext(random.oneIn(8)),
      touchesRadio(random.oneIn(5)),
      tearsDown(random.oneIn(10)),
      dropsController(random.oneIn(20)),
      moves(random.oneIn(3)),
      odd(random.oneIn(3)),
      oddStation(random.oneIn(8)),
      timeDivisor_(timeDivisor),
      joined_(random.oneIn(4) ? kAccessPoints : random.below(kAccessPoints)) {
  if (random.oneIn(3)) name = someName();
  for (std::size_t i = 0; i < kAccessPoints; ++i) {
    accessPoints_.push_back(
        {random.oneIn(10) ? nullptr : makeText(someName()), makeText(addressOf(i))});
  }
}

const std::string& World::someName() { return random.pick(kNames); }

std::chrono::nanoseconds World::someTime(std::size_t milliseconds) {
  if (milliseconds == 0 || random.oneIn(3)) return std::chrono::nanoseconds(0);
  const std::chrono::nanoseconds time = std::chrono::milliseconds(random.below(milliseconds)) +
                                        std::chrono::nanoseconds(random.below(1000));
  return time / timeDivisor_;
}

void World::move() { joined_ = random.oneIn(3) ? kAccessPoints : random.below(kAccessPoints); }

VqStatus World::status() {
  const std::size_t joined = joined_;
  VqWiFiStatus wifi;
  if (joined < kAccessPoints) {
    wifi = {accessPoints_[joined].name, accessPoints_[joined].address};
    // The address of an access point with another name, or none at all.
    if (oddStation && random.oneIn(4)) wifi.bssid = random.pick(accessPoints_).address;
    if (oddStation && random.oneIn(8)) wifi.bssid = nullptr;
  }
  if (odd && random.oneIn(10)) return {nullptr};
  return {std::make_shared<const VqWiFiStatus>(wifi)};
}

ArrayRef World::scan() {
  std::vector<ObjectRef> heard;
  const std::size_t most = random.below(2 * kAccessPoints);
  for (std::size_t i = 0; i < most; ++i) {
    const AccessPoint& one = random.pick(accessPoints_);
    TextRef shownName = one.name;
    if (oddStation && random.oneIn(6)) shownName = makeText(someName());
    TextRef address = one.address;
    if (odd && random.oneIn(20)) address = nullptr;
    if (odd && random.oneIn(20)) {
      heard.push_back(random.oneIn(2) ? nullPlaceholder() : Number::withInteger(1));
    }
    heard.push_back(
        std::make_shared<const VqWiFiScanResult>(shownName, address, random.pick(kStrengths)));
  }
  return std::make_shared<const Array>(std::move(heard));
}

}  // namespace wifi_profile::simulation
