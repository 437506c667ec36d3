// Finds the facts of this machine.
#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "devices/linux/LinuxService.h"
#include "devices/linux/Machine.h"
#include "devices/Targets.h"

namespace wifi_profile::linux {

class LinkWatch;

// Any thread.
class MachineFacts final : public FactFinder {
 public:
  MachineFacts(std::shared_ptr<const Machine> machine, devices::Targets targets);

  Result<facts::Link> link(const Patience& patience) override;
  Result<facts::Scan> scan(std::chrono::seconds oldest, const Patience& patience) override;
  std::vector<Errand> errands(std::chrono::seconds oldestScan) override;

 private:
  void addKernelErrands(std::vector<Errand>& all, std::chrono::seconds oldestScan,
                        const std::shared_ptr<LinkWatch>& watch);
  void addServiceErrands(std::vector<Errand>& all, const std::shared_ptr<LinkWatch>& watch);
  Found findConnection(const Patience& patience);
  // The survey at the run's start. Its task may be abandoned, and then end while another thread
  // reads the survey.
  struct FirstSurveys {
    using Surveys = Result<std::vector<facts::ChannelSurvey>>;
    std::mutex mutex;  // guards what follows
    Clock::time_point time;
    Surveys surveys = Error{Reason::tookTooLong,
                            "The first survey of the channels took too long: try again "
                            "in a while."};
  };
  void surveyFirst(FirstSurveys& first, const Patience& patience) const;
  // Waits until kBetweenSurveys after the first survey, and returns the difference between then and
  // now.
  FirstSurveys::Surveys surveysSince(FirstSurveys& first, const Patience& patience) const;

  const std::shared_ptr<const Machine> machine_;
  const devices::Targets targets_;
};

}  // namespace wifi_profile::linux
