// The catalogue against a list written by hand, and the named operations against their numbers.

#include <algorithm>

#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"
#include "diagnostic/tests/Catalogue.h"
#include "diagnostic/tests/ExpectedTests.h"

namespace wifi_profile {
namespace {

TEST(Catalogue, HoldsTheFortyOneTestsInOrderOfTheirNumbers) {
  std::vector<int> numbers;
  std::vector<int> expected;
  for (const CatalogueTest& row : kCatalogue) numbers.push_back(static_cast<int>(row.id));
  for (const ExpectedTest& test : expectedTests()) expected.push_back(test.number);
  EXPECT_EQ(expected.size(), 41U);
  EXPECT_EQ(numbers, expected);
}

TEST(Catalogue, SaysOfEachTestWhatIsExpectedOfIt) {
  for (const ExpectedTest& test : expectedTests()) {
    SCOPED_TRACE(test.member);
    const CatalogueTest& row = catalogueTest(test.id());
    EXPECT_EQ(row.member(), test.member);
    EXPECT_EQ(row.label, test.label);
    EXPECT_EQ(row.resultKey, test.resultKey);
    EXPECT_EQ(row.gate, test.gate);
    EXPECT_EQ(row.subject, test.ofDevice ? TestSubject::device : TestSubject::network);
    EXPECT_EQ(row.verdictForm,
              test.member == "NoScanResults" ? VerdictForm::inverseInteger : VerdictForm::boolean);
    ASSERT_EQ(row.information().size(), test.copies.size());
    for (std::size_t i = 0; i < test.copies.size(); ++i) {
      EXPECT_EQ(row.information()[i].infoKey, test.copies[i].infoKey);
      EXPECT_EQ(row.information()[i].outputKey, test.copies[i].outputKey);
      EXPECT_EQ(row.information()[i].logName, test.copies[i].logName);
    }
  }
}

TEST(Catalogue, NamesMembersBothWays) {
  for (const ExpectedTest& test : expectedTests()) {
    EXPECT_EQ(nameOf(test.id()), test.member);
    EXPECT_EQ(testNamed(test.member), test.id());
  }
}

TEST(Catalogue, KnowsNoNameForNumbersThatAreNeverRequested) {
  for (const int number : {0, 1, 2, 4, 5, 10, 21, 23, 49}) {
    EXPECT_EQ(nameOf(static_cast<DiagnosticsTestID>(number)), "") << number;
  }
  EXPECT_EQ(testNamed("pingLAN"), std::nullopt);
  EXPECT_EQ(testNamed(""), std::nullopt);
}

TEST(Catalogue, ExportsTheKeyOfANetworksName) { EXPECT_EQ(kNetworkName, "networkName"); }

class NamedOperations : public DiagnosticFixture {
 protected:
  const DictionaryRef testConfiguration = makeDictionary({{"a", makeText("b")}});

  void SetUp() override {
    setUpController(makeInputs(nullptr));
    controller->configuration.set(testConfiguration);
  }

  // Checks that exactly one test was asked for since the last check, and how.
  void expectOneRequest(int number, const DictionaryRef& configuration) {
    ASSERT_EQ(service->requestedNumbers(), std::vector<int>{number});
    EXPECT_EQ(service->requests().front().configuration, configuration);
    service->forgetRequests();
  }

  static std::string resultKeyOf(int number) {
    const auto& tests = expectedTests();
    return std::find_if(tests.begin(), tests.end(),
                        [number](const auto& test) { return test.number == number; })
        ->resultKey;
  }
};

TEST_F(NamedOperations, OfTheDeviceRequestTheirOwnNumberAndWriteTheDevicesFindings) {
  for (const DeviceOperation& operation : deviceOperations()) {
    (*controller.*operation.run)();
    expectOneRequest(operation.number, testConfiguration);
    EXPECT_TRUE(controller->deviceData()->objectForKey(resultKeyOf(operation.number)));
  }
  EXPECT_EQ(controller->deviceData()->entries().size(), 11U);
  EXPECT_TRUE(controller->currentNetworkData()->entries().empty());
  EXPECT_TRUE(controller->selectedNetworkData()->entries().empty());
}

TEST_F(NamedOperations, OfANetworkRequestTheirOwnNumberAndWriteTheFindingsTheyAreGiven) {
  const auto findings = std::make_shared<Dictionary>();
  const DictionaryRef given = makeDictionary({});
  for (const NetworkOperation& operation : networkOperations()) {
    (*controller.*operation.run)(given, findings);
    expectOneRequest(operation.number, given);
    EXPECT_TRUE(findings->objectForKey(resultKeyOf(operation.number)));
  }
  EXPECT_TRUE(controller->deviceData()->entries().empty());
  EXPECT_TRUE(controller->currentNetworkData()->entries().empty());
  EXPECT_TRUE(controller->selectedNetworkData()->entries().empty());
}

TEST_F(NamedOperations, OfTheSelectedNetworkRequestTheirOwnNumberAndWriteItsFindings) {
  for (const SelectedOperation& operation : selectedOperations()) {
    (*controller.*operation.run)();
    expectOneRequest(operation.number, testConfiguration);
    EXPECT_TRUE(controller->selectedNetworkData()->objectForKey(resultKeyOf(operation.number)));
  }
  EXPECT_TRUE(controller->deviceData()->entries().empty());
  EXPECT_TRUE(controller->currentNetworkData()->entries().empty());
}

TEST_F(NamedOperations, CoverEveryTestOnce) {
  std::vector<int> numbers;
  for (const auto& operation : deviceOperations()) numbers.push_back(operation.number);
  for (const auto& operation : networkOperations()) numbers.push_back(operation.number);
  std::sort(numbers.begin(), numbers.end());
  std::vector<int> expected;
  for (const ExpectedTest& test : expectedTests()) expected.push_back(test.number);
  EXPECT_EQ(numbers, expected);
}

TEST_F(NamedOperations, OfTheSelectedNetworkReadConfigurationAndFindingsAfresh) {
  for (const SelectedOperation& operation : selectedOperations()) {
    const DictionaryRef newConfiguration = makeDictionary({});
    const auto newFindings = std::make_shared<Dictionary>();
    controller->configuration.set(newConfiguration);
    controller->selectedNetworkData.set(newFindings);
    (*controller.*operation.run)();
    expectOneRequest(operation.number, newConfiguration);
    EXPECT_TRUE(newFindings->objectForKey(resultKeyOf(operation.number)));
  }
}

}  // namespace
}  // namespace wifi_profile
