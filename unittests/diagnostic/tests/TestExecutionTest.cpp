// How every one of the 41 tests is run and its answer read, whatever the test.

#include <algorithm>
#include <iterator>
#include <thread>

#include "diagnostic/tests/EveryTest.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

TEST_P(EveryTest, SendsOneRequestOfItsNumberWithTheVeryConfiguration) {
  inEveryForm(fullAnswer(), [&](const auto&) {
    ASSERT_EQ(service->requests().size(), 1U);
    const FakeService::Request& request = service->requests().front();
    EXPECT_EQ(static_cast<int>(request.test), expected().number);
    EXPECT_EQ(request.configuration, testConfiguration);
    EXPECT_EQ(request.requestsInTheCall, 1U);
    EXPECT_EQ(request.peer, nullptr);
    EXPECT_FALSE(request.asksForUpdates);
    EXPECT_TRUE(request.errorSlotWasNil);
    EXPECT_EQ(request.thread, std::this_thread::get_id());
  });
}

TEST_P(EveryTest, LogsAnErrorAndIgnoresTheResultsThatComeWithIt) {
  FakeAnswer answer = fullAnswer();
  answer.error = makeError(-3905, "the radio said \"no\" 100%");
  inEveryForm(answer, [&](const auto& findings) {
    EXPECT_THAT(log->errors(), ElementsAre(line(expected().label + " failed with error: " +
                                                "the radio said \"no\" 100%")));
    EXPECT_THAT(keysOf(findings), IsEmpty());
    EXPECT_EQ(controller->wifiScanResults(), nullptr);
  });
}

TEST_P(EveryTest, TakesAnErrorOfCodeZeroForSuccess) {
  FakeAnswer answer = fullAnswer();
  answer.error = makeError(0, "nothing to see");
  inEveryForm(answer, [&](const auto& findings) {
    EXPECT_THAT(log->errors(), IsEmpty());
    EXPECT_EQ(keysOf(findings), allKeys());
  });
}

TEST_P(EveryTest, LogsAbsentResultsAndWritesNothing) {
  for (const DiagnosticsTestResults& results :
       {DiagnosticsTestResults(), DiagnosticsTestResults(std::in_place)}) {
    inEveryForm({results, nullptr}, [&](const auto& findings) {
      EXPECT_THAT(log->errors(), ElementsAre(line("Results not found.")));
      EXPECT_THAT(keysOf(findings), IsEmpty());
    });
  }
}

TEST_P(EveryTest, LogsAFirstSlotWithoutAResultAndWritesNothing) {
  const auto second = std::make_shared<const DiagnosticsTestResult>();
  inEveryForm({{{nullptr, second}}, nullptr}, [&](const auto& findings) {
    EXPECT_THAT(log->errors(), ElementsAre(line("Test Result not found.")));
    EXPECT_THAT(keysOf(findings), IsEmpty());
  });
}

TEST_P(EveryTest, ReadsOnlyTheFirstOfSeveralResults) {
  FakeAnswer answer = fullAnswer();
  answer.results->push_back(std::make_shared<const DiagnosticsTestResult>(DiagnosticsTestResult{
      .result = false, .didPass = false, .info = makeDictionary({{"Other", makeText("x")}})}));
  inEveryForm(answer, [&](const auto& findings) {
    EXPECT_THAT(log->errors(), IsEmpty());
    EXPECT_EQ(keysOf(findings), allKeys());
    expectVerdict(findings, true);
  });
}

TEST_P(EveryTest, StoresTheVerdictUnderItsKey) {
  for (const bool verdict : {false, true}) {
    inEveryForm(fullAnswer(verdict),
                [&](const auto& findings) { expectVerdict(findings, verdict); });
  }
}

TEST_P(EveryTest, ReadsItsInformationWhateverTheVerdict) {
  for (const bool verdict : {false, true}) {
    const FakeAnswer answer = fullAnswer(verdict);
    const DictionaryRef information = answer.results->front()->info;
    inEveryForm(answer, [&](const auto& findings) {
      EXPECT_THAT(log->errors(), IsEmpty());
      EXPECT_EQ(keysOf(findings), allKeys());
      for (const ExpectedCopy& copy : expected().copies) {
        expectCopied(findings, copy, information->objectForKey(copy.infoKey));
      }
    });
  }
}

class GatedTest : public EveryTest {};

TEST_P(GatedTest, ReadsNoInformationWhileItsGateIsShut) {
  for (const DictionaryRef& information : {fullInformation(), DictionaryRef()}) {
    inEveryForm(
        answerOf({.result = true, .didPass = !didPassThatOpensTheGate(), .info = information}),
        [&](const auto& findings) {
          EXPECT_THAT(log->errors(), IsEmpty());
          EXPECT_EQ(keysOf(findings), verdictKey());
          EXPECT_EQ(controller->wifiScanResults(), nullptr);
        });
  }
}

