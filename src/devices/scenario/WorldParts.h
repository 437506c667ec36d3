// Readers for each fact of a world, in three files: the air, the device, what it reaches.
#pragma once

#include <vector>

#include "analysis/facts/Facts.h"
#include "devices/scenario/ValueReader.h"

namespace wifi_profile::scenario {

// WorldAir.cpp
facts::Link readLink(const ValueReader& value);
facts::Scan readScan(const ValueReader& value);
std::vector<facts::ChannelSurvey> readSurveys(const ValueReader& value);
facts::Radio readRadio(const ValueReader& value);
facts::Regulatory readRegulatory(const ValueReader& value);

// WorldDevice.cpp
facts::Addresses readAddresses(const ValueReader& value);
facts::ActiveProfile readActiveProfile(const ValueReader& value);
std::vector<facts::SavedNetwork> readSavedNetworks(const ValueReader& value);
facts::SessionProxy readSessionProxy(const ValueReader& value);
facts::Bluetooth readBluetooth(const ValueReader& value);
facts::Coexistence readCoexistence(const ValueReader& value);

// WorldReach.cpp
facts::Pings readPings(const ValueReader& value);
facts::NameResolution readNameResolution(const ValueReader& value);
facts::PortalProbe readPortalProbe(const ValueReader& value);
facts::SiteReach readSiteReach(const ValueReader& value);
facts::SitePage readSitePage(const ValueReader& value);
facts::RouterOutside readRouterOutside(const ValueReader& value);

}  // namespace wifi_profile::scenario
