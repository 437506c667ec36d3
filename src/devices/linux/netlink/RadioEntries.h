// The radio, its surveys and its rules as nl80211 tells them. Pure functions; any thread.
#pragma once

#include <optional>
#include <vector>

#include "checks/AirFacts.h"
#include "devices/linux/netlink/Attributes.h"
#include "devices/linux/netlink/Interfaces.h"

namespace wifi_profile::machine {

// Adds what one answer to NL80211_CMD_GET_WIPHY says: channels and ciphers. The kernel splits what
// it knows into many. Once all are in, `finishChannels` puts them in order, each once.
void addToRadio(const Attributes& attributes, checks::Radio& radio);
void finishChannels(checks::Radio& radio);

// The other interfaces of the same radio.
std::vector<checks::RadioInterface> interfacesBeside(const WifiInterface& inUse,
                                                     const std::vector<WifiInterface>& all);

// From an answer to NL80211_CMD_GET_SURVEY. Nothing without a frequency. Times that contradict each
// other (busier than it listened) are left out.
std::optional<checks::ChannelSurvey> surveyOf(const Attributes& attributes);

// What happened between two surveys of one radio: drivers count from when they were loaded, or from
// when they came to the channel. A channel whose times went back counts since then; one that the
// first survey lacks has no times.
std::vector<checks::ChannelSurvey> surveysBetween(const std::vector<checks::ChannelSurvey>& first,
                                                  std::vector<checks::ChannelSurvey> second);

// From the answer to NL80211_CMD_GET_REG: two capital letters, "00" or "98". Nothing for what is
// no country, such as the driver's own rules.
std::optional<checks::Regulatory> regulatoryOf(const Attributes& attributes);

}  // namespace wifi_profile::machine
