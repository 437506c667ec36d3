// All facts that the checks read. The acquisition fills them in.
#pragma once

#include "analysis/facts/AirFacts.h"
#include "analysis/facts/DeviceFacts.h"
#include "analysis/facts/ReachFacts.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::facts {

// The names of the facts. A check lists the facts that it needs; other facts need not be acquired.
enum class Fact {
  link,
  scan,
  surveys,
  radio,
  regulatory,
  addresses,
  activeProfile,
  savedNetworks,
  sessionProxy,
  bluetooth,
  coexistence,
  lanPings,
  wanPings,
  nameResolution,
  portalProbe,
  siteReach,
  sitePage,
  routerOutside,
};
inline constexpr int kFactCount = 18;

struct Facts {
  Result<Link> link;
  Result<Scan> scan;
  Result<std::vector<ChannelSurvey>> surveys;
  Result<Radio> radio;
  Result<Regulatory> regulatory;
  Result<Addresses> addresses;
  Result<ActiveProfile> activeProfile;
  Result<std::vector<SavedNetwork>> savedNetworks;
  Result<SessionProxy> sessionProxy;
  Result<Bluetooth> bluetooth;
  Result<Coexistence> coexistence;
  Result<Pings> lanPings;
  Result<Pings> wanPings;
  Result<NameResolution> nameResolution;
  Result<PortalProbe> portalProbe;
  Result<SiteReach> siteReach;
  Result<SitePage> sitePage;
  Result<RouterOutside> routerOutside;

  bool operator==(const Facts&) const = default;
};

}  // namespace wifi_profile::facts
