// All facts that the checks read. The acquisition fills them in.
#pragma once

#include "analysis/facts/AirFacts.h"
#include "analysis/facts/DeviceFacts.h"
#include "analysis/facts/Known.h"
#include "analysis/facts/ReachFacts.h"

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
  Known<Link> link;
  Known<Scan> scan;
  Known<std::vector<ChannelSurvey>> surveys;
  Known<Radio> radio;
  Known<Regulatory> regulatory;
  Known<Addresses> addresses;
  Known<ActiveProfile> activeProfile;
  Known<std::vector<SavedNetwork>> savedNetworks;
  Known<SessionProxy> sessionProxy;
  Known<Bluetooth> bluetooth;
  Known<Coexistence> coexistence;
  Known<Pings> lanPings;
  Known<Pings> wanPings;
  Known<NameResolution> nameResolution;
  Known<PortalProbe> portalProbe;
  Known<SiteReach> siteReach;
  Known<SitePage> sitePage;
  Known<RouterOutside> routerOutside;

  bool operator==(const Facts&) const = default;
};

}  // namespace wifi_profile::facts