class UngatedTest : public EveryTest {};

TEST_P(UngatedTest, ReadsItsInformationPassedOrNot) {
  for (const bool passed : {false, true}) {
    inEveryForm(answerOf({.result = true, .didPass = passed, .info = fullInformation()}),
                [&](const auto& findings) { EXPECT_EQ(keysOf(findings), allKeys()); });
  }
}

TEST_P(EveryTest, LogsMissingInformationOnlyWhereItReadsAny) {
  inEveryForm(answerOf({.result = true, .didPass = didPassThatOpensTheGate(), .info = nullptr}),
              [&](const auto& findings) {
                const bool reads = !expected().copies.empty();
                EXPECT_EQ(log->errors(), reads ? std::vector{line("Info not found.")}
                                               : std::vector<std::string>{});
                EXPECT_EQ(keysOf(findings), verdictKey());
              });
}

TEST_P(EveryTest, LogsEveryMissingValueInOrderAndKeepsTheVerdict) {
  inEveryForm(
      answerOf({.result = true, .didPass = didPassThatOpensTheGate(), .info = makeDictionary({})}),
      [&](const auto& findings) {
        EXPECT_THAT(log->errors(), ElementsAreArray(notFoundLines()));
        EXPECT_EQ(keysOf(findings), verdictKey());
      });
}

TEST_P(EveryTest, MissesOneValueWithoutMissingTheOthers) {
  for (const ExpectedCopy& missing : expected().copies) {
    SCOPED_TRACE(missing.infoKey);
    Dictionary::Entries information = fullInformation()->entries();
    information.erase(missing.infoKey);
    std::vector<std::string> keys = allKeys();
    std::erase(keys, missing.outputKey);
    inEveryForm(answerOf({.result = true,
                          .didPass = didPassThatOpensTheGate(),
                          .info = makeDictionary(information)}),
                [&](const auto& findings) {
                  EXPECT_EQ(keysOf(findings), keys);
                  EXPECT_EQ(log->errors(), missing.logName.empty()
                                               ? std::vector<std::string>{}
                                               : std::vector{notFoundLine(missing.logName)});
                });
  }
}

// Values that stand for nothing, or are none that the test's reading knows.
TEST_P(EveryTest, CopiesAnyObjectUnchangedButReadsRecordsOnlyOfTheirKind) {
  for (const ObjectRef& odd : std::vector<ObjectRef>{nullPlaceholder(), makeText("odd"),
                                                     Number::withDouble(0.5), makeDictionary({})}) {
    SCOPED_TRACE(described(odd));
    Dictionary::Entries information;
    for (const ExpectedCopy& copy : expected().copies) information.emplace(copy.infoKey, odd);
    inEveryForm(answerOf({.result = true,
                          .didPass = didPassThatOpensTheGate(),
                          .info = makeDictionary(information)}),
                [&](const auto& findings) {
                  if (expected().reading == Reading::unchanged) {
                    EXPECT_THAT(log->errors(), IsEmpty());
                    EXPECT_EQ(keysOf(findings), allKeys());
                    for (const ExpectedCopy& copy : expected().copies) {
                      EXPECT_THAT(findings->objectForKey(copy.outputKey), isTheVery(odd));
                    }
                  } else {
                    EXPECT_EQ(log->errors(), notFoundLines());
                    EXPECT_EQ(keysOf(findings), verdictKey());
                  }
                });
  }
}

TEST_P(EveryTest, ReplacesWhatItsKeysHeldAndLeavesOtherKeysAlone) {
  const ObjectRef old = makeText("old");
  Dictionary::Entries before{{"aKeyOfNoTest", old}};
  for (const std::string& key : allKeys()) before.emplace(key, old);
  inEveryForm(
      fullAnswer(),
      [&](const auto& findings) {
        for (const std::string& key : allKeys()) {
          EXPECT_NE(findings->objectForKey(key), old) << key;
        }
        EXPECT_THAT(findings->objectForKey("aKeyOfNoTest"), isTheVery(old));
        EXPECT_EQ(findings->entries().size(), before.size());
      },
      before);
}

TEST_P(EveryTest, LeavesEarlierFindingsAloneWhenItFails) {
  Dictionary::Entries before;
  for (const std::string& key : allKeys()) before.emplace(key, makeText("old"));
  inEveryForm(
      {std::nullopt, makeError(1, "broken")},
      [&](const auto& findings) { EXPECT_EQ(findings->entries(), before); }, before);
  inEveryForm(
      {std::nullopt, nullptr},
      [&](const auto& findings) { EXPECT_EQ(findings->entries(), before); }, before);
}

