#include "devices/scenario/ServiceRecords.h"

#include <limits>

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/DiagnosticsService.h"
#include "diagnostic/platform/Number.h"

namespace wifi_profile::scenario {

using runtime::FieldsReader;
using runtime::ValueReader;

namespace {

// Reads a double. JSON has no number for values that are not finite, so they are texts.
double readDouble(const ValueReader& value) {
  if (const auto text = as<Text>(value.value())) {
    if (text->string() == "NaN") return std::numeric_limits<double>::quiet_NaN();
    if (text->string() == "Infinity") return std::numeric_limits<double>::infinity();
    if (text->string() == "-Infinity") return -std::numeric_limits<double>::infinity();
  } else if (const auto number = as<Number>(value.value()); number && !number->isBoolean()) {
    return number->toDouble();
  }
  value.fail("a number, \"NaN\", \"Infinity\" or \"-Infinity\"");
  return 0;
}

ObjectRef readPing(const ValueReader& value) {
  auto record = std::make_shared<PingResultRecord>();
  value.object([&](FieldsReader& fields) {
    const auto take = [&](std::string_view key, double& target) {
      fields.take(key, [&](const ValueReader& field) { target = readDouble(field); });
    };
    fields.take("interfaceName",
                [&](const ValueReader& field) { record->interfaceName = field.textOrNull(); });
    fields.take("count", [&](const ValueReader& field) { record->count = field.integer(); });
    take("packetLoss", record->packetLoss);
    take("min", record->min);
    take("max", record->max);
    take("avg", record->avg);
    take("stddev", record->stddev);
    take("timestamp", record->timestamp);
  });
  return record;
}

ObjectRef readChannelRecord(const ValueReader& value) {
  std::int64_t channel = 0;
  value.object([&](FieldsReader& fields) {
    fields.require("channel", [&](const ValueReader& field) { channel = field.integer(); });
  });
  return std::make_shared<const ChannelRecord>(channel);
}

ObjectRef readPreferredNetwork(const ValueReader& value) {
  auto record = std::make_shared<PreferredNetworkRecord>();
  value.object([&](FieldsReader& fields) {
    const auto take = [&](std::string_view key, bool& target) {
      fields.take(key, [&](const ValueReader& field) { target = field.boolean(); });
    };
    fields.take("ssid", [&](const ValueReader& field) { record->ssidString = field.textOrNull(); });
    fields.take("security", [&](const ValueReader& field) { record->security = field.integer(); });
    take("isPasspoint", record->isPasspoint);
    take("isEnabled", record->isEnabled);
    take("isCaptive", record->isCaptive);
    take("isHidden", record->isHidden);
    take("isMultiAP", record->isMultiAP);
    fields.take("lastJoined", [&](const ValueReader& field) {
      record->lastJoinedTimestamp = field.dateOrNull();
    });
  });
  return record;
}

ObjectRef readScanResult(const ValueReader& value) {
  TextRef ssid;
  TextRef bssid;
  std::int64_t rssi = 0;
  value.object([&](FieldsReader& fields) {
    fields.take("ssid", [&](const ValueReader& field) { ssid = field.textOrNull(); });
    fields.require("bssid", [&](const ValueReader& field) { bssid = makeText(field.text()); });
    fields.take("rssi", [&](const ValueReader& field) { rssi = field.integer(); });
  });
  return std::make_shared<const VqWiFiScanResult>(ssid, bssid, rssi);
}

ObjectRef readScanResults(const ValueReader& value) {
  std::vector<ObjectRef> results;
  value.list([&](const ValueReader& element) { results.push_back(readScanResult(element)); });
  return std::make_shared<const Array>(std::move(results));
}

bool isChannelKey(std::string_view key) {
  return key == "CurrentChannel" || key == "2GHzChannel" || key == "5GHzChannel" ||
         key == "5GHz40MHzChannel" || key == "5GHzNonDFSChannel";
}

}  // namespace

DictionaryRef readInformation(const ValueReader& value) {
  const auto dictionary = as<Dictionary>(value.value());
  if (!dictionary) {
    value.fail("an object or null");
    return nullptr;
  }
  Dictionary::Entries information = dictionary->entries();
  for (auto& [key, object] : information) {
    const ValueReader member = value.member(key, object);
    if (key == "ScanResults" && as<Array>(object)) {
      object = readScanResults(member);
    } else if (as<Dictionary>(object)) {
      if (key == "PingResult") object = readPing(member);
      if (key == "PreferredNetwork") object = readPreferredNetwork(member);
      if (isChannelKey(key)) object = readChannelRecord(member);
    }
  }
  return makeDictionary(std::move(information));
}

}  // namespace wifi_profile::scenario
