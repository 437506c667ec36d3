#include "analysis/ieee80211/AccessPointElements.h"

namespace wifi_profile::ieee80211 {
namespace {

template <class Parse>
auto read(const ElementSet& elements, Kind kind, Parse parse) {
  const auto payload = elements.payload(kind);
  return payload ? parse(*payload) : std::nullopt;
}

std::optional<Rates> readRates(const ElementSet& elements) {
  const auto supported = elements.payload(Kind::supportedRates);
  const auto extended = elements.payload(Kind::extendedRates);
  if (!supported || (elements.has(Kind::extendedRates) && !extended)) return std::nullopt;
  return parseRates(*supported, extended);
}

NetworkElements readNetwork(const ElementSet& elements, std::uint16_t capabilities) {
  NetworkElements network;
  network.capabilities = capabilities;
  network.ssid = read(elements, Kind::ssid, parseSsid);
  network.rates = readRates(elements);
  network.load = read(elements, Kind::bssLoad, parseBssLoad);
  network.securityElements = readSecurityElements(elements);
  network.security = summarize(elements, network.securityElements, capabilities);
  network.oweTransition = isOweTransition(elements.payload(Kind::oweTransition).value_or(Bytes{}));
  network.interworking = read(elements, Kind::interworking, parseInterworking);
  network.hotspot = isHotspotIndication(elements.payload(Kind::hotspot).value_or(Bytes{}));
  network.wps = parseWps(elements.parts(Kind::wps));
  return network;
}

std::vector<NontransmittedNetwork> readOthers(const ElementSet& transmitted,
                                              const std::optional<Bssid>& sender) {
  const auto all = readNontransmittedProfiles(transmitted.parts(Kind::multipleBssid));
  std::vector<NontransmittedNetwork> others;
  if (!all) return others;
  for (const NontransmittedProfile& profile : all->profiles) {
    ElementSet elements(profile.elements);
    if (!elements.inherit(transmitted)) continue;
    NontransmittedNetwork& other = others.emplace_back();
    other.index = profile.index;
    if (sender) other.bssid = deriveBssid(*sender, all->bits, profile.index);
    other.network = readNetwork(elements, profile.capabilities);
    other.network.dtim = read(elements, Kind::multipleBssidIndex, parseIndexedDtim);
  }
  return others;
}

}  // namespace

AccessPointElements parseAccessPointElements(const ReceivedFrame& frame) {
  const ElementSet elements(frame.elements);
  AccessPointElements result;
  result.network = readNetwork(elements, frame.capabilities);
  result.network.dtim = read(elements, Kind::tim, parseTim);
  result.country = read(elements, Kind::country, parseCountry);
  result.channel = readOperatingChannel(elements, frame.frequency);
  std::optional<Band> band;
  if (result.channel) band = result.channel->band;
  result.modes = readPhyModes(elements, result.network.rates, band);
  result.others = readOthers(elements, frame.bssid);
  result.truncated = elements.truncated();
  return result;
}

}  // namespace wifi_profile::ieee80211