TEST_P(EveryTest, WritesNoLineWhenErrorsAreNotLogged) {
  log->switchOff(LogLevel::error);
  for (const FakeAnswer& answer :
       {FakeAnswer{std::nullopt, makeError(1, "broken")}, FakeAnswer{std::nullopt, nullptr},
        FakeAnswer{{{nullptr}}, nullptr},
        answerOf({.result = true, .didPass = didPassThatOpensTheGate(), .info = nullptr}),
        answerOf(
            {.result = true, .didPass = didPassThatOpensTheGate(), .info = makeDictionary({})})}) {
    inEveryForm(answer, [&](const auto&) { EXPECT_TRUE(log->lines().empty()); });
  }
}

TEST_P(EveryTest, AcceptsThatThereIsNoConfiguration) {
  setUpController(makeInputs(nullptr));
  service->willAnswer(expected().id(), fullAnswer());
  const auto findings = std::make_shared<Dictionary>();
  if (expected().isOfDevice()) {
    controller->deviceData.set(findings);
    controller->runDeviceConfigurationTest(expected().id());
  } else {
    controller->runCurrentNetworkTest(expected().id(), nullptr, findings);
  }
  ASSERT_EQ(service->requests().size(), 1U);
  EXPECT_EQ(service->requests().front().configuration, nullptr);
  EXPECT_EQ(keysOf(findings), allKeys());
}

std::vector<ExpectedTest> testsThat(bool (*fit)(const ExpectedTest&)) {
  std::vector<ExpectedTest> fitting;
  std::copy_if(expectedTests().begin(), expectedTests().end(), std::back_inserter(fitting), fit);
  return fitting;
}

std::string memberOf(const ::testing::TestParamInfo<ExpectedTest>& test) {
  return test.param.member();
}

INSTANTIATE_TEST_SUITE_P(Catalogue, EveryTest, ::testing::ValuesIn(expectedTests()), memberOf);
INSTANTIATE_TEST_SUITE_P(Catalogue, GatedTest,
                         ::testing::ValuesIn(testsThat([](const ExpectedTest& test) {
                           return test.gate != Gate::none;
                         })),
                         memberOf);
INSTANTIATE_TEST_SUITE_P(Catalogue, UngatedTest,
                         ::testing::ValuesIn(testsThat([](const ExpectedTest& test) {
                           return test.gate == Gate::none;
                         })),
                         memberOf);

class Operations : public DiagnosticFixture {
 protected:
  void SetUp() override { setUpController(makeInputs(nullptr)); }
};

TEST_F(Operations, OfTheDeviceReadTheConfigurationAfreshEachTime) {
  const DictionaryRef first = makeDictionary({});
  const DictionaryRef second = makeDictionary({});
  controller->configuration.set(first);
  controller->runDeviceConfigurationCustomDNS();
  controller->configuration.set(second);
  controller->runDeviceConfigurationCustomDNS();
  ASSERT_EQ(service->requests().size(), 2U);
  EXPECT_EQ(service->requests()[0].configuration, first);
  EXPECT_EQ(service->requests()[1].configuration, second);
}

TEST_F(Operations, OfTheDeviceWriteIntoTheFindingsOfTheTimeOfTheAnswer) {
  const MutableDictionaryRef before = controller->deviceData();
  const auto after = std::make_shared<Dictionary>();
  service->whileRunning = [&](const auto&) { controller->deviceData.set(after); };
  controller->runDeviceConfigurationCustomDNS();
  EXPECT_THAT(keysOf(before), IsEmpty());
  EXPECT_THAT(keysOf(after), ElementsAre("isUsingCustomDNS"));
}

TEST_F(Operations, OfTheSelectedNetworkReadConfigurationAndFindingsAfresh) {
  for (const ExpectedTest& test : expectedTests()) {
    if (!test.operations.ofSelected) continue;
    const DictionaryRef newConfiguration = makeDictionary({});
    const auto newFindings = std::make_shared<Dictionary>();
    controller->configuration.set(newConfiguration);
    controller->selectedNetworkData.set(newFindings);
    (*controller.*test.operations.ofSelected)();
    EXPECT_EQ(service->requests().back().configuration, newConfiguration);
    EXPECT_TRUE(newFindings->objectForKey(test.resultKey)) << test;
  }
}

TEST(LogHandle, ComposesNoLineWhoseLevelIsOff) {
  const auto log = std::make_shared<RecordingLog>();
  const InstalledPlatform platform({.log = log.get()});
  int composed = 0;
  const auto compose = [&composed] { return "line " + std::to_string(++composed); };
  DiagnosticLogHandleForCategory(3).error(compose);
  log->switchOff(LogLevel::error);
  DiagnosticLogHandleForCategory(3).error(compose);
  EXPECT_EQ(composed, 1);
  EXPECT_EQ(log->lines(), (std::vector<RecordingLog::Line>{{3, LogLevel::error, "line 1"}}));
}

}  // namespace
}  // namespace wifi_profile
