#include <gtest/gtest.h>
#include <set>

#include "devices/scenario/ScenarioReader.h"
#include "runtime/JsonReader.h"

namespace wifi_profile::scenario {
namespace {

using checks::Reason;
using ieee80211::Band;
using ieee80211::Security;
using ieee80211::Width;
using namespace std::chrono_literals;

std::variant<Scenario, Fault> read(const std::string& world) {
  const auto document = readJson(R"({"scenario":1,"world":)" + world + "}");
  EXPECT_TRUE(std::holds_alternative<ObjectRef>(document)) << world;
  return readScenario(std::get<ObjectRef>(document));
}

World worldOf(const std::string& world) {
  const auto scenario = read(world);
  if (const auto* fault = std::get_if<Fault>(&scenario)) {
    ADD_FAILURE() << fault->pointer << ": found " << fault->found << ", expected "
                  << fault->expected;
    return {};
  }
  return std::get<Scenario>(scenario).world.value();
}

checks::Facts facts(const std::string& world) { return worldOf(world).facts; }

std::string faultIn(const std::string& world) {
  const auto scenario = read(world);
  const auto* fault = std::get_if<Fault>(&scenario);
  return fault ? fault->pointer + ": found " + fault->found + ", expected " + fault->expected : "";
}

// The only access point of a scan.
checks::AccessPoint accessPoint(const std::string& fields) {
  const auto all = facts(R"({"scan":[{"bssid":"02:00:00:00:00:01")" + fields + "}]}");
  if (!all.scan || all.scan->accessPoints.size() != 1) return {};
  return all.scan->accessPoints[0];
}

std::string faultInAccessPoint(const std::string& fields) {
  return faultIn(R"({"scan":[{"bssid":"02:00:00:00:00:01")" + fields + "}]}");
}

TEST(WorldReader, LeavesAScenarioWithoutAWorldWithoutOne) {
  const auto scenario = readScenario(std::get<ObjectRef>(readJson(R"({"scenario":1})")));
  EXPECT_FALSE(std::get<Scenario>(scenario).world);
}

TEST(WorldReader, SaysOfEveryFactLeftOutThatItIsNotTold) {
  const checks::Facts all = facts("{}");
  const auto sentence = [](const auto& fact) {
    EXPECT_FALSE(fact);
    EXPECT_EQ(fact.why().reason, Reason::notTold);
    EXPECT_TRUE(fact.why().sentence.starts_with("The scenario's world does not say "));
    return fact.why().sentence;
  };
  std::set<std::string> sentences{
      sentence(all.link),          sentence(all.scan),           sentence(all.surveys),
      sentence(all.radio),         sentence(all.regulatory),     sentence(all.addresses),
      sentence(all.activeProfile), sentence(all.savedNetworks),  sentence(all.sessionProxy),
      sentence(all.bluetooth),     sentence(all.coexistence),    sentence(all.lanPings),
      sentence(all.wanPings),      sentence(all.nameResolution), sentence(all.portalProbe),
      sentence(all.siteReach),     sentence(all.sitePage),       sentence(all.routerOutside)};
  EXPECT_EQ(sentences.size(), std::size_t{checks::kFactCount});
}

TEST(WorldReader, ReadsWhyAFactIsNotKnown) {
  const auto all = facts(R"({"bluetooth":{"unknown":"noService"},
      "savedNetworks":{"unknown":"notPermitted","sentence":"Ask the owner."}})");
  EXPECT_EQ(all.bluetooth.why().reason, Reason::noService);
  EXPECT_EQ(all.bluetooth.why().sentence, "The service that knows it is not running.");
  EXPECT_EQ(all.savedNetworks.why().reason, Reason::notPermitted);
  EXPECT_EQ(all.savedNetworks.why().sentence, "Ask the owner.");
}

TEST(WorldReader, KnowsEveryReasonByNameAndHasASentenceForIt) {
  const std::pair<const char*, Reason> reasons[]{{"notJoined", Reason::notJoined},
                                                 {"notInRange", Reason::notInRange},
                                                 {"notTold", Reason::notTold},
                                                 {"notPermitted", Reason::notPermitted},
                                                 {"notSupported", Reason::notSupported},
                                                 {"noService", Reason::noService},
                                                 {"noHardware", Reason::noHardware},
                                                 {"radioOff", Reason::radioOff},
                                                 {"tookTooLong", Reason::tookTooLong},
                                                 {"failed", Reason::failed},
                                                 {"outsideNetwork", Reason::outsideNetwork}};
  for (const auto& [name, reason] : reasons) {
    const auto all = facts(R"({"link":{"unknown":")" + std::string(name) + R"("}})");
    EXPECT_EQ(all.link.why().reason, reason) << name;
    EXPECT_FALSE(all.link.why().sentence.empty()) << name;
  }
  EXPECT_EQ(faultIn(R"({"link":{"unknown":"shy"}})")
                .find("/world/link/unknown: found the text \"shy\", expected one of \"notJoined\""),
            0U);
  EXPECT_EQ(faultIn(R"({"link":{"unknown":"failed","ssid":"a"}})").find("/world/link/ssid: found "),
            0U);
}

TEST(WorldReader, ReadsALink) {
  const auto all = facts(R"({"link":{"interface":"wlp3s0","ssid":"Home","bssid":"02:AB:00:00:00:0f",
      "signal":-61,"channel":36,"beaconInterval":100,"dtim":2}})");
  EXPECT_EQ(*all.link, (checks::Link{.interface = "wlp3s0",
                                     .ssid = "Home",
                                     .bssid = "02:ab:00:00:00:0f",
                                     .signal = -61,
                                     .frequency = 5180,
                                     .beaconInterval = 100,
                                     .dtimPeriod = 2}));
  const auto bare =
      facts(R"({"link":{"interface":"a","ssid":"b","bssid":"02:00:00:00:00:01"}})").link;
  checks::Link expected;
  expected.interface = "a";
  expected.ssid = "b";
  expected.bssid = "02:00:00:00:00:01";
  EXPECT_EQ(*bare, expected);
}

