// Runs of the diagnostic in a window, with a person who does one thing after another.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/cli/ScenarioRun.h"
#include "app/window/Hand.h"
#include "app/window/WindowScreen.h"
#include "devices/scenario/Scenario.h"

namespace wifi_profile::testing {

// Something that a person does, once it can be done.
struct Deed {
  std::string name;                                  // for the message when it never can
  std::function<bool(window::WindowScreen&)> tryIt;  // whether it was done; tried again and again
};

struct WindowResult {
  ScenarioResult run;
  std::string stuckAt;  // the deed that could not be done in time; empty: none
};

// Runs the scenario in `screen`'s window. `deeds` are done in their order, each when it can be; a
// deed that cannot be done in half a minute ends the run.
WindowResult runInWindow(const std::string& json,
                         const std::shared_ptr<window::WindowScreen>& screen,
                         std::vector<Deed> deeds, const Wish& wish);

// What a scenario's own user does, with a hand. What the world does is left to the run.
std::vector<Deed> deedsOf(const scenario::Scenario& scenario, HandKind kind);

// Handles events until `done`, at most half a minute. Whether it came to be.
bool waitUntil(const std::function<bool()>& done);

// Whether nothing on the page moves: asked again and again.
bool isAtRest(window::WindowScreen& screen);

// Warnings that Qt and the window's own files gave since the last call.
std::vector<std::string> takeWarnings();

}  // namespace wifi_profile::testing
