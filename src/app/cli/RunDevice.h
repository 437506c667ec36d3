// The device of a run.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "devices/scenario/ScenarioDevice.h"

namespace wifi_profile::cli {

class RunDevice : public Interface {
 public:
  virtual devices::DeviceBackEnds backEnds() const = 0;

  // Returns the address of the page that the device tries to reach; empty: unknown.
  virtual std::string site() const { return {}; }

  // Ends all measurements. Called when the host tears the run down.
  virtual void close() {}

  // Returns the steps of the scripted user; empty: there is none. A device that returns steps
  // implements the two functions below.
  virtual std::vector<scenario::Step> userSteps() const { return {}; }

  // Sets a function that is called while a test is served, on the thread of the request. Call this
  // before the first request.
  virtual void setWhileServing(std::function<void(DiagnosticsTestID)> /*whileServing*/) {}

  // Switches the radio like another program.
  virtual void switchPower(bool /*on*/) {}
};

// Makes the device of a run. `pace` must outlive it.
using MakeDevice = std::function<std::unique_ptr<RunDevice>(Pace& pace)>;

// A scenario's device, with its user. `pace` must outlive it.
class ScenarioRunDevice : public RunDevice {
 public:
  ScenarioRunDevice(const scenario::Scenario& scenario, Pace& pace)
      : device_(scenario, pace), user_(scenario.user.value_or(std::vector<scenario::Step>())) {}

  devices::DeviceBackEnds backEnds() const override { return device_.backEnds(); }
  std::vector<scenario::Step> userSteps() const override { return user_; }
  void setWhileServing(std::function<void(DiagnosticsTestID)> whileServing) override {
    device_.service->setWhileServing(std::move(whileServing));
  }
  void switchPower(bool on) override { device_.radio->switchFromOutside(on); }

 private:
  const scenario::ScenarioDevice device_;
  const std::vector<scenario::Step> user_;
};

}  // namespace wifi_profile::cli