TEST(WorldReader, TakesTheStatusFromTheLinkUnlessTheFileHasOne) {
  const std::string world =
      R"("world":{"link":{"interface":"a","ssid":"Home","bssid":"02:00:00:00:00:01"}})";
  const auto status = [&](const std::string& more) {
    return std::get<Scenario>(readScenario(std::get<ObjectRef>(
                                  readJson(R"({"scenario":1,)" + world + more + "}"))))
        .status;
  };
  ASSERT_EQ(status("").size(), 1U);
  EXPECT_EQ(status("")[0].ssid->string(), "Home");
  EXPECT_EQ(status("")[0].bssid->string(), "02:00:00:00:00:01");
  ASSERT_EQ(status(R"(,"status":[{}])").size(), 1U);
  EXPECT_EQ(status(R"(,"status":[{}])")[0].ssid, nullptr);
  EXPECT_EQ(std::get<Scenario>(read(R"({"link":{"unknown":"notJoined"}})")).status[0].ssid,
            nullptr);
}

TEST(WorldReader, ReadsAnAccessPointInFull) {
  const auto point = accessPoint(R"(,"ssid":"Lab","hidden":true,"signal":-60,"band":"5 GHz",
      "channel":44,"width":80,"beaconInterval":200,"dtim":3,"security":"WPA3 Personal",
      "basicRates":[6,5.5,24],"modes":["802.11a","802.11n","802.11ac","802.11ax"],"country":"DE",
      "utilization":255,"stations":7,"accessNetworkType":4,"additionalStepNeeded":true,
      "passpoint":true,"maker":"Kontor","model":"Box 1","transmitter":"02:00:00:00:00:02")");
  checks::AccessPoint expected{.bssid = "02:00:00:00:00:01",
                               .ssid = "Lab",
                               .hidesName = true,
                               .signal = -60,
                               .channel = {},
                               .beaconInterval = 200,
                               .dtimPeriod = 3,
                               .security = Security::wpa3Personal,
                               .basicRates = {12, 11, 48},
                               .modes = {.a = true, .n = true, .ac = true, .ax = true},
                               .country = "DE",
                               .channelUtilization = 255,
                               .stations = 7,
                               .accessNetworkType = 4,
                               .additionalStepNeeded = true,
                               .isPasspoint = true,
                               .maker = "Kontor",
                               .model = "Box 1",
                               .transmitterBssid = "02:00:00:00:00:02"};
  expected.channel = {Band::ghz5, 44,
                      ieee80211::Extent{.width = Width::mhz80, .center = 42, .secondary = 48}};
  EXPECT_EQ(point, expected);
}

