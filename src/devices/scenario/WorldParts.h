// Readers for each fact of a world, in three files: the air, the device, what it reaches.
#pragma once

#include <vector>

#include "analysis/facts/Facts.h"
#include "devices/scenario/ValueReader.h"

namespace wifi_profile::scenario {

template <class T>
T readFact(const ValueReader& value);

// WorldAir.cpp
template <>
facts::Link readFact(const ValueReader& value);
template <>
facts::Scan readFact(const ValueReader& value);
template <>
std::vector<facts::ChannelSurvey> readFact(const ValueReader& value);
template <>
facts::Radio readFact(const ValueReader& value);
template <>
facts::Regulatory readFact(const ValueReader& value);

// WorldDevice.cpp
template <>
facts::Addresses readFact(const ValueReader& value);
template <>
facts::ActiveProfile readFact(const ValueReader& value);
template <>
std::vector<facts::SavedNetwork> readFact(const ValueReader& value);
template <>
facts::SessionProxy readFact(const ValueReader& value);
template <>
facts::Bluetooth readFact(const ValueReader& value);
template <>
facts::Coexistence readFact(const ValueReader& value);

// WorldReach.cpp
template <>
facts::Pings readFact(const ValueReader& value);
template <>
facts::NameResolution readFact(const ValueReader& value);
template <>
facts::PortalProbe readFact(const ValueReader& value);
template <>
facts::SiteReach readFact(const ValueReader& value);
template <>
facts::SitePage readFact(const ValueReader& value);
template <>
facts::RouterOutside readFact(const ValueReader& value);

}  // namespace wifi_profile::scenario
