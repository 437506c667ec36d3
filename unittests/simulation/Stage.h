// Where a run is played: the diagnostic among its simulated surroundings.
#pragma once

#include <atomic>
#include <memory>

#include "diagnostic/platform/DeviceCapability.h"
#include "diagnostic/platform/DiagnosticLog.h"
#include "diagnostic/platform/DiagnosticsSupport.h"
#include "diagnostic/platform/NameCollator.h"
#include "diagnostic/platform/StringTable.h"
#include "runtime/RunLoop.h"
#include "simulation/HostWatch.h"
#include "simulation/ListWatch.h"
#include "simulation/SimulatedRadio.h"
#include "simulation/SimulatedService.h"
#include "simulation/User.h"
#include "simulation/WatchedQueues.h"
#include "simulation/WatchingScreen.h"

namespace wifi_profile::simulation {

// Main thread. One at a time in a process.
class Stage {
 public:
  // All must outlive the stage. `ordered`: no two threads run side by side, so that what is checked
  // between two pieces of work stands still.
  Stage(World& world, runtime::RunLoop& loop, History& history, bool ordered);
  ~Stage();
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  // Plays the run to its end and checks what is left of it.
  void play();

 private:
  // The smaller things of the platform.
  struct Surroundings;

  void start();
  void takeSteps();
  void takeStep();
  void bringAboutTheEnd();
  void tearDown();
  void dropController();
  void powerWasTold(bool on);
  void checkAfterWork(bool onMain);
  void checkTestsWereRun();
  void checkAtRest();
  void checkProgress(const WiFiProfileViewController& controller);

  World& world_;
  runtime::RunLoop& loop_;
  History& history_;
  const bool ordered_;
  const std::shared_ptr<WatchedQueues> queues_;
  const std::shared_ptr<SimulatedService> service_;
  const std::shared_ptr<SimulatedRadio> radio_;
  ListWatch list_;
  const std::shared_ptr<WatchingScreen> screen_;
  const std::shared_ptr<HostWatch> host_;
  User user_;
  const std::unique_ptr<Surroundings> surroundings_;
  std::shared_ptr<WiFiProfileViewController> controller_;  // the host's reference
  std::weak_ptr<WiFiProfileViewController> anyController_;
  bool tornDown_ = false;
};

}  // namespace wifi_profile::simulation