TEST(WorldReader, InventsNothingForAnAccessPoint) {
  checks::AccessPoint expected;
  expected.bssid = "02:00:00:00:00:01";
  expected.hidesName = false;  // what is written down was heard
  EXPECT_EQ(accessPoint(""), expected);
  EXPECT_EQ(accessPoint(R"(,"ssid":null)"), accessPoint(""));
}

TEST(WorldReader, KnowsEverySecurityAsPeopleWriteIt) {
  const std::pair<const char*, Security> texts[]{
      {"None", Security::none},
      {"OWE", Security::owe},
      {"WEP", Security::wep},
      {"WPA Personal", Security::wpaPersonal},
      {"WPA Enterprise", Security::wpaEnterprise},
      {"WPA2 Personal", Security::wpa2Personal},
      {"WPA2 Enterprise", Security::wpa2Enterprise},
      {"WPA2/WPA3 Personal", Security::wpa2Wpa3Personal},
      {"WPA2/WPA3 Enterprise", Security::wpa2Wpa3Enterprise},
      {"WPA3 Personal", Security::wpa3Personal},
      {"WPA3 Enterprise", Security::wpa3Enterprise},
      {"unknown", Security::unknown}};
  for (const auto& [text, security] : texts) {
    EXPECT_EQ(accessPoint(R"(,"security":")" + std::string(text) + '"').security, security);
  }
}

TEST(WorldReader, ReadsBandsAsTextAndAsNumber) {
  const auto bandOf = [](const std::string& band) {
    return accessPoint(R"(,"channel":1)" + band).channel.value().band;
  };
  EXPECT_EQ(bandOf(""), Band::ghz2);
  EXPECT_EQ(bandOf(R"(,"band":"2.4 GHz")"), Band::ghz2);
  EXPECT_EQ(bandOf(R"(,"band":2.4)"), Band::ghz2);
  EXPECT_EQ(bandOf(R"(,"band":"6 GHz")"), Band::ghz6);
  EXPECT_EQ(bandOf(R"(,"band":6)"), Band::ghz6);
  EXPECT_EQ(accessPoint(R"(,"channel":36)").channel->band, Band::ghz5);
  EXPECT_EQ(accessPoint(R"(,"channel":36,"band":5)").channel->band, Band::ghz5);
}

TEST(WorldReader, FindsTheWideChannelAroundThePrimaryOne) {
  const auto extent = [](const std::string& fields) {
    return *accessPoint(fields).channel->extent;
  };
  using ieee80211::Extent;
  EXPECT_EQ(extent(R"(,"channel":6)"), (Extent{.width = Width::mhz20, .center = 6}));
  EXPECT_EQ(extent(R"(,"channel":6,"width":40,"secondary":"above")"),
            (Extent{.width = Width::mhz40, .center = 8, .secondary = 10}));
  EXPECT_EQ(extent(R"(,"channel":6,"width":40,"secondary":"below")"),
            (Extent{.width = Width::mhz40, .center = 4, .secondary = 2}));
  EXPECT_EQ(extent(R"(,"channel":40,"width":40)"),
            (Extent{.width = Width::mhz40, .center = 38, .secondary = 36}));
  EXPECT_EQ(extent(R"(,"channel":112,"width":160)"),
            (Extent{.width = Width::mhz160, .center = 114, .secondary = 108}));
  EXPECT_EQ(extent(R"(,"band":6,"channel":37,"width":320)"),
            (Extent{.width = Width::mhz320, .center = 31, .secondary = 33}));
}

TEST(WorldReader, RefusesChannelsAndWidthsThatThereAreNot) {
  EXPECT_EQ(faultInAccessPoint(R"(,"channel":37)"),
            "/world/scan/0/channel: found the number 37, expected a channel of the 5 GHz band");
  EXPECT_EQ(faultInAccessPoint(R"(,"channel":36,"band":2.4)"),
            "/world/scan/0/channel: found the number 36, expected a channel of the 2.4 GHz band");
  EXPECT_EQ(faultInAccessPoint(R"(,"channel":3,"band":6)"),
            "/world/scan/0/channel: found the number 3, expected a channel of the 6 GHz band");
  EXPECT_EQ(faultInAccessPoint(R"(,"band":5)"),
            "/world/scan/0: found an object with \"band\" and without \"channel\", expected both "
            "or neither");
  EXPECT_EQ(faultInAccessPoint(R"(,"band":true)")
                .find("/world/scan/0/band: found true, expected one of \"2.4 GHz\""),
            0U);
  EXPECT_EQ(faultInAccessPoint(R"(,"width":40)"),
            "/world/scan/0: found an object without \"channel\", expected a channel beside its "
            "width");
  EXPECT_EQ(faultInAccessPoint(R"(,"channel":36,"width":60)"),
            "/world/scan/0/width: found the number 60, expected 20, 40, 80, 160 or 320");
  for (const char* fields :
       {R"(,"channel":36,"width":320)", R"(,"channel":144,"width":160)",
        R"(,"channel":11,"width":80)", R"(,"channel":2,"width":40,"secondary":"below")",
        R"(,"channel":12,"width":40,"secondary":"above")"}) {
    EXPECT_NE(faultInAccessPoint(fields).find("expected a width that the band has there"),
              std::string::npos)
        << fields << faultInAccessPoint(fields);
  }
  for (const char* fields : {R"(,"channel":6,"width":40)", R"(,"channel":6,"secondary":"above")",
                             R"(,"channel":36,"width":40,"secondary":"above")"}) {
    EXPECT_EQ(faultInAccessPoint(fields).find("/world/scan/0: found an access point with"), 0U);
  }
}

TEST(WorldReader, RefusesAccessPointsThatCannotBe) {
  const std::pair<const char*, const char*> faults[]{
      {R"(,"ssid":"")", "ssid: found the text \"\", expected a text of 1 to 32 bytes"},
      {R"(,"ssid":"123456789012345678901234567890123")", "ssid"},
      {R"(,"signal":-128)", "signal"},
      {R"(,"beaconInterval":0)", "beaconInterval"},
      {R"(,"dtim":256)", "dtim"},
      {R"(,"security":"wpa2")", "security"},
      {R"(,"basicRates":[6,0])", "basicRates/1: found the number 0, expected a rate in Mbit/s"},
      {R"(,"basicRates":[5.4])", "basicRates/0"},
      {R"(,"modes":["802.11x"])", "modes/0"},
      {R"(,"country":"de")", "country: found the text \"de\", expected two capital letters"},
      {R"(,"utilization":256)", "utilization"},
      {R"(,"stations":-1)", "stations"},
      {R"(,"accessNetworkType":16)", "accessNetworkType"},
      {R"(,"transmitter":"02:00:00:00:00")", "transmitter"},
      {R"(,"rssi":-60)", "rssi: found an unknown field"}};
  for (const auto& [fields, fault] : faults) {
    EXPECT_EQ(faultInAccessPoint(fields).find("/world/scan/0/" + std::string(fault)), 0U)
        << faultInAccessPoint(fields);
  }
  EXPECT_EQ(faultIn(R"({"scan":[{"bssid":"02:00:00:00:00:0g"}]})"),
            "/world/scan/0/bssid: found the text \"02:00:00:00:00:0g\", expected an address such "
            "as \"02:00:00:00:00:01\"");
  EXPECT_EQ(faultIn(R"({"scan":[{"bssid":"02:00:00:00:00:0a"},{"bssid":"02:00:00:00:00:0A"}]})"),
            "/world/scan/1: found a second access point 02:00:00:00:00:0a, expected each "
            "\"bssid\" once");
  EXPECT_EQ(faultIn(R"({"scan":[{}]})").find("/world/scan/0: found an object without \"bssid\""),
            0U);
}

TEST(WorldReader, ReadsSurveys) {
  const auto all = facts(R"({"surveys":[{"channel":6,"inUse":true,"noise":-88,"active":1000,
      "busy":810,"transmit":10},{"channel":5,"band":6}]})");
  checks::ChannelSurvey bare;
  bare.frequency = 5975;
  EXPECT_EQ(*all.surveys, (std::vector<checks::ChannelSurvey>{{.frequency = 2437,
                                                               .inUse = true,
                                                               .noise = -88,
                                                               .active = 1000ms,
                                                               .busy = 810ms,
                                                               .transmit = 10ms},
                                                              bare}));
  EXPECT_EQ(faultIn(R"({"surveys":[{"noise":-90}]})"),
            "/world/surveys/0: found an object without \"channel\", expected an object with "
            "\"channel\"");
  EXPECT_EQ(faultIn(R"({"surveys":[{"channel":6,"busy":0.5}]})").find("/world/surveys/0/busy: "),
            0U);
}

