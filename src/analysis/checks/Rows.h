// The rows of the table. Each function is in the file of its name.
#pragma once

#include <span>

#include "analysis/checks/Checks.h"

namespace wifi_profile::checks {

std::span<const Check> reachChecks();
std::span<const Check> deviceChecks();
std::span<const Check> congestionChecks();
std::span<const Check> radioChecks();
std::span<const Check> scanChecks();
std::span<const Check> securityChecks();
std::span<const Check> identityChecks();
std::span<const Check> savedNetworkChecks();

}  // namespace wifi_profile::checks
