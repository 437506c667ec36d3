#include "diagnostic/controller/NullSafeValues.h"

#include <cmath>

namespace wifi_profile {
namespace {

ObjectRef orNull(const ObjectRef& object) { return object ? object : nullPlaceholder(); }

}  // namespace

ObjectRef stringOrNull(const TextRef& string) { return orNull(string); }

ObjectRef numberOrNull(const NumberRef& number) { return orNull(number); }

ObjectRef dictionaryOrNull(const DictionaryRef& dictionary) { return orNull(dictionary); }

ObjectRef numberOrNullForDouble(double value) {
  if (std::isnan(value)) return nullPlaceholder();
  return Number::withDouble(value);
}

void removeNullFromDictionary(Dictionary& dictionary) {
  for (const auto& [key, snapshotValue] : dictionary.entries()) {
    const ObjectRef value = dictionary.objectForKey(key);
    if (!value || isNullPlaceholder(value)) dictionary.removeObjectForKey(key);
  }
}

}  // namespace wifi_profile