TEST(WorldReader, ReadsTheRadio) {
  const auto all = facts(R"({"radio":{"driver":"mac80211_hwsim","knowsWapi":true,
      "channels":[{"channels":[1,36]},{"channels":[52],"radarDetection":true},
                  {"band":"6 GHz","channels":[5],"disabled":true}],
      "interfaces":[{"name":"wlan0","role":"station"},{"role":"accessPoint"},
                    {"role":"peerLink"},{"name":"mon0","role":"other"}]}})");
  using Role = checks::RadioInterface::Role;
  EXPECT_EQ(*all.radio, (checks::Radio{.driver = "mac80211_hwsim",
                                       .channels = {{.frequency = 2412},
                                                    {.frequency = 5180},
                                                    {.frequency = 5260, .radarDetection = true},
                                                    {.frequency = 5975, .disabled = true}},
                                       .interfaces = {{"wlan0", Role::station},
                                                      {"", Role::accessPoint},
                                                      {"", Role::peerLink},
                                                      {"mon0", Role::other}},
                                       .knowsWapi = true}));
  EXPECT_EQ(faultIn(R"({"radio":{"channels":[{"channels":[36,37]}]}})"),
            "/world/radio/channels/0/channels/1: found the number 37, expected a channel of the 5 "
            "GHz band");
  EXPECT_NE(faultIn(R"({"radio":{"interfaces":[{"name":"a"}]}})"), "");
  EXPECT_NE(faultIn(R"({"radio":{"interfaces":[{"role":"mesh"}]}})"), "");
}

