// What a kernel really said, as the radio lab's scene "conversation" records it.
#pragma once

#include <string>
#include <vector>

#include "analysis/ieee80211/Beacons.h"

namespace wifi_profile::linux::netlink {

using ieee80211::Octets;

// One message of the generic family, such as nl80211's.
struct CapturedMessage {
  int command = 0;               // of nl80211
  ieee80211::Octets attributes;  // behind both headers
};

// Those to programs, in their order, out of a file that tcpdump wrote of an nlmon interface. Empty
// where there is no such file.
std::vector<CapturedMessage> capturedMessages(const std::string& file);

// Where the tests' recording is.
inline constexpr const char* kCapture =
    WIFI_PROFILE_SOURCE_DIR "/unittests/devices/linux/netlink/captures/conversation.pcap";

}  // namespace wifi_profile::linux::netlink
