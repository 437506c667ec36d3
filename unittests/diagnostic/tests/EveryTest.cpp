#include "diagnostic/tests/EveryTest.h"

#include <algorithm>

namespace wifi_profile {
namespace {

// A value of the kind that the test reads. `nth` tells several values of one test apart.
ObjectRef usualValue(Reading reading, int nth) {
  switch (reading) {
    case Reading::pingSummary:
      return std::make_shared<const PingResultRecord>();
    case Reading::preferredSummary:
      return std::make_shared<const PreferredNetworkRecord>();
    case Reading::channel:
      return std::make_shared<const ChannelRecord>(100 + nth);
    case Reading::elementCount:
    case Reading::scanList:
      return std::make_shared<const Array>(std::vector<ObjectRef>{nullPlaceholder()});
    case Reading::unchanged:
      break;
  }
  return Number::withInteger(nth);
}

}  // namespace

std::vector<Form> EveryTest::formsOfNewController(const Dictionary::Entries& before) {
  setUpController(makeInputs(nullptr));
  controller->configuration.set(testConfiguration);
  for (auto* section : {&controller->deviceData, &controller->currentNetworkData,
                        &controller->selectedNetworkData}) {
    section->set(std::make_shared<Dictionary>(before));
  }
  const auto deviceData = controller->deviceData();
  const auto selectedData = controller->selectedNetworkData();
  const auto ownData = std::make_shared<Dictionary>(before);
  const auto subject = controller;
  const ExpectedOperations& operations = expected().operations;
  if (expected().isOfDevice()) {
    return {{"by number", deviceData,
             [=, id = expected().id()] { subject->runDeviceConfigurationTest(id); }},
            {"by name", deviceData, [=] { (*subject.*operations.ofDevice)(); }}};
  }
  std::vector<Form> forms{
      {"by number", ownData,
       [=, this, id = expected().id()] {
         subject->runCurrentNetworkTest(id, testConfiguration, ownData);
       }},
      {"by name", ownData,
       [=, this] { (*subject.*operations.ofNetwork)(testConfiguration, ownData); }},
  };
  if (operations.ofSelected) {
    forms.push_back(
        {"of the selected network", selectedData, [=] { (*subject.*operations.ofSelected)(); }});
  }
  return forms;
}

void EveryTest::inEveryForm(const FakeAnswer& answer,
                            const std::function<void(const MutableDictionaryRef&)>& check,
                            const Dictionary::Entries& before) {
  const std::size_t formCount = formsOfNewController(before).size();
  for (std::size_t i = 0; i < formCount; ++i) {
    const Form form = formsOfNewController(before)[i];
    SCOPED_TRACE(form.name);
    service->forgetRequests();
    service->willAnswer(expected().id(), answer);
    log->clear();
    form.run();
    check(form.findings);
    for (const MutableDictionaryRef& section :
         {controller->deviceData(), controller->currentNetworkData(),
          controller->selectedNetworkData()}) {
      if (section != form.findings) {
        EXPECT_EQ(section->entries(), before) << "another section changed";
      }
    }
  }
}

DictionaryRef EveryTest::fullInformation() {
  Dictionary::Entries information;
  for (const ExpectedCopy& copy : expected().copies) {
    const int nth = static_cast<int>(information.size());
    information.emplace(copy.infoKey, usualValue(expected().reading, nth));
  }
  return makeDictionary(std::move(information));
}

FakeAnswer EveryTest::fullAnswer(bool verdict) const {
  return answerOf(
      {.result = verdict, .didPass = didPassThatOpensTheGate(), .info = fullInformation()});
}

std::vector<std::string> EveryTest::allKeys() {
  std::vector<std::string> keys = verdictKey();
  for (const ExpectedCopy& copy : expected().copies) {
    if (!copy.outputKey.empty()) keys.push_back(copy.outputKey);
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

std::vector<std::string> EveryTest::notFoundLines() {
  std::vector<std::string> lines;
  for (const ExpectedCopy& copy : expected().copies) {
    if (!copy.logName.empty()) lines.push_back(notFoundLine(copy.logName));
  }
  return lines;
}

void EveryTest::expectVerdict(const DictionaryRef& findings, bool verdict) {
  const ObjectRef stored = findings->objectForKey(expected().resultKey);
  if (expected().member() == "NoScanResults") {
    EXPECT_THAT(stored, isInteger(verdict ? 0 : 1));
  } else {
    EXPECT_THAT(stored, isBoolean(verdict));
  }
}

void EveryTest::expectCopied(const DictionaryRef& findings, const ExpectedCopy& copy,
                             const ObjectRef& value) const {
  const ObjectRef found = findings->objectForKey(copy.outputKey);
  switch (expected().reading) {
    case Reading::unchanged:
      EXPECT_THAT(found, isTheVery(value));
      break;
    case Reading::pingSummary:
    case Reading::preferredSummary:
      ASSERT_TRUE(as<Dictionary>(found)) << described(found);
      EXPECT_EQ(as<Dictionary>(found)->entries().size(), 8U);
      break;
    case Reading::channel:
      EXPECT_THAT(found, isInteger(as<ChannelRecord>(value)->channel()));
      break;
    case Reading::elementCount:
      EXPECT_THAT(found, isUnsigned(as<Array>(value)->elements().size()));
      break;
    case Reading::scanList:
      EXPECT_EQ(controller->wifiScanResults(), as<Array>(value));
      break;
  }
}

}  // namespace wifi_profile