TEST(WorldReader, ReadsTheCountry) {
  EXPECT_EQ(facts(R"({"regulatory":{"country":"DE"}})").regulatory->country, "DE");
  EXPECT_EQ(facts(R"({"regulatory":{"country":"00"}})").regulatory->country, "00");
  EXPECT_EQ(faultIn(R"({"regulatory":{"country":"Germany"}})"),
            "/world/regulatory/country: found the text \"Germany\", expected two capital letters");
  EXPECT_NE(faultIn(R"({"regulatory":{}})"), "");
}

TEST(WorldReader, ReadsAddresses) {
  const auto all = facts(R"({"addresses":{"ipv4":["192.168.1.20"],"ipv6":["2001:db8::1","fe80::1"],
      "ipv4Gateway":"192.168.1.1","ipv6Gateway":"fe80::2","dnsServers":["192.168.1.1"]}})");
  EXPECT_EQ(*all.addresses,
            (checks::Addresses{.ipv4 = {"192.168.1.20"},
                               .ipv6 = {"2001:db8::1", "fe80::1"},
                               .ipv4Gateway = "192.168.1.1",
                               .ipv6Gateway = "fe80::2",
                               .dnsServers = std::vector<std::string>{"192.168.1.1"}}));
  EXPECT_EQ(*facts(R"({"addresses":{}})").addresses, checks::Addresses{});
  for (const char* address : {"", "1.2.3", "1.2.3.4.5", "1.2.3.256", "1.2.3.", "1..2.3", "a",
                              "1.2.3.4 ", "-1.2.3.4", "192.0.2.01"}) {
    EXPECT_EQ(faultIn(R"({"addresses":{"ipv4Gateway":")" + std::string(address) + R"("}})")
                  .find("/world/addresses/ipv4Gateway: found the text"),
              0U)
        << address;
  }
  EXPECT_EQ(faultIn(R"({"addresses":{"ipv6":["fe80::1","fe80::1%wlan0"]}})"),
            "/world/addresses/ipv6/1: found the text \"fe80::1%wlan0\", expected an IPv6 address "
            "such as \"2001:db8::1\"");
  EXPECT_NE(faultIn(R"({"addresses":{"ipv6Gateway":"192.0.2.1"}})"), "");
}

