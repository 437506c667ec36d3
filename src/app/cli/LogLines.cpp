#include "app/cli/LogLines.h"

#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"
#include "diagnostic/platform/Trace.h"

namespace wifi_profile::cli {

void LogLines::write(int category, LogLevel level, const std::string& text) {
  traceEvent("log", [&] {
    return Trace::Fields{{"category", Number::withInteger(category)},
                         {"level", makeText(nameOf(level))},
                         {"text", makeText(text)}};
  });
  line_.printLine(text);
}

}  // namespace wifi_profile::cli
