#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

#include "analysis/ieee80211/AccessPointElements.h"
#include "analysis/ieee80211/Beacons.h"
#include "analysis/ieee80211/ElementIds.h"
#include "analysis/ieee80211/Invariants.h"

namespace wifi_profile::ieee80211 {
namespace {

using testing::ElementsAre;

std::string broken(const Octets& elements, std::uint16_t capabilities,
                   std::optional<int> frequency) {
  const ReceivedFrame frame{
      .elements = elements, .capabilities = capabilities, .bssid = kSender, .frequency = frequency};
  return brokenRule(frame, parseAccessPointElements(frame));
}

TEST(AccessPointElements, OfNoBytesSayNothing) {
  AccessPointElements expected;
  expected.network.capabilities = kOpenCapabilities;
  expected.network.security = Security::none;
  EXPECT_EQ(parse(Octets{}), expected);
}

TEST(AccessPointElements, OfTheSamplesKeepTheRules) {
  for (const Sample& sample : samples()) {
    EXPECT_EQ(broken(sample.bytes(), sample.capabilities, sample.frequency), "") << sample.name;
    EXPECT_FALSE(parse(sample).truncated) << sample.name;
  }
}

TEST(AccessPointElements, OfAnOldNetwork) {
  const auto old = parse(sample("old-open"));
  EXPECT_EQ(old.network.ssid.value().name, "Attic");
  EXPECT_EQ(old.network.security, Security::none);
  EXPECT_EQ(old.modes, (PhyModes{.b = true}));
  EXPECT_EQ(old.network.dtim, (Dtim{.period = 2}));
}

TEST(AccessPointElements, OfAHiddenNetwork) {
  const auto hidden = parse(sample("hidden-wep"));
  EXPECT_TRUE(hidden.network.ssid.value().hidden);
  EXPECT_EQ(hidden.network.security, Security::wep);
}

TEST(AccessPointElements, OfANetworkAtHome) {
  const auto home = parse(sample("home-wpa2-40"));
  EXPECT_EQ(home.network.security, Security::wpa2Personal);
  EXPECT_EQ(home.modes, (PhyModes{.b = true, .g = true, .n = true}));
  EXPECT_EQ(home.channel.value().extent.value().width, Width::mhz40);
  EXPECT_EQ(home.country.value().code, "DE");
  EXPECT_EQ(home.network.load, (BssLoad{.channelUtilization = 128}));
  const auto wps = home.network.wps.value();
  EXPECT_EQ(wps.manufacturer, "Fictional Radios");
  EXPECT_EQ(wps.modelName, "Home Box");
}

TEST(AccessPointElements, OfWideNetworks) {
  const auto ac = parse(sample("ac-80"));
  EXPECT_EQ(ac.network.security, Security::wpa2Wpa3Personal);
  EXPECT_EQ(ac.modes, (PhyModes{.a = true, .n = true, .ac = true}));
  EXPECT_EQ(needsRadarDetection(ac.channel.value()), false);
  const auto ax = parse(sample("ax-160"));
  EXPECT_EQ(ax.channel.value().extent.value().width, Width::mhz160);
  EXPECT_EQ(needsRadarDetection(ax.channel.value()), true);
  const auto be = parse(sample("be-320"));
  EXPECT_EQ(be.modes, (PhyModes{.ax = true, .be = true}));
  EXPECT_THAT(overlappedChannels(be.channel.value()),
              ElementsAre(1, 5, 9, 13, 17, 21, 25, 29, 33, 37, 41, 45));
}

TEST(AccessPointElements, OfAPasspoint) {
  const auto passpoint = parse(sample("passpoint"));
  EXPECT_TRUE(passpoint.network.isPasspoint());
  EXPECT_EQ(passpoint.network.security, Security::wpa2Enterprise);
}

TEST(AccessPointElements, OfAnOpenNetworkWithAnEncryptedTwin) {
  const auto cafe = parse(sample("owe-transition"));
  EXPECT_EQ(cafe.network.security, Security::none);
  EXPECT_TRUE(cafe.network.oweTransition);
}

TEST(AccessPointElements, OfThreeNetworksInOneBeacon) {
  const auto office = parse(sample("three-networks"));
  EXPECT_EQ(office.network.security, Security::wpa3Personal);
  ASSERT_EQ(office.others.size(), 2U);
  EXPECT_EQ(office.others[0].network.ssid.value().name, "Guests");
  EXPECT_EQ(office.others[0].network.security, Security::none);
  EXPECT_EQ(office.others[1].network.ssid.value().name, "Things");
  EXPECT_EQ(office.others[1].network.security, Security::wpa3Personal);
  EXPECT_EQ(office.others[1].network.rates, office.network.rates);
  EXPECT_EQ(office.others[1].network.load, (BssLoad{.channelUtilization = 20}));
}

TEST(AccessPointElements, HaveNoRatesWhenHalfOfThemIsDamaged) {
  EXPECT_TRUE(parse(bRates()).network.rates);
  EXPECT_FALSE(parse(bRates() + element(kExtendedRatesId, {})).network.rates);
  EXPECT_FALSE(parse(element(kExtendedRatesId, {0x0C})).network.rates);
  EXPECT_FALSE(
      parse(bRates() + element(kExtendedRatesId, {0x0C}) + element(kExtendedRatesId, {0x18}))
          .network.rates);
}

TEST(AccessPointElements, MayBeAsManyAndAsLongAsTheyLike) {
  // 2000 empty vendor elements, 300 profiles of 3 indexes, 300 parts of WPS.
  Octets elements;
  for (int i = 0; i < 2000; ++i) elements = std::move(elements) + element(kVendorId, {});
  for (std::uint8_t i = 0; i < 100; ++i) {
    const Octets three = profile(profileElements(kOpenCapabilities, "a", 1)) +
                         profile(profileElements(kOpenCapabilities, "b", 2)) +
                         profile(profileElements(kOpenCapabilities, std::string(1, char(i)), 3));
    elements = std::move(elements) + multipleBssid(2, three);
    for (int j = 0; j < 3; ++j) {
      elements = std::move(elements) + vendorElement(kWpaOui, kWpsType, zeros(251));
    }
  }
  EXPECT_EQ(broken(elements, kOpenCapabilities, {}), "");
  const auto parsed = parse(elements);
  EXPECT_EQ(parsed.others.size(), 2U);
  EXPECT_FALSE(parsed.network.wps);
}

// What may be concluded from elements after which others were cut off.
void forgetWhatNeedsAll(NetworkElements& network) {
  if (!network.securityElements.rsn) network.security = Security::unknown;
}

AccessPointElements cutOffAfter(AccessPointElements result) {
  result.truncated = true;
  if (result.channel) result.channel->extent.reset();
  forgetWhatNeedsAll(result.network);
  for (auto& other : result.others) forgetWhatNeedsAll(other.network);
  return result;
}

TEST(AccessPointElements, ThatAreCutOffAnywhereLeaveAllBeforeThemAsItWas) {
  for (const Sample& sample : samples()) {
    Sample before = sample;
    before.elements.clear();
    // Some of a sample's parts are two elements.
    const Octets bytes = sample.bytes();
    for (std::size_t at = 0; at < bytes.size();) {
      const std::size_t end = at + 2 + bytes[at + 1];
      before.elements = {Octets(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(at))};
      const AccessPointElements expected = cutOffAfter(parse(before));
      for (std::size_t size = at + 1; size < end; ++size) {
        Sample cut = sample;
        cut.elements = {Octets(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size))};
        EXPECT_EQ(parse(cut), expected) << sample.name << " cut at " << size;
      }
      at = end;
    }
  }
}

// Random numbers are the same in every run.
class RandomFrames : public testing::Test {
 protected:
  std::size_t below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }
  std::uint8_t octet() { return static_cast<std::uint8_t>(below(256)); }
  Octets octets(std::size_t most) {
    Octets all(below(most + 1));
    for (auto& one : all) one = octet();
    return all;
  }
  std::optional<int> frequency() {
    if (below(3) == 0) return std::nullopt;
    return 2400 + 5 * static_cast<int>(below(1000));
  }

