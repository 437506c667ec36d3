#include "analysis/facts/RandomFacts.h"

#include <limits>

namespace wifi_profile::facts {
namespace {

using ieee80211::Band;

class Maker {
 public:
  explicit Maker(std::mt19937& random) : random_(random) {}

  std::size_t below(std::size_t count) { return random_() % count; }
  bool oneIn(std::size_t count) { return below(count) == 0; }

  // Usual numbers, and those at the ends.
  int number() {
    constexpr std::array kEnds{0, -1, 1, std::numeric_limits<int>::min(),
                               std::numeric_limits<int>::max()};
    return oneIn(4) ? kEnds.at(below(kEnds.size())) : static_cast<int>(below(400)) - 150;
  }
  std::optional<int> maybeNumber() { return oneIn(3) ? std::nullopt : std::optional(number()); }
  std::optional<bool> maybe() { return oneIn(3) ? std::nullopt : std::optional(oneIn(2)); }
  double real() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr std::array kOdd{0.0,       -1.0,       1e308,
                              kInfinity, -kInfinity, std::numeric_limits<double>::quiet_NaN()};
    return oneIn(4) ? kOdd.at(below(kOdd.size())) : static_cast<double>(below(1000)) / 500;
  }
  std::string text() {
    const std::array<std::string, 8> kTexts{"",
                                            "Cafe",
                                            "Home",
                                            "linksys",
                                            std::string("\0\0", 2),
                                            "\xFF\xFE\n",
                                            "02:10:20:30:40:50",
                                            std::string(300, 'x')};
    return kTexts.at(below(kTexts.size()));
  }
  std::optional<std::string> maybeText() { return oneIn(3) ? std::nullopt : std::optional(text()); }
  std::string address() {
    const std::array<std::string, 9> kAddresses{"",           "192.168.43.7", "10.0.0.1",
                                                "100.64.0.1", "203.0.113.9",  "169.254.1.1",
                                                "fe80::1",    "2001::1",      "no address"};
    return kAddresses.at(below(kAddresses.size()));
  }
  std::string bssid() {
    return oneIn(8) ? text()
                    : "02:10:20:30:4" + std::to_string(below(3)) + ":5" + std::to_string(below(3));
  }
  ieee80211::Security security() {
    return static_cast<ieee80211::Security>(
        below(static_cast<std::size_t>(ieee80211::Security::unknown) + 1));
  }
  template <class T, class Function>
  std::vector<T> list(std::size_t most, Function make) {
    std::vector<T> made;
    for (std::size_t left = below(most + 1); left > 0; --left) made.push_back(make());
    return made;
  }
  template <class T>
  Result<T> known(T value) {
    if (!oneIn(5)) return value;
    return Error{static_cast<Reason>(10 + below(11)), text()};
  }

  // A channel as elements give it.
  std::optional<ieee80211::OperatingChannel> channel() {
    if (oneIn(6)) return std::nullopt;
    const auto band = static_cast<ieee80211::Band>(below(3));
    int primary = 0;
    do primary = static_cast<int>(below(234));
    while (!ieee80211::isTwentyMHzChannel(band, primary));
    ieee80211::OperatingChannel made{.band = band, .primary = primary, .extent = std::nullopt};
    if (oneIn(4)) return made;
    made.extent = ieee80211::extentOfTwentyMHz(band, primary);
    const int secondary = oneIn(2) ? primary + 4 : primary - 4;
    const auto wide = ieee80211::extentOfHt(band, {.primary = primary, .secondary = secondary});
    if (oneIn(2) && wide) made.extent = wide;
    return made;
  }
  int frequency() {
    if (oneIn(6)) return number();
    return static_cast<int>(oneIn(2) ? 2407 + 5 * below(16) : 5000 + 5 * below(450));
  }

  AccessPoint accessPoint() {
    AccessPoint made;
    made.bssid = bssid();
    made.ssid = maybeText();
    made.hidesName = oneIn(4);
    made.signal = maybeNumber();
    made.channel = channel();
    made.beaconInterval = maybeNumber();
    made.dtimPeriod = maybeNumber();
    made.security = security();
    made.basicRates = list<int>(3, [&] { return number(); });
    made.modes = {.a = oneIn(2), .n = oneIn(2), .ac = oneIn(2)};
    made.country = oneIn(2) ? maybeText() : std::optional<std::string>("DE");
    made.channelUtilization = maybeNumber();
    made.accessNetworkType = oneIn(2) ? std::optional(4) : maybeNumber();
    made.additionalStepNeeded = oneIn(3);
    made.isPasspoint = oneIn(3);
    made.maker = maybeText();
    made.model = maybeText();
    if (oneIn(4)) made.transmitterBssid = bssid();
    return made;
  }
  ChannelSurvey survey() {
    const auto time = [&]() -> std::optional<std::chrono::milliseconds> {
      if (oneIn(5)) return std::nullopt;
      if (oneIn(5)) return std::chrono::milliseconds::max();
      if (oneIn(5)) return std::chrono::milliseconds::min();
      return std::chrono::milliseconds(below(1000));
    };
    return {.frequency = frequency(),
            .inUse = oneIn(4),
            .noise = maybeNumber(),
            .active = time(),
            .busy = time(),
            .transmit = time()};
  }
  Pings pings() {
    return {.target = address(),
            .byConnecting = oneIn(2),
            .sent = number(),
            .answers = list<std::chrono::duration<double>>(
                4, [&] { return std::chrono::duration<double>(real()); }),
            .started = Date{real()},
            .isNeighbour = oneIn(2)};
  }
  AddressSettings addressSettings() {
    return {.method = static_cast<AddressMethod>(below(5)),
            .dnsServers = list<std::string>(2, [&] { return address(); }),
            .ignoresNetworkDns = oneIn(2),
            .hasExtraAddresses = oneIn(2)};
  }
  SavedNetwork saved() {
    return {.ssid = text(),
            .security = security(),
            .isHidden = oneIn(3),
            .metered = maybe(),
            .lastJoined = oneIn(2) ? std::nullopt : std::optional(Date{real()}),
            .accessPoints = number()};
  }

