#include "diagnostic/tests/InformationHandlers.h"

#include "diagnostic/controller/NullSafeValues.h"
#include "diagnostic/controller/WiFiProfileViewController.h"

namespace wifi_profile {

ObjectRef copyUnchanged(WiFiProfileViewController& /*controller*/, const ObjectRef& value) {
  return value;
}

ObjectRef summarisePreferredNetwork(WiFiProfileViewController& controller, const ObjectRef& value) {
  const auto record = as<PreferredNetworkRecord>(value);
  if (!record) return nullptr;
  return makeDictionary({
      {"SSID", stringOrNull(record->ssidString)},
      {"security", Number::withInteger(record->security)},
      {"isPasspoint", Number::withBool(record->isPasspoint)},
      {"isEnabled", Number::withBool(record->isEnabled)},
      {"isCaptive", Number::withBool(record->isCaptive)},
      {"isHidden", Number::withBool(record->isHidden)},
      {"isMultiAP", Number::withBool(record->isMultiAP)},
      // A network that was never joined has no date. The placeholder keeps all eight entries.
      {"lastJoined",
       stringOrNull(controller.timestampFormattedInISO8601(record->lastJoinedTimestamp))},
  });
}

ObjectRef summarisePing(WiFiProfileViewController& controller, const ObjectRef& value) {
  const auto record = as<PingResultRecord>(value);
  if (!record) return nullptr;
  return makeDictionary({
      {"SSID", stringOrNull(record->interfaceName)},  // intended: SSID holds the interface name
      {"count", Number::withInteger(record->count)},
      {"packetLoss", numberOrNullForDouble(record->packetLoss)},
      {"min", Number::withDouble(record->min)},
      {"max", Number::withDouble(record->max)},
      {"avg", numberOrNullForDouble(record->avg)},
      {"stddev", numberOrNullForDouble(record->stddev)},
      // A time stamp beyond the range of the calendar cannot be formatted.
      {"timestamp", stringOrNull(controller.timestampFormattedInISO8601(Date{record->timestamp}))},
  });
}

ObjectRef readChannel(WiFiProfileViewController& /*controller*/, const ObjectRef& value) {
  const auto record = as<ChannelRecord>(value);
  return record ? Number::withInteger(record->channel()) : nullptr;
}

ObjectRef countElements(WiFiProfileViewController& /*controller*/, const ObjectRef& value) {
  const auto array = as<Array>(value);
  return array ? Number::withUnsigned(array->elements().size()) : nullptr;
}

ObjectRef keepScanResults(WiFiProfileViewController& controller, const ObjectRef& value) {
  controller.wifiScanResults.set(as<Array>(value));
  return controller.wifiScanResults();
}

}  // namespace wifi_profile
