// Validation of the host's parameters.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "diagnostic/controller/WiFiProfileInputs.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

Dictionary::Entries validParameters() {
  return {{"maxScanCacheAge", Number::withInteger(30)},
          {"networkName", makeText("Home")},
          {"reprofileWithUI", Number::withBool(true)}};
}

Dictionary::Entries validParametersWith(const std::string& key, ObjectRef value) {
  Dictionary::Entries parameters = validParameters();
  parameters.insert_or_assign(key, std::move(value));
  return parameters;
}

Dictionary::Entries validParametersWithout(const std::string& key) {
  Dictionary::Entries parameters = validParameters();
  parameters.erase(key);
  return parameters;
}

bool areValid(Dictionary::Entries parameters) {
  return WiFiProfileInputs().validateAndInitializeParameters(makeDictionary(std::move(parameters)));
}

TEST(Inputs, KeepTheThreeValuesAsGiven) {
  const Dictionary::Entries parameters = validParameters();
  WiFiProfileInputs inputs;
  EXPECT_TRUE(inputs.validateAndInitializeParameters(makeDictionary(parameters)));
  EXPECT_THAT(inputs.maxScanCacheAge(), isTheVery(parameters.at("maxScanCacheAge")));
  EXPECT_TRUE(inputs.reprofileWithNetworksListUI());
  EXPECT_THAT(inputs.selectedNetworkName(), isTheVery(parameters.at("networkName")));
}

TEST(Inputs, KeepTheVeryParameters) {
  const DictionaryRef parameters = makeDictionary(validParametersWith("other", makeText("key")));
  WiFiProfileInputs inputs;
  EXPECT_TRUE(inputs.validateAndInitializeParameters(parameters));
  EXPECT_EQ(inputs.parameters(), parameters);
}

TEST(Inputs, NeedNoNetworkName) {
  WiFiProfileInputs inputs;
  EXPECT_TRUE(inputs.validateAndInitializeParameters(
      makeDictionary({{"maxScanCacheAge", Number::withInteger(0)},
                      {"reprofileWithUI", Number::withBool(false)}})));
  EXPECT_EQ(inputs.selectedNetworkName(), nullptr);
  EXPECT_FALSE(inputs.reprofileWithNetworksListUI());
}

TEST(Inputs, AcceptScanCacheAgesOfUpToTenMinutes) {
  for (const NumberRef& age :
       {Number::withInteger(0), Number::withInteger(600), Number::withUnsigned(0),
        Number::withUnsigned(600), Number::withDouble(0.0), Number::withDouble(599.5)}) {
    EXPECT_TRUE(areValid(validParametersWith("maxScanCacheAge", age))) << described(age);
  }
}

TEST(Inputs, RefuseScanCacheAgesOutOfBounds) {
  for (const NumberRef& age :
       {Number::withInteger(601), Number::withInteger(-1), Number::withUnsigned(601),
        Number::withUnsigned(std::numeric_limits<std::uint64_t>::max()), Number::withDouble(600.5),
        Number::withDouble(-0.001), Number::withDouble(std::numeric_limits<double>::quiet_NaN()),
        Number::withDouble(std::numeric_limits<double>::infinity())}) {
    EXPECT_FALSE(areValid(validParametersWith("maxScanCacheAge", age))) << described(age);
  }
}

TEST(Inputs, RefuseAScanCacheAgeThatIsNoNumber) {
  for (const ObjectRef& age : std::vector<ObjectRef>{makeText("30"), nullPlaceholder(),
                                                     Number::withBool(true), makeDictionary({})}) {
    EXPECT_FALSE(areValid(validParametersWith("maxScanCacheAge", age))) << described(age);
  }
}

TEST(Inputs, RefuseAMissingScanCacheAgeThoughTheOthersAreFine) {
  EXPECT_FALSE(areValid(validParametersWithout("maxScanCacheAge")));
}

TEST(Inputs, RefuseAPickerFlagThatIsMissingOrNoBoolean) {
  EXPECT_FALSE(areValid(validParametersWithout("reprofileWithUI")));
  for (const ObjectRef& flag :
       std::vector<ObjectRef>{Number::withInteger(0), Number::withInteger(1), Number::withDouble(1),
                              makeText("true"), nullPlaceholder()}) {
    EXPECT_FALSE(areValid(validParametersWith("reprofileWithUI", flag))) << described(flag);
  }
}

TEST(Inputs, AcceptNamesOfUpToThirtyTwoCharacters) {
  std::string accented;
  for (int i = 0; i < 32; ++i) accented += "\u00e9";
  for (const std::string& name : {std::string(), std::string(32, 'a'), accented}) {
    EXPECT_TRUE(areValid(validParametersWith("networkName", makeText(name)))) << name;
  }
  EXPECT_FALSE(areValid(validParametersWith("networkName", makeText(accented + "e"))));
  EXPECT_FALSE(areValid(validParametersWith("networkName", makeText(std::string(33, 'a')))));
}

TEST(Inputs, RefuseANameThatIsNoText) {
  EXPECT_FALSE(areValid(validParametersWith("networkName", Number::withInteger(1))));
  EXPECT_FALSE(areValid(validParametersWith("networkName", nullPlaceholder())));
}

TEST(Inputs, ReadEveryKeyWhateverBecameOfTheOthers) {
  WiFiProfileInputs inputs;
  const DictionaryRef parameters =
      makeDictionary(validParametersWith("maxScanCacheAge", Number::withInteger(601)));
  EXPECT_FALSE(inputs.validateAndInitializeParameters(parameters));
  EXPECT_EQ(inputs.maxScanCacheAge(), nullptr);
  EXPECT_TRUE(inputs.reprofileWithNetworksListUI());
  EXPECT_THAT(inputs.selectedNetworkName(), isText("Home"));
  EXPECT_EQ(inputs.parameters(), parameters);
}

TEST(Inputs, StoreWhatAFailedReadLeaves) {
  WiFiProfileInputs inputs;
  inputs.setMaxScanCacheAge(Number::withInteger(5));
  inputs.setReprofileWithNetworksListUI(true);
  inputs.setSelectedNetworkName(makeText("earlier"));
  EXPECT_FALSE(inputs.validateAndInitializeParameters(
      makeDictionary({{"networkName", makeText(std::string(33, 'a'))}})));
  EXPECT_EQ(inputs.maxScanCacheAge(), nullptr);
  EXPECT_FALSE(inputs.reprofileWithNetworksListUI());
  EXPECT_EQ(inputs.selectedNetworkName(), nullptr);
}

TEST(Inputs, RefuseToBeWithoutParameters) {
  EXPECT_FALSE(WiFiProfileInputs().validateAndInitializeParameters(nullptr));
}

}  // namespace
}  // namespace wifi_profile