 private:
  std::mt19937 random_{20201};
};

TEST_F(RandomFrames, OfAnyBytesKeepTheRules) {
  for (int i = 0; i < 3000; ++i) {
    const Octets elements = octets(400);
    ASSERT_EQ(broken(elements, octet(), frequency()), "") << "frame " << i;
  }
}

TEST_F(RandomFrames, OfKnownElementsWithAnyPayloadKeepTheRules) {
  constexpr std::uint8_t kIds[]{0,  1,  3,   5,   7,   11,  45,  48, 50, 61,
                                68, 71, 107, 111, 191, 192, 244, 83, 85};
  constexpr std::uint8_t kExtensions[]{35, 36, 56, 106, 108};
  constexpr std::uint8_t kTypes[]{1, 4, 9, 16, 18, 28};
  for (int i = 0; i < 3000; ++i) {
    Octets elements;
    for (std::size_t left = below(12); left > 0; --left) {
      const Octets payload = octets(30);
      const std::size_t form = below(4);
      elements =
          std::move(elements) +
          (form == 0 ? vendorElement(below(2) == 0 ? kWpaOui : kAllianceOui,
                                     kTypes[below(std::size(kTypes))], payload)
           : form == 1 ? extensionElement(kExtensions[below(std::size(kExtensions))], payload)
                       : element(kIds[below(std::size(kIds))], payload));
    }
    ASSERT_EQ(broken(elements, octet(), frequency()), "") << "frame " << i;
  }
}

TEST_F(RandomFrames, OfDamagedSamplesKeepTheRules) {
  for (int i = 0; i < 6000; ++i) {
    const Sample& sample = samples()[below(samples().size())];
    Octets bytes = sample.bytes();
    for (std::size_t left = 1 + below(4); left > 0 && !bytes.empty(); --left) {
      const auto at = bytes.begin() + static_cast<std::ptrdiff_t>(below(bytes.size()));
      const std::size_t damage = below(4);
      if (damage == 0) *at = octet();
      if (damage == 1) *at ^= static_cast<std::uint8_t>(1U << below(8));
      if (damage == 2) bytes.erase(at);
      if (damage == 3) bytes.insert(at, octet());
    }
    ASSERT_EQ(broken(bytes, sample.capabilities, sample.frequency), "")
        << "frame " << i << ", " << sample.name;
  }
}

}  // namespace
}  // namespace wifi_profile::ieee80211
