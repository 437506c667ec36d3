// Formats the record's values for people.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "diagnostic/platform/Object.h"
#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile::report {

// Makes a text from a result or an error safe to show, and truncates a very long one.
std::string shownText(std::string_view text);

// Returns a copied value as short texts "name value": one for a plain value, one per
// entry for a summary. Accepts any kind of value. The null placeholder is "unknown".
std::vector<std::string> valuePieces(const InformationCopy& copy, const ObjectRef& value);

}  // namespace wifi_profile::report
