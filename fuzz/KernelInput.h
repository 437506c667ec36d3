// What an input of fuzz_kernel looks like: one octet that says who reads the rest.
#pragma once

#include <cstdint>

namespace wifi_profile::machine {

enum class KernelInput : std::uint8_t { scanEntry, others, addresses, rfkill };
inline constexpr std::uint8_t kKernelInputs = 4;

}  // namespace wifi_profile::machine
