// Values that may be missing, made fit for a dictionary.
#pragma once

#include "platform/Dictionary.h"
#include "platform/Number.h"
#include "platform/Text.h"

namespace wifi_profile {

// The very object, or the null placeholder for nil.
ObjectRef stringOrNull(const TextRef& string);
ObjectRef numberOrNull(const NumberRef& number);
ObjectRef dictionaryOrNull(const DictionaryRef& dictionary);

// A double number, or the null placeholder for NaN. The infinities are numbers.
ObjectRef numberOrNullForDouble(double value);

// Removes every entry whose value is the null placeholder.
void removeNullFromDictionary(Dictionary& dictionary);

}  // namespace wifi_profile
