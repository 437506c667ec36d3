#include "analysis/ieee80211/Network.h"

#include <algorithm>
#include <array>
#include <bitset>

namespace wifi_profile::ieee80211 {
namespace {

constexpr std::uint8_t kBasicFlag = 0x80;
constexpr std::uint8_t kFastestRate = 108;  // 54 Mbit/s; these lists contain no faster rate

constexpr std::array<std::uint8_t, 4> kBRates{2, 4, 11, 22};
constexpr std::array<std::uint8_t, 8> kOfdmRates{12, 18, 24, 36, 48, 72, 96, 108};

using OctetSet = std::bitset<128>;

std::vector<std::uint8_t> inOrder(const OctetSet& octets, std::uint8_t least, std::uint8_t most) {
  std::vector<std::uint8_t> list;
  for (std::uint8_t octet = least; octet <= most; ++octet) {
    if (octets[octet]) list.push_back(octet);
  }
  return list;
}

template <std::size_t kSize>
bool hasAny(const std::vector<std::uint8_t>& rates, const std::array<std::uint8_t, kSize>& of) {
  return std::ranges::find_first_of(rates, of) != rates.end();
}

std::optional<Dtim> makeDtim(std::uint8_t period, std::uint8_t count) {
  // A period of 0 is reserved.
  if (period == 0 || count >= period) return std::nullopt;
  return Dtim{.period = period};
}

}  // namespace

std::optional<Ssid> parseSsid(Bytes payload) {
  if (payload.size() > kLongestSsid) return std::nullopt;
  const auto isZero = [](std::uint8_t octet) { return octet == 0; };
  return Ssid{.name = toText(payload), .hidden = std::ranges::all_of(payload, isZero)};
}

bool Rates::hasBRates() const { return hasAny(supported, kBRates); }

bool Rates::hasOfdmRates() const { return hasAny(supported, kOfdmRates); }

std::optional<Rates> parseRates(Bytes supported, std::optional<Bytes> extended) {
  // The standard limits the first element to 8 octets; more octets are accepted.
  if (supported.empty() || (extended && extended->empty())) return std::nullopt;
  OctetSet all;
  OctetSet basic;
  for (const Bytes& octets : {supported, extended.value_or(Bytes{})}) {
    for (const std::uint8_t octet : octets) {
      const auto value = static_cast<std::uint8_t>(octet & ~kBasicFlag);
      all.set(value);
      if ((octet & kBasicFlag) != 0) basic.set(value);
    }
  }
  return Rates{.supported = inOrder(all, 1, kFastestRate),
               .basic = inOrder(basic, 1, kFastestRate)};
}

std::optional<Dtim> parseTim(Bytes payload) {
  ByteReader reader(payload);
  const std::uint8_t count = reader.octet();
  const std::uint8_t period = reader.octet();
  reader.take(2);  // bitmap control, and at least one octet of the bitmap
  return reader.failed() ? std::nullopt : makeDtim(period, count);
}

std::optional<Dtim> parseIndexedDtim(Bytes payload) {
  ByteReader reader(payload);
  reader.octet();  // the index
  const std::uint8_t period = reader.octet();
  const std::uint8_t count = reader.octet();
  return reader.failed() ? std::nullopt : makeDtim(period, count);
}

std::optional<Country> parseCountry(Bytes payload) {
  ByteReader reader(payload);
  const Bytes code = reader.take(2);
  reader.take(4);  // the environment, and at least one triplet of channels or operating classes
  const auto isLetter = [](std::uint8_t octet) { return octet >= 'A' && octet <= 'Z'; };
  if (reader.failed() || !std::ranges::all_of(code, isLetter)) return std::nullopt;
  return Country{.code = toText(code)};
}

std::optional<BssLoad> parseBssLoad(Bytes payload) {
  ByteReader reader(payload);
  BssLoad load;
  reader.take(2);  // the number of stations
  load.channelUtilization = reader.octet();
  reader.take(2);  // admission capacity
  if (reader.failed()) return std::nullopt;
  return load;
}

}  // namespace wifi_profile::ieee80211