TEST(WorldReader, ReadsTheActiveProfile) {
  using Method = checks::AddressMethod;
  const auto all = facts(R"({"activeProfile":{"ipv4":{"method":"manual","dnsServers":["192.0.2.1"],
      "ignoresNetworkDns":true,"hasExtraAddresses":true},"ipv6":{"method":"disabled"},
      "hasProxy":true,"metered":false,"captivePortalApi":"https://example.org/api"}})");
  EXPECT_EQ(*all.activeProfile,
            (checks::ActiveProfile{.ipv4 = {.method = Method::manual,
                                            .dnsServers = {"192.0.2.1"},
                                            .ignoresNetworkDns = true,
                                            .hasExtraAddresses = true},
                                   .ipv6 = {.method = Method::disabled,
                                            .dnsServers = {},
                                            .ignoresNetworkDns = false,
                                            .hasExtraAddresses = false},
                                   .hasProxy = true,
                                   .metered = false,
                                   .captivePortalApi = "https://example.org/api"}));
  EXPECT_EQ(*facts(R"({"activeProfile":{}})").activeProfile, checks::ActiveProfile{});
  const auto methodOf = [](const std::string& name) {
    return facts(R"({"activeProfile":{"ipv6":{"method":")" + name + R"("}}})")
        .activeProfile->ipv6.method;
  };
  EXPECT_EQ(methodOf("automatic"), Method::automatic);
  EXPECT_EQ(methodOf("linkLocal"), Method::linkLocal);
  EXPECT_EQ(methodOf("shared"), Method::shared);
  EXPECT_NE(faultIn(R"({"activeProfile":{"ipv4":{"method":"dhcp"}}})"), "");
}

TEST(WorldReader, ReadsSavedNetworks) {
  const auto all = facts(R"({"savedNetworks":[{"ssid":"Home"},{"ssid":"Lab","security":"WEP",
      "hidden":true,"passpoint":true,"joinsByItself":false,"metered":true,
      "lastJoined":"2001-01-01T00:00:10Z","accessPoints":3},{"ssid":"New","lastJoined":null}]})");
  checks::SavedNetwork home;
  home.ssid = "Home";
  checks::SavedNetwork fresh;
  fresh.ssid = "New";
  EXPECT_EQ(*all.savedNetworks, (std::vector<checks::SavedNetwork>{home,
                                                                   {.ssid = "Lab",
                                                                    .security = Security::wep,
                                                                    .isHidden = true,
                                                                    .isPasspoint = true,
                                                                    .joinsByItself = false,
                                                                    .metered = true,
                                                                    .lastJoined = Date{10},
                                                                    .accessPoints = 3},
                                                                   fresh}));
  EXPECT_EQ(faultIn(R"({"savedNetworks":[{"ssid":"a","lastJoined":"soon"}]})")
                .find("/world/savedNetworks/0/lastJoined: "),
            0U);
  EXPECT_NE(faultIn(R"({"savedNetworks":[{"hidden":true}]})"), "");
}

TEST(WorldReader, ReadsWhatTheDeviceHasBesides) {
  const auto all = facts(R"({"sessionProxy":{"source":"http_proxy in the environment"},
      "bluetooth":{"powered":true,"paired":9,"connected":2},
      "coexistence":{"driver":"ath9k","parameter":"btcoex_enable","takesTurns":true}})");
  EXPECT_EQ(all.sessionProxy->source, "http_proxy in the environment");
  EXPECT_EQ(*all.bluetooth, (checks::Bluetooth{.powered = true, .paired = 9, .connected = 2}));
  EXPECT_EQ(*all.coexistence, (checks::Coexistence{"ath9k", "btcoex_enable", true}));
  EXPECT_NE(faultIn(R"({"sessionProxy":{}})"), "");
  EXPECT_NE(faultIn(R"({"bluetooth":{"paired":-1}})"), "");
  EXPECT_NE(faultIn(R"({"coexistence":{"driver":"ath9k"}})"), "");
}

