// All facts that the checks read. The acquisition fills them in.
#pragma once

#include <string_view>
#include <vector>

#include "analysis/facts/AirFacts.h"
#include "analysis/facts/DeviceFacts.h"
#include "analysis/facts/ReachFacts.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::facts {

// All facts: the name, the type of the value, and the question that it answers. A check lists the
// facts that it needs; other facts need not be acquired.
#define WIFI_PROFILE_FACTS(FACT)                                                       \
  FACT(link, Link, "which network the device is joined to")                            \
  FACT(scan, Scan, "which access points are in range")                                 \
  FACT(surveys, std::vector<ChannelSurvey>, "how busy and noisy the channels are")     \
  FACT(radio, Radio, "what the radio can do")                                          \
  FACT(regulatory, Regulatory, "which country's rules hold")                           \
  FACT(addresses, Addresses, "which addresses the device has")                         \
  FACT(activeProfile, ActiveProfile, "how the joined network is set up on the device") \
  FACT(savedNetworks, std::vector<SavedNetwork>, "which networks are remembered")      \
  FACT(sessionProxy, SessionProxy, "whether the session has a proxy")                  \
  FACT(bluetooth, Bluetooth, "which Bluetooth devices there are")                      \
  FACT(coexistence, Coexistence, "whether Wi-Fi and Bluetooth take turns")             \
  FACT(lanPings, Pings, "how the router answers pings")                                \
  FACT(wanPings, Pings, "how the internet answers pings")                              \
  FACT(nameResolution, NameResolution, "whether names are resolved")                   \
  FACT(portalProbe, PortalProbe, "whether there is a sign-in page")                    \
  FACT(siteReach, SiteReach, "whether the site can be reached")                        \
  FACT(sitePage, SitePage, "whether the site's page can be fetched")                   \
  FACT(routerOutside, RouterOutside, "what stands between the router and the internet")

enum class Fact {
#define WIFI_PROFILE_FACT(name, type, question) name,
  WIFI_PROFILE_FACTS(WIFI_PROFILE_FACT)
#undef WIFI_PROFILE_FACT
};

struct Facts {
#define WIFI_PROFILE_FACT(name, type, question) Result<type> name;
  WIFI_PROFILE_FACTS(WIFI_PROFILE_FACT)
#undef WIFI_PROFILE_FACT

  bool operator==(const Facts&) const = default;
};

struct FactRow {
  Fact fact;
  std::string_view name;
  std::string_view question;
};

// Calls visit(row, member) for each fact, where `member` is the one in `facts`.
template <class FactsOrConst, class Visit>
void forEachFact(FactsOrConst& facts, Visit visit) {
#define WIFI_PROFILE_FACT(name, type, question) \
  visit(FactRow{Fact::name, #name, question}, facts.name);
  WIFI_PROFILE_FACTS(WIFI_PROFILE_FACT)
#undef WIFI_PROFILE_FACT
}

}  // namespace wifi_profile::facts
