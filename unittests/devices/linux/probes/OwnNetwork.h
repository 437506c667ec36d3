// Tests in a network of their own.
#pragma once

#include <functional>
#include <string>

namespace wifi_profile::linux::probes {

inline constexpr int kNotPossible = 77;

// Runs `test` in a process with a user and a network of its own, in which the loopback interface is
// the only one. Its status: 0 when `test` was true, kNotPossible where there are no user
// namespaces.
int inOwnNetwork(const std::function<bool()>& test);

// In such a network: gives the loopback interface another address of IPv4 or IPv6.
bool addAddress(const std::string& address);

bool writeFile(const char* path, const std::string& text);

}  // namespace wifi_profile::linux::probes
