// Parses nl80211's answers about the radio, its surveys and its regulatory rules. Pure functions;
// any thread.
#pragma once

#include <optional>
#include <vector>

#include "analysis/facts/AirFacts.h"
#include "devices/linux/netlink/Attributes.h"
#include "devices/linux/netlink/Interfaces.h"

namespace wifi_profile::linux::netlink {

// Adds the channels and ciphers from one answer to NL80211_CMD_GET_WIPHY; the kernel splits its
// data into many answers. Call `finishChannels` after the last one: it sorts the channels and
// removes duplicates.
void addToRadio(const Attributes& attributes, facts::Radio& radio);
void finishChannels(facts::Radio& radio);

// Returns the other interfaces of the same radio.
std::vector<facts::RadioInterface> interfacesBeside(const WifiInterface& inUse,
                                                    const std::vector<WifiInterface>& all);

// Parses an answer to NL80211_CMD_GET_SURVEY. Empty without a frequency. Times that contradict each
// other (more time busy than listening) are left out.
std::optional<facts::ChannelSurvey> surveyOf(const Attributes& attributes);

// Returns the times that passed between two surveys of one radio: drivers count from when they were
// loaded, or from when they came to the channel. If a channel's times went back, the second
// survey's are kept: the driver started anew. A channel that the first survey lacks has no times.
std::vector<facts::ChannelSurvey> surveysBetween(const std::vector<facts::ChannelSurvey>& first,
                                                 std::vector<facts::ChannelSurvey> second);

// Parses the answer to NL80211_CMD_GET_REG: two capital letters, "00" or "98". Empty for rules that
// are not a country's, such as the driver's own.
std::optional<facts::Regulatory> regulatoryOf(const Attributes& attributes);

}  // namespace wifi_profile::linux::netlink
