// A user who does whatever can be done, and more.
#pragma once

#include <functional>
#include <string>

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "simulation/History.h"
#include "simulation/World.h"

namespace wifi_profile::simulation {

// Main thread only.
class User {
 public:
  // What the user is about to do.
  struct Intentions {
    std::function<void()> choose = [] {};   // a network
    std::function<void()> decline = [] {};  // to switch the radio on
    std::function<void()> startTheTests = [] {};
  };

  // All must outlive the user.
  User(World& world, History& history) : world_(world), history_(history) {}
  Intentions intentions;

  // One thing, by chance.
  void act(WiFiProfileViewController& controller);

  // One step towards the end of the run: answers what is asked, chooses a network if there is none
  // to look at, has the tests run. Whether there was anything to do.
  bool bringAboutTheEnd(WiFiProfileViewController& controller);

 private:
  void answer(toolkit::Alert& alert);
  void tap(toolkit::Alert& alert, const toolkit::AlertAction& action);
  void type(toolkit::Alert& alert, const std::string& text);
  void tap(toolkit::TableView& table, toolkit::IndexPath path);
  bool tapNext(WiFiProfileViewController& controller);
  std::string someText(WiFiProfileViewController& controller);

  World& world_;
  History& history_;
};

}  // namespace wifi_profile::simulation
