// Finds the facts of this machine.
#pragma once

#include <memory>
#include <vector>

#include "devices/Targets.h"
#include "devices/linux/LinuxService.h"
#include "devices/linux/WifiDevice.h"
#include "diagnostic/platform/Mutex.h"

namespace wifi_profile::linux {

class LinkWatch;

// Longest time for an answer of the services, which answer at once or hang. A run sends no packets
// through the link until the services have answered or this time has passed.
inline constexpr std::chrono::milliseconds kServicesLimit{1'400};

// Any thread.
class LinuxFacts final : public FactFinder {
 public:
  LinuxFacts(std::shared_ptr<const WifiDevice> machine, devices::Targets targets);

  Result<facts::Link> link(const Deadline& deadline) override;
  Result<facts::Scan> scan(std::chrono::seconds oldest, const Deadline& deadline) override;
  std::vector<FactTask> tasks(std::chrono::seconds oldestScan) override;

 private:
  void addKernelTasks(std::vector<FactTask>& all, std::chrono::seconds oldestScan,
                      const std::shared_ptr<LinkWatch>& watch);
  void addServiceTasks(std::vector<FactTask>& all, const std::shared_ptr<LinkWatch>& watch);
  Found findConnection(const Deadline& deadline);
  // The survey at the run's start. Its task may be abandoned, and then end while another thread
  // reads the survey.
  struct FirstSurveys {
    using Surveys = Result<std::vector<facts::ChannelSurvey>>;
    Mutex mutex;
    Clock::time_point time GUARDED_BY(mutex);
    Surveys surveys GUARDED_BY(mutex) = Error{
        Reason::tookTooLong,
        "The first survey of the channels took too long: try again "
        "in a while."};
  };
  void surveyFirst(FirstSurveys& first, const Deadline& deadline) const;
  // Waits until kBetweenSurveys after the first survey, and returns the difference between then and
  // now.
  FirstSurveys::Surveys surveysSince(FirstSurveys& first, const Deadline& deadline) const;

  const std::shared_ptr<const WifiDevice> device_;
  const devices::Targets targets_;
};

}  // namespace wifi_profile::linux
