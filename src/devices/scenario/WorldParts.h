// Readers for each fact of a world, in three files: the air, the device, what it reaches.
#pragma once

#include <vector>

#include "analysis/facts/Facts.h"
#include "runtime/JsonFields.h"

namespace wifi_profile::scenario {

template <class T>
T readFact(const runtime::ValueReader& value);

// WorldAir.cpp
template <>
facts::Link readFact(const runtime::ValueReader& value);
template <>
facts::Scan readFact(const runtime::ValueReader& value);
template <>
std::vector<facts::ChannelSurvey> readFact(const runtime::ValueReader& value);
template <>
facts::Radio readFact(const runtime::ValueReader& value);
template <>
facts::Regulatory readFact(const runtime::ValueReader& value);

// WorldDevice.cpp
template <>
facts::Addresses readFact(const runtime::ValueReader& value);
template <>
facts::ActiveProfile readFact(const runtime::ValueReader& value);
template <>
std::vector<facts::SavedNetwork> readFact(const runtime::ValueReader& value);
template <>
facts::SessionProxy readFact(const runtime::ValueReader& value);
template <>
facts::Bluetooth readFact(const runtime::ValueReader& value);
template <>
facts::Coexistence readFact(const runtime::ValueReader& value);

// WorldReach.cpp
template <>
facts::Pings readFact(const runtime::ValueReader& value);
template <>
facts::NameResolution readFact(const runtime::ValueReader& value);
template <>
facts::PortalProbe readFact(const runtime::ValueReader& value);
template <>
facts::SiteReach readFact(const runtime::ValueReader& value);
template <>
facts::SitePage readFact(const runtime::ValueReader& value);
template <>
facts::RouterOutside readFact(const runtime::ValueReader& value);

}  // namespace wifi_profile::scenario
