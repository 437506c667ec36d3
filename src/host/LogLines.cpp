#include "host/LogLines.h"

#include "platform/Number.h"
#include "platform/Text.h"

namespace wifi_profile {

void LogLines::write(int category, LogLevel level, const std::string& text) {
  trace_.event("log", {{"category", Number::withInteger(category)},
                       {"level", makeText(nameOf(level))},
                       {"text", makeText(text)}});
  line_.printLine(text);
}

}  // namespace wifi_profile
