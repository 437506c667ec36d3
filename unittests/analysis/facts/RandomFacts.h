// Facts that no device has, within what their types promise.
#pragma once

#include <functional>
#include <random>

#include "analysis/checks/Settings.h"
#include "analysis/facts/Facts.h"
#include "diagnostic/platform/Text.h"

namespace wifi_profile::facts {

// A few names and addresses come again and again, so that they meet.
Facts randomFacts(std::mt19937& random);
checks::Settings randomSettings(std::mt19937& random);
TextRef randomQuestionName(std::mt19937& random);

// Makes those facts unknown for which `isForgotten` says so.
void forget(Facts& facts, const std::function<bool(Fact)>& isForgotten);

}  // namespace wifi_profile::facts
