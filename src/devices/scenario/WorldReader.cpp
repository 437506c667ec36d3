#include "devices/scenario/WorldReader.h"

#include "analysis/facts/IpAddresses.h"
#include "analysis/facts/Reasons.h"
#include "devices/scenario/Scenario.h"
#include "devices/scenario/WorldParts.h"
#include "devices/scenario/WorldValues.h"

namespace wifi_profile::scenario {
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

// Reads an IPv4 network, such as 192.168.43.0/24.
std::string readSubnet(const ValueReader& value) {
  std::string subnet = value.text();
  if (!facts::isInSubnet(subnet.substr(0, subnet.find('/')), subnet)) {
    value.fail("a network such as \"192.168.43.0/24\"");
  }
  return subnet;
}

// Reads the first bytes of an address, in lower case.
std::string readAddressBlock(const ValueReader& value) {
  constexpr std::string_view kAnyRest = "00:00:00:00:00:00";
  const std::string block = value.text();
  const bool isWhole = block.size() % 3 == 2 && block.size() <= kAnyRest.size();
  const auto address =
      isWhole ? addressIn(block + std::string(kAnyRest.substr(block.size()))) : std::nullopt;
  if (address) return address->substr(0, block.size());
  value.fail("the first bytes of an address, such as \"02:21:8d\"");
  return {};
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

void readCheckSettings(const ValueReader& value, checks::Settings& settings) {
  constexpr int kMost = 1'000'000;
  value.object([&](FieldsReader& fields) {
    takeInteger(fields, "poorSignalBelow", -127, 0, settings.poorSignalBelow);
    const std::pair<std::string_view, int*> counts[]{
        {"longBeaconIntervalAbove", &settings.longBeaconIntervalAbove},
        {"longDtimPeriodAbove", &settings.longDtimPeriodAbove},
        {"largeSavedListAbove", &settings.largeSavedListAbove},
        {"bluetoothConnectedAbove", &settings.bluetoothConnectedAbove},
        {"bluetoothPairedAbove", &settings.bluetoothPairedAbove}};
    for (const auto& [key, target] : counts) takeInteger(fields, key, 0, kMost, *target);
    fields.take("congestedBusyShare", [&](const ValueReader& field) {
      settings.congestedBusyShare = field.number(0, 1);
    });
    takeInteger(fields, "congestedUtilization", 0, 255, settings.congestedUtilization);
    fields.take("congestedNeighbours", [&](const ValueReader& field) {
      settings.congestedNeighbours = field.number(0, kMost);
    });
    takeTexts(fields, "ambiguousNames", settings.ambiguousNames);
    takeTexts(fields, "hotspotSubnets", settings.hotspotSubnets, readSubnet);
    takeTexts(fields, "baseStationMakers", settings.baseStationMakers);
    takeTexts(fields, "baseStationAddressBlocks", settings.baseStationAddressBlocks,
              readAddressBlock);
  });
}

World readWorld(const ValueReader& value) {
  World world;
  value.object([&](FieldsReader& fields) {
    forEachFact(world.facts,
                [&](const facts::FactRow& row, auto& fact) { takeFact(fields, row, fact); });
    fields.take("settings",
                [&](const ValueReader& field) { readCheckSettings(field, world.settings); });
    fields.take("delay", [&](const ValueReader& field) { readDelay(field, world); });
  });
  return world;
}

}  // namespace wifi_profile::scenario
