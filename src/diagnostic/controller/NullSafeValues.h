// Replacement of missing values by the null placeholder.
#pragma once

#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"

namespace wifi_profile {

// Return the object itself, or the null placeholder for nil.
ObjectRef stringOrNull(const TextRef& string);
ObjectRef numberOrNull(const NumberRef& number);
ObjectRef dictionaryOrNull(const DictionaryRef& dictionary);

// Returns a double number, or the null placeholder for NaN. Infinities are numbers.
ObjectRef numberOrNullForDouble(double value);

// Removes every entry whose value is the null placeholder.
void removeNullFromDictionary(Dictionary& dictionary);

}  // namespace wifi_profile
