// Values of the record as a person reads them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Object.h"

namespace wifi_profile {

// A text from the record or the journal, made safe to show; a very long one is cut off.
std::string shownText(std::string_view text);

// The value under an output key as short pieces "name value", one for a plain value, one an entry
// for a summary. Whatever kind the value is, it has a text; the null placeholder is "unknown".
std::vector<std::string> valuePieces(std::string_view outputKey, const ObjectRef& value);

}  // namespace wifi_profile
