#include "devices/scenario/ScenarioReader.h"

#include <array>

#include "devices/scenario/ServiceRecords.h"
#include "devices/scenario/WorldReader.h"
#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Number.h"

namespace wifi_profile::scenario {

using runtime::FieldsReader;
using runtime::ValueReader;

namespace {

DiagnosticsTestID readTest(const ValueReader& value) {
  const std::string name = value.text();
  const auto test = testNamed(name);
  if (!test) value.fail("the name of a test");
  return test.value_or(DiagnosticsTestID::PingLAN);
}

VqErrorRef readError(const ValueReader& value) {
  std::int64_t code = 0;
  std::optional<std::string> description;
  value.object([&](FieldsReader& fields) {
    fields.require("code", [&](const ValueReader& field) { code = field.integer(); });
    fields.take("description", [&](const ValueReader& field) { description = field.text(); });
  });
  return std::make_shared<const VqError>(code,
                                         description.value_or("error " + std::to_string(code)));
}

DeviceSettings readDevice(const ValueReader& value) {
  DeviceSettings device;
  value.object([&](FieldsReader& fields) {
    const auto take = [&](std::string_view key, bool& target) {
      fields.take(key, [&](const ValueReader& field) { target = field.boolean(); });
    };
    take("radio", device.radio);
    take("manager", device.manager);
    fields.take("interfaces", [&](const ValueReader& field) {
      device.interfaces.clear();
      field.list([&](const ValueReader& name) { device.interfaces.push_back(name.text()); });
    });
    take("power", device.power);
    take("powerOnSucceeds", device.powerOnSucceeds);
    take("wlanWording", device.wlanWording);
    take("testAutomation", device.testAutomation);
  });
  return device;
}

StatusAnswer readStatus(const ValueReader& value) {
  StatusAnswer status;
  value.object([&](FieldsReader& fields) {
    fields.take("ssid", [&](const ValueReader& field) { status.ssid = field.textOrNull(); });
    fields.take("bssid", [&](const ValueReader& field) { status.bssid = field.textOrNull(); });
    fields.take("error", [&](const ValueReader& field) { status.error = readError(field); });
  });
  return status;
}

// Takes the fields of one result. Returns true if there was any.
bool takeResult(FieldsReader& fields, DiagnosticsTestResult& result) {
  bool any =
      fields.take("result", [&](const ValueReader& field) { result.result = field.boolean(); });
  any |=
      fields.take("didPass", [&](const ValueReader& field) { result.didPass = field.boolean(); });
  any |= fields.take("info", [&](const ValueReader& field) {
    if (!isNullPlaceholder(field.value())) result.info = readInformation(field);
  });
  return any;
}

DiagnosticsTestResults readResults(const ValueReader& value) {
  if (isNullPlaceholder(value.value())) return std::nullopt;
  if (!as<Array>(value.value())) {
    value.fail("a list of results or null");
    return std::nullopt;
  }
  DiagnosticsTestResults results(std::in_place);
  value.list([&](const ValueReader& element) {
    if (isNullPlaceholder(element.value())) {
      results->push_back(nullptr);
      return;
    }
    DiagnosticsTestResult result;
    element.object([&](FieldsReader& fields) { takeResult(fields, result); });
    results->push_back(std::make_shared<const DiagnosticsTestResult>(std::move(result)));
  });
  return results;
}

When readWhen(const ValueReader& value) {
  When when;
  value.object([&](FieldsReader& fields) {
    fields.require("networkName",
                   [&](const ValueReader& field) { when.networkName = field.textOrNull(); });
  });
  return when;
}

Answer readAnswer(const ValueReader& value) {
  Answer answer;
  value.object([&](FieldsReader& fields) {
    fields.take("when", [&](const ValueReader& field) { answer.when = readWhen(field); });
    fields.take("times", [&](const ValueReader& field) { answer.times = field.integer(1); });
    fields.take("error", [&](const ValueReader& field) { answer.error = readError(field); });
    fields.take("delay",
                [&](const ValueReader& field) { answer.delay = field.seconds(kLongestTime); });
    DiagnosticsTestResult result;
    const bool inlineResult = takeResult(fields, result);
    const bool listed = fields.take(
        "results", [&](const ValueReader& field) { answer.results = readResults(field); });
    if (inlineResult && listed) {
      fields.object().fail("\"results\" beside the fields of a result", "one or the other");
    }
    if (listed) return;
    answer.results.emplace();
    if (inlineResult) {
      answer.results->push_back(std::make_shared<const DiagnosticsTestResult>(std::move(result)));
    }
  });
  return answer;
}

// Takes the one action of a step and sets the members of `step` that belong to it.
void takeAction(FieldsReader& fields, Step& step) {
  int actions = 0;
  const auto take = [&](std::string_view key, Action action, const auto& read) {
    if (!fields.take(key, read)) return;
    step.action = action;
    ++actions;
  };
  const auto text = [&](const ValueReader& field) { step.text = field.text(); };
  const auto nothing = [](const ValueReader& field) { field.mustBeTrue(); };
  take("tapNetwork", Action::tapNetwork, text);
  take("tapRow", Action::tapRow, [&](const ValueReader& field) {
    const auto path = as<Array>(field.value());
    if (!path || path->elements().size() != 2) {
      field.fail("a list of a section and a row");
      return;
    }
    step.section = field.element(0, path->elements()[0]).integer(0);
    step.row = field.element(1, path->elements()[1]).integer(0);
  });
  take("tapOther", Action::tapOther, nothing);
  take("type", Action::type, text);
  take("tapAction", Action::tapAction, text);
  take("tapNext", Action::tapNext, nothing);
  take("pullToRefresh", Action::pullToRefresh, nothing);
  take("setPower", Action::setPower, [&](const ValueReader& field) { step.on = field.boolean(); });
  take("scrollAway", Action::scrollAway,
       [&](const ValueReader& field) { step.section = field.integer(0); });
  take("teardown", Action::teardown, nothing);
  take("wait", Action::wait,
       [&](const ValueReader& field) { step.time = field.seconds(kLongestTime); });
  if (actions == 0) fields.refuseOthers();  // the error names a misspelt action
  if (actions != 1) {
    fields.object().fail("a step with " + std::to_string(actions) + " actions",
                         "a step with one action");
  }
}

Step readStep(const ValueReader& value) {
  Step step{};
  value.object([&](FieldsReader& fields) {
    fields.take("duringTest", [&](const ValueReader& field) { step.duringTest = readTest(field); });
    takeAction(fields, step);
  });
  return step;
}

void readAnswers(const ValueReader& value, Scenario& scenario) {
  value.object([&](FieldsReader& fields) {
    for (const auto& [id, name] : kDiagnosticsTestNames) {
      fields.take(name, [&, test = id](const ValueReader& field) {
        field.list([&](const ValueReader& answer) {
          scenario.answers[test].push_back(readAnswer(answer));
        });
      });
    }
  });
}

void readFields(const ValueReader& value, Scenario& scenario) {
  value.object([&](FieldsReader& fields) {
    fields.require("scenario", [](const ValueReader& field) {
      const auto version = as<Number>(field.value());
      if (!version || !(*version == *Number::withInteger(1))) field.fail("1, the scenario version");
    });
    fields.take("description",
                [&](const ValueReader& field) { scenario.description = field.text(); });
    fields.take("device", [&](const ValueReader& field) { scenario.device = readDevice(field); });
    fields.take("world", [&](const ValueReader& field) {
      scenario.world = readWorld(field);
      if (const auto& link = scenario.world->facts.link) {
        scenario.status = {StatusAnswer{makeText(link->ssid), makeText(link->bssid), nullptr}};
      }
    });
    fields.take("status", [&](const ValueReader& field) {
      scenario.status.clear();
      field.list([&](const ValueReader& answer) { scenario.status.push_back(readStatus(answer)); });
      if (scenario.status.empty()) field.fail("an empty list", "at least one answer");
    });
    fields.take("answers", [&](const ValueReader& field) { readAnswers(field, scenario); });
    fields.take("user", [&](const ValueReader& field) {
      scenario.user.emplace();
      field.list([&](const ValueReader& step) { scenario.user->push_back(readStep(step)); });
    });
  });
}

}  // namespace

Result<Scenario> readScenario(const ObjectRef& document, std::string_view name) {
  Scenario scenario;
  const Status read = runtime::readDocument(
      document, name, [&](const ValueReader& value) { readFields(value, scenario); });
  if (!read) return read.error();
  return scenario;
}

}  // namespace wifi_profile::scenario
