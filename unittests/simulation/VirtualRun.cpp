#include <cstdio>

#include "runtime/VirtualTimeRunLoop.h"
#include "simulation/Run.h"
#include "simulation/Stage.h"

namespace wifi_profile::simulation {
namespace {

std::string timeAndThread(const runtime::VirtualTimeRunLoop& loop) {
  char text[48];
  std::snprintf(text, sizeof text, "%14.9f s  %s ",
                std::chrono::duration<double>(loop.now()).count(),
                loop.onMainThread() ? "main      " : "background");
  return text;
}

}  // namespace

Outcome playInVirtualTime(std::uint64_t seed, bool keepHistory) {
  World world(seed, 1);
  // Some runs take the main queue first and everything else in the order of coming.
  runtime::VirtualTimeRunLoop loop(world.random.oneIn(8) ? 0 : world.random.next());
  History history(keepHistory, [&loop] { return timeAndThread(loop); });
  Stage(world, loop, history, true).play();
  return {history.violation(), history.lines()};
}

}  // namespace wifi_profile::simulation
