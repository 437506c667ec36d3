// Who finds the facts of this machine out.
#pragma once

#include <memory>
#include <vector>

#include "devices/linux/LinuxService.h"
#include "devices/linux/Machine.h"
#include "devices/linux/Targets.h"

namespace wifi_profile::machine {

// Any thread.
class MachineFacts final : public FactFinder {
 public:
  MachineFacts(std::shared_ptr<const Machine> machine, Targets targets);

  checks::Known<checks::Link> link(const Patience& patience) override;
  checks::Known<checks::Scan> scan(std::chrono::seconds oldest, const Patience& patience) override;
  std::vector<Errand> errands(std::chrono::seconds oldestScan) override;

 private:
  void addKernelErrands(std::vector<Errand>& all, std::chrono::seconds oldestScan);
  void addServiceErrands(std::vector<Errand>& all);
  Found findConnection(const Patience& patience);

  const std::shared_ptr<const Machine> machine_;
  const Targets targets_;
};

}  // namespace wifi_profile::machine
