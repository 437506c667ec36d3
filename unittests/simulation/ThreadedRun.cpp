#include "runtime/ThreadRunLoop.h"
#include "simulation/Run.h"
#include "simulation/Stage.h"

namespace wifi_profile::simulation {
namespace {

constexpr std::int64_t kTimeDivisor = 20'000;  // a second becomes 50 microseconds

}  // namespace

Outcome playOnThreads(std::uint64_t seed) {
  World world(seed, kTimeDivisor);
  runtime::ThreadRunLoop loop;
  History history(true, [&loop] { return loop.onMainThread() ? "main        " : "background  "; });
  Stage(world, loop, history, false).play();
  return {history.violation(), history.lines()};
}

}  // namespace wifi_profile::simulation
