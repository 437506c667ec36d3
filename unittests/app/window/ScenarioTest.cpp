// Every scenario with a list, worked in the window with mouse, touch, keys and by the accessible
// interface. The outcome is that of the scripted runs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/window/WindowFixture.h"
#include "devices/scenario/ScenarioReader.h"
#include "runtime/JsonReader.h"

namespace wifi_profile::testing {
namespace {

using ::testing::IsEmpty;

struct Case {
  const char* scenario;
  HandKind hand;
};

std::ostream& operator<<(std::ostream& out, const Case& one) { return out << one.scenario; }

std::string nameOf(HandKind hand) {
  switch (hand) {
    case HandKind::mouse:
      return "Mouse";
    case HandKind::touch:
      return "Touch";
    case HandKind::keys:
      return "Keys";
    case HandKind::assistive:
      break;
  }
  return "Assistive";
}

// The last line of a trace: what a person saw at the end.
std::string lastScreen(const std::string& trace) {
  const auto begin = trace.rfind("\"event\":\"screen\"");
  return begin == std::string::npos ? "" : trace.substr(begin);
}

std::vector<Case> allCases() {
  std::vector<Case> cases;
  for (const char* const scenario :
       {"pick-another", "pick-typed", "pick-rescan", "pick-radio-off-yes", "pick-radio-off-no",
        "pick-radio-lost-in-list", "pick-radio-lost-in-run", "pick-no-radio", "pick-no-manager",
        "pick-no-device", "pick-nomap"}) {
    for (const HandKind hand :
         {HandKind::mouse, HandKind::touch, HandKind::keys, HandKind::assistive}) {
      cases.push_back({scenario, hand});
    }
  }
  return cases;
}

class ScenarioInTheWindow : public WindowFixture, public ::testing::WithParamInterface<Case> {};

TEST_P(ScenarioInTheWindow, ComesToWhatItsScriptComesTo) {
  const std::string scenario = GetParam().scenario;
  const std::string json = projectFile("scenarios/" + scenario + ".json");
  const auto document = runtime::readJson(json);
  const auto read = scenario::readScenario(*document);
  const auto result = runWith(json, deedsOf(*read, GetParam().hand), true);
  EXPECT_EQ(result.stuckAt, "");
  EXPECT_EQ(result.run.ending, cli::Ending::finished);
  EXPECT_EQ(result.run.record, projectFile("unittests/golden/" + scenario + ".record.json"));
  EXPECT_EQ(lastScreen(result.run.trace),
            lastScreen(projectFile("unittests/golden/" + scenario + ".trace.ndjson")));
}

class DialogOverARun : public WindowFixture {
 protected:
  // The run ends while the dialog is up.
  void expectNoDialogOverTheReport(const std::string& json) {
    const auto document = runtime::readJson(json);
    const auto read = scenario::readScenario(*document);
    const auto result = runWith(json, deedsOf(*read, HandKind::mouse), true);
    EXPECT_EQ(result.stuckAt, "");
    EXPECT_EQ(result.run.ending, cli::Ending::finished);
    screen->model().setReport(result.run.report);
    EXPECT_TRUE(waitUntil([&] { return item("alertMessage") == nullptr; }));
    EXPECT_EQ(screen->model().alertMessage(), "");
  }
};

TEST_F(DialogOverARun, OfTheNameGoesWhenTheRadioGoesOff) {
  expectNoDialogOverTheReport(R"({"scenario":1,"user":[{"tapOther":true},{"setPower":false}]})");
}

TEST_F(DialogOverARun, OfThePowerGoesWhenTheRadioGoesOff) {
  expectNoDialogOverTheReport(
      R"({"scenario":1,"device":{"power":false},"user":[{"setPower":false}]})");
}

INSTANTIATE_TEST_SUITE_P(Every, ScenarioInTheWindow, ::testing::ValuesIn(allCases()),
                         [](const auto& test) {
                           std::string name = test.param.scenario;
                           std::erase(name, '-');
                           return name + nameOf(test.param.hand);
                         });

}  // namespace
}  // namespace wifi_profile::testing