TEST(WorldReader, ReadsPings) {
  const auto all = facts(R"({"lanPings":{"target":"192.168.1.1","sent":3,"answers":[1.5,2],
      "started":"2001-01-01T00:00:10Z"},"wanPings":{"target":"192.0.2.1","byConnecting":true,
      "sent":1,"answers":[],"started":"2001-01-01"}})");
  EXPECT_EQ(*all.lanPings,
            (checks::Pings{.target = "192.168.1.1",
                           .byConnecting = false,
                           .sent = 3,
                           .answers = {std::chrono::duration<double, std::milli>(1.5), 2ms},
                           .started = Date{10}}));
  EXPECT_TRUE(all.wanPings->byConnecting);
  EXPECT_TRUE(all.wanPings->answers.empty());
  const std::string tooMany = R"({"target":"a","sent":1,"answers":[1,2],"started":"2001-01-01"})";
  EXPECT_EQ(faultIn(R"({"lanPings":)" + tooMany + "}"),
            "/world/lanPings/answers: found 2 answers, expected no more than were sent");
  const std::string noDate = R"({"target":"a","sent":1,"answers":[],"started":null})";
  EXPECT_EQ(faultIn(R"({"wanPings":)" + noDate + "}"),
            "/world/wanPings/started: found null, expected an ISO 8601 date such as "
            "\"2026-03-01T18:30:00Z\"");
  EXPECT_NE(faultIn(R"({"lanPings":{}})"), "");
}

TEST(WorldReader, ReadsWhatIsReached) {
  using Answer = checks::PortalProbe::Answer;
  const auto all = facts(R"({"nameResolution":{"name":"example.org","resolved":true},
      "portalProbe":{"answer":"portal","detail":"302 to example.net"},
      "siteReach":{"reached":false,"problem":"refused"},"sitePage":{"retrieved":true},
      "routerOutside":{"address":"100.64.0.7","secondHop":"192.168.0.1"}})");
  EXPECT_EQ(*all.nameResolution, (checks::NameResolution{"example.org", true, ""}));
  EXPECT_EQ(*all.portalProbe, (checks::PortalProbe{Answer::portal, "302 to example.net"}));
  EXPECT_EQ(*all.siteReach, (checks::SiteReach{false, "refused"}));
  EXPECT_EQ(*all.sitePage, (checks::SitePage{true, ""}));
  EXPECT_EQ(*all.routerOutside, (checks::RouterOutside{"100.64.0.7", "192.168.0.1"}));
  EXPECT_EQ(facts(R"({"portalProbe":{"answer":"open"}})").portalProbe->answer, Answer::open);
  EXPECT_EQ(facts(R"({"portalProbe":{"answer":"noAnswer"}})").portalProbe->answer,
            Answer::noAnswer);
  for (const char* fact : {"nameResolution", "portalProbe", "siteReach", "sitePage"}) {
    EXPECT_EQ(faultIn("{\"" + std::string(fact) + "\":{}}").find("/world/" + std::string(fact)), 0U)
        << fact;
  }
  EXPECT_NE(faultIn(R"({"routerOutside":{"address":"fe80::1"}})"), "");
}

