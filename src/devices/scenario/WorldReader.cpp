#include "devices/scenario/WorldReader.h"

#include "analysis/facts/Reasons.h"
#include "devices/CheckSettings.h"
#include "devices/scenario/Scenario.h"
#include "devices/scenario/WorldParts.h"
#include "devices/scenario/WorldValues.h"

namespace wifi_profile::scenario {

using runtime::FieldsReader;
using runtime::ValueReader;

namespace {

Error readUnknown(const ValueReader& value) {
  Error unknown;
  value.object([&](FieldsReader& fields) {
    fields.require("unknown", [&](const ValueReader& field) {
      const facts::ReasonText named = readChoice(field, facts::kReasons);
      unknown = {named.reason, std::string(named.sentence)};
    });
    takeText(fields, "sentence", unknown.message);
  });
  return unknown;
}

template <class T>
void takeFact(FieldsReader& fields, const facts::FactRow& row, Result<T>& fact) {
  fact = Error{Reason::notTold,
               "The scenario's world does not say " + std::string(row.question) + "."};
  fields.take(row.name, [&](const ValueReader& field) {
    const auto object = as<Dictionary>(field.value());
    if (object && object->objectForKey("unknown")) {
      fact = readUnknown(field);
    } else {
      fact = readFact<T>(field);
    }
  });
}

// Reads one time for all tests, or times by the names of the tests.
void readDelay(const ValueReader& value, World& world) {
  if (!as<Dictionary>(value.value())) {
    world.delay = value.seconds(kLongestTime);
    return;
  }
  value.object([&](FieldsReader& fields) {
    for (const auto& [id, name] : kDiagnosticsTestNames) {
      fields.take(name, [&, test = id](const ValueReader& field) {
        world.delays[test] = field.seconds(kLongestTime);
      });
    }
  });
}

}  // namespace

World readWorld(const ValueReader& value) {
  World world;
  value.object([&](FieldsReader& fields) {
    forEachFact(world.facts,
                [&](const facts::FactRow& row, auto& fact) { takeFact(fields, row, fact); });
    fields.take("settings", [&](const ValueReader& field) {
      devices::readCheckSettings(field, world.settings);
    });
    fields.take("delay", [&](const ValueReader& field) { readDelay(field, world); });
  });
  return world;
}

}  // namespace wifi_profile::scenario
