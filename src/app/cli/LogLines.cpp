#include "app/cli/LogLines.h"

#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"

namespace wifi_profile::cli {

void LogLines::write(int category, LogLevel level, const std::string& text) {
  trace_.event("log", {{"category", Number::withInteger(category)},
                       {"level", makeText(nameOf(level))},
                       {"text", makeText(text)}});
  line_.printLine(text);
}

}  // namespace wifi_profile::cli
