// Reads the content of a D-Bus message.
#pragma once

#include <optional>
#include <vector>

#include "devices/linux/bus/BusValue.h"

namespace sdbus {
class Message;
}

namespace wifi_profile::linux::bus {

inline constexpr std::size_t kLongestBusText = 4096;  // bytes; a longer text becomes an empty value

// Reads all values of the message, from its beginning. Returns an empty optional if they are nested
// more than 16 deep or exceed 4 MiB; each value counts 32 bytes plus its own bytes. If a map has a
// key twice, the last one counts; a numeric key becomes its decimal text. Descriptors are closed
// and become empty values. Throws sdbus::Error if the message is damaged.
std::optional<std::vector<BusValue>> readMessage(sdbus::Message& message);

}  // namespace wifi_profile::linux::bus
