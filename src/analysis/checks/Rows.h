// The rows of the table; each function is in the file of its subject.
#pragma once

#include <span>

#include "analysis/checks/Checks.h"

namespace wifi_profile::checks {

std::span<const Check> reachRows();
std::span<const Check> deviceRows();
std::span<const Check> congestionRows();
std::span<const Check> radioRows();
std::span<const Check> scanRows();
std::span<const Check> securityRows();
std::span<const Check> identityRows();
std::span<const Check> savedNetworkRows();

}  // namespace wifi_profile::checks
