// Readers for each fact of a world, in three files: the air, the device, what it reaches.
#pragma once

#include <vector>

#include "checks/Facts.h"
#include "devices/scenario/ValueReader.h"

namespace wifi_profile::scenario {

// WorldAir.cpp
checks::Link readLink(const ValueReader& value);
checks::Scan readScan(const ValueReader& value);
std::vector<checks::ChannelSurvey> readSurveys(const ValueReader& value);
checks::Radio readRadio(const ValueReader& value);
checks::Regulatory readRegulatory(const ValueReader& value);

// WorldDevice.cpp
checks::Addresses readAddresses(const ValueReader& value);
checks::ActiveProfile readActiveProfile(const ValueReader& value);
std::vector<checks::SavedNetwork> readSavedNetworks(const ValueReader& value);
checks::SessionProxy readSessionProxy(const ValueReader& value);
checks::Bluetooth readBluetooth(const ValueReader& value);
checks::Coexistence readCoexistence(const ValueReader& value);

// WorldReach.cpp
checks::Pings readPings(const ValueReader& value);
checks::NameResolution readNameResolution(const ValueReader& value);
checks::PortalProbe readPortalProbe(const ValueReader& value);
checks::SiteReach readSiteReach(const ValueReader& value);
checks::SitePage readSitePage(const ValueReader& value);
checks::RouterOutside readRouterOutside(const ValueReader& value);

}  // namespace wifi_profile::scenario
