// The content of a message as values.
#pragma once

#include <optional>
#include <vector>

#include "devices/linux/bus/BusValue.h"

namespace sdbus {
class Message;
}

namespace wifi_profile::machine {

inline constexpr std::size_t kLongestBusText = 4096;  // bytes; longer ones become nothing

// Reads all values of the message, from its beginning. Nothing where they are nested more than 16
// deep, or are too many: each counts 32 bytes, and each of their bytes counts, up to 4 MiB. Of the
// keys of a map that stand there twice the last one counts; a key that is a number becomes its
// decimal text. Descriptors are closed and become nothing. Throws sdbus::Error where the message
// is damaged.
std::optional<std::vector<BusValue>> readMessage(sdbus::Message& message);

}  // namespace wifi_profile::machine