 private:
  std::mt19937& random_;
};

void makeDevice(Maker& make, Facts& facts) {
  facts.addresses =
      make.known(Addresses{.ipv4 = make.list<std::string>(3, [&] { return make.address(); }),
                           .ipv6 = make.list<std::string>(3, [&] { return make.address(); }),
                           .ipv4Gateway = {},
                           .ipv6Gateway = {},
                           .dnsServers = {},
                           .systemDnsServers = {},
                           .systemDnsThrough = {},
                           .carrier = {},
                           .otherWayOut = make.maybeText()});
  facts.activeProfile = make.known(ActiveProfile{.ipv4 = make.addressSettings(),
                                                 .ipv6 = make.addressSettings(),
                                                 .hasProxy = make.oneIn(3),
                                                 .metered = make.maybe(),
                                                 .captivePortalApi = make.maybeText()});
  facts.savedNetworks = make.known(make.list<SavedNetwork>(60, [&] { return make.saved(); }));
  facts.sessionProxy = make.known(SessionProxy{make.text()});
  facts.bluetooth = make.known(Bluetooth{.paired = make.number(), .connected = make.number()});
  facts.coexistence = make.known(Coexistence{.takesTurns = make.oneIn(2)});
}

void makeReach(Maker& make, Facts& facts) {
  facts.lanPings = make.known(make.pings());
  facts.wanPings = make.known(make.pings());
  facts.nameResolution =
      make.known(NameResolution{.name = "", .resolved = make.oneIn(2), .problem = make.text()});
  facts.portalProbe = make.known(PortalProbe{
      .answer = static_cast<PortalProbe::Answer>(make.below(3)), .detail = make.text()});
  facts.siteReach = make.known(SiteReach{.reached = make.oneIn(2), .problem = make.text()});
  facts.sitePage = make.known(SitePage{.retrieved = make.oneIn(2), .problem = make.text()});
  facts.routerOutside =
      make.known(RouterOutside{.address = make.address(), .secondHop = make.address()});
}

}  // namespace

Facts randomFacts(std::mt19937& random) {
  Maker make(random);
  Facts facts;
  facts.link = make.known(Link{.interface = make.text(),
                               .ssid = make.text(),
                               .bssid = make.bssid(),
                               .signal = make.maybeNumber(),
                               .frequency = make.frequency(),
                               .beaconInterval = make.maybeNumber(),
                               .dtimPeriod = make.maybeNumber()});
  facts.scan = make.known(Scan{make.list<AccessPoint>(20, [&] { return make.accessPoint(); })});
  if (facts.scan && random() % 4 == 0) {
    facts.scan->incomplete = Error{Reason::notPermitted, "This user may not scan."};
  }
  facts.surveys = make.known(make.list<ChannelSurvey>(20, [&] { return make.survey(); }));
  Radio radio;
  radio.channels = make.list<RadioChannel>(40, [&] {
    return RadioChannel{
        .frequency = make.frequency(), .disabled = make.oneIn(4), .radarDetection = make.oneIn(4)};
  });
  radio.interfaces = make.list<RadioInterface>(3, [&] {
    return RadioInterface{make.text(), static_cast<RadioInterface::Role>(make.below(4))};
  });
  facts.radio = make.known(std::move(radio));
  facts.regulatory = make.known(Regulatory{make.oneIn(2) ? "DE" : make.text()});
  makeDevice(make, facts);
  makeReach(make, facts);
  return facts;
}

checks::Settings randomSettings(std::mt19937& random) {
  Maker make(random);
  checks::Settings settings = checks::defaultSettings();
  if (make.oneIn(2)) return settings;
  settings.poorSignalBelow = make.number();
  settings.congestedUtilization = make.number();
  settings.congestedBusyShare = make.real();
  settings.congestedNeighbours = make.real();
  settings.ambiguousNames = {make.text(), "*" + make.text()};
  settings.hotspotSubnets = {make.text(), make.address(), make.address() + "/24"};
  settings.baseStationMakers = {make.text()};
  settings.baseStationAddressBlocks = {make.text()};
  return settings;
}

TextRef randomQuestionName(std::mt19937& random) {
  Maker make(random);
  return make.oneIn(2) ? nullptr : makeText(make.text());
}

void forget(Facts& facts, const std::function<bool(Fact)>& isForgotten) {
  forEachFact(facts, [&](const FactRow& row, auto& known) {
    if (isForgotten(row.fact)) known = Error{};
  });
}

}  // namespace wifi_profile::facts
