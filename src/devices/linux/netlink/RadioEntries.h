// Parses nl80211's answers about the radio, its surveys and its regulatory rules. Pure functions;
// any thread.
#pragma once

#include <optional>
#include <vector>

#include "checks/AirFacts.h"
#include "devices/linux/netlink/Attributes.h"
#include "devices/linux/netlink/Interfaces.h"

namespace wifi_profile::machine {

// Adds the channels and ciphers from one answer to NL80211_CMD_GET_WIPHY; the kernel splits its
// data into many answers. Call `finishChannels` after the last one: it sorts the channels and
// removes duplicates.
void addToRadio(const Attributes& attributes, checks::Radio& radio);
void finishChannels(checks::Radio& radio);

// Returns the other interfaces of the same radio.
std::vector<checks::RadioInterface> interfacesBeside(const WifiInterface& inUse,
                                                     const std::vector<WifiInterface>& all);

// Parses an answer to NL80211_CMD_GET_SURVEY. Empty without a frequency. Times that contradict each
// other (more time busy than listening) are left out.
std::optional<checks::ChannelSurvey> surveyOf(const Attributes& attributes);

// Returns the times that passed between two surveys of one radio: drivers count from when they were
// loaded, or from when they came to the channel. If a channel's times went back, the second
// survey's are kept: the driver started anew. A channel that the first survey lacks has no times.
std::vector<checks::ChannelSurvey> surveysBetween(const std::vector<checks::ChannelSurvey>& first,
                                                  std::vector<checks::ChannelSurvey> second);

// Parses the answer to NL80211_CMD_GET_REG: two capital letters, "00" or "98". Empty for rules that
// are not a country's, such as the driver's own.
std::optional<checks::Regulatory> regulatoryOf(const Attributes& attributes);

}  // namespace wifi_profile::machine