TEST(WorldReader, ReadsSettingsByName) {
  const checks::Settings settings =
      worldOf(R"({"settings":{"poorSignalBelow":-70,"longBeaconIntervalAbove":1,
      "longDtimPeriodAbove":2,"largeSavedListAbove":3,"bluetoothConnectedAbove":4,
      "bluetoothPairedAbove":5,"congestedBusyShare":0.5,"congestedUtilization":100,
      "congestedNeighbours":2.5,"ambiguousNames":["a"],"hotspotSubnets":["192.168.43.0/24"],
      "baseStationMakers":["kontor"],"baseStationAddressBlocks":["02:21:8d"]}})")
          .settings;
  EXPECT_EQ(settings, (checks::Settings{.poorSignalBelow = -70,
                                        .longBeaconIntervalAbove = 1,
                                        .longDtimPeriodAbove = 2,
                                        .largeSavedListAbove = 3,
                                        .bluetoothConnectedAbove = 4,
                                        .bluetoothPairedAbove = 5,
                                        .congestedBusyShare = 0.5,
                                        .congestedUtilization = 100,
                                        .congestedNeighbours = 2.5,
                                        .ambiguousNames = {"a"},
                                        .hotspotSubnets = {"192.168.43.0/24"},
                                        .baseStationMakers = {"kontor"},
                                        .baseStationAddressBlocks = {"02:21:8d"}}));
  EXPECT_EQ(worldOf("{}").settings, checks::defaultSettings());
  EXPECT_EQ(faultIn(R"({"settings":{"congestedBusyShare":70}})"),
            "/world/settings/congestedBusyShare: found the number 70, expected a number from 0 to "
            "1");
  EXPECT_NE(faultIn(R"({"settings":{"poorSignal":-70}})"), "");
}

TEST(WorldReader, TakesNetworksAndFirstBytesThatCanMatch) {
  for (const char* subnet : {"", "192.168.43.0", "192.168.43.0/", "192.168.43.0/33", "a/24",
                             "192.168.43/24", "fe80::/64", "10.0.0.0/8 "}) {
    EXPECT_EQ(faultIn(R"({"settings":{"hotspotSubnets":["10.0.0.0/0",")" + std::string(subnet) +
                      R"("]}})"),
              "/world/settings/hotspotSubnets/1: found the text \"" + std::string(subnet) +
                  "\", expected a network such as \"192.168.43.0/24\"");
  }
  EXPECT_EQ(
      worldOf(R"({"settings":{"baseStationAddressBlocks":["02:21:8D","02","02:21:8d:00:00:01"]}})")
          .settings.baseStationAddressBlocks,
      (std::vector<std::string>{"02:21:8d", "02", "02:21:8d:00:00:01"}));
  for (const char* block : {"", "02-21-8D", "0", "02:", "02:2", "02:2g", "2:21:8d", ":02",
                            "02:21:8d:00:00:01:02", "02218d"}) {
    EXPECT_EQ(
        faultIn(R"({"settings":{"baseStationAddressBlocks":[")" + std::string(block) + R"("]}})"),
        "/world/settings/baseStationAddressBlocks/0: found the text \"" + std::string(block) +
            "\", expected the first bytes of an address, such as \"02:21:8d\"");
  }
}

TEST(WorldReader, ReadsDelaysOfAllTestsOrOfSome) {
  EXPECT_EQ(worldOf("{}").delayOf(DiagnosticsTestID::PingLAN), 0s);
  EXPECT_EQ(worldOf(R"({"delay":0.5})").delayOf(DiagnosticsTestID::PingLAN), 500ms);
  const World some = worldOf(R"({"delay":{"PingLAN":2}})");
  EXPECT_EQ(some.delayOf(DiagnosticsTestID::PingLAN), 2s);
  EXPECT_EQ(some.delayOf(DiagnosticsTestID::PingWAN), 0s);
  EXPECT_EQ(faultIn(R"({"delay":{"PingLAN":-1}})"),
            "/world/delay/PingLAN: found the number -1, expected a number from 0 to 1000000");
  EXPECT_EQ(faultIn(R"({"delay":{"Ping":1}})").find("/world/delay/Ping: found an unknown"), 0U);
}

TEST(WorldReader, RefusesAWorldOfAnotherShape) {
  EXPECT_EQ(faultIn("[]"), "/world: found a list, expected an object");
  EXPECT_EQ(faultIn(R"({"links":{}})").find("/world/links: found an unknown field"), 0U);
  EXPECT_EQ(faultIn(R"({"scan":{}})"), "/world/scan: found an object, expected a list");
  EXPECT_EQ(faultIn(R"({"radio":null})"), "/world/radio: found null, expected an object");
}

}  // namespace
}  // namespace wifi_profile::scenario
