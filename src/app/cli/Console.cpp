#include "app/cli/Console.h"

#include <cstdlib>
#include <cstring>
#include <system_error>
#include <unistd.h>

#include "app/cli/Files.h"
#include "runtime/SafeText.h"

namespace wifi_profile::cli {

int complain(const Failure& failure) {
  writeAll(stderr, "wifi-profile: " + runtime::safeText(failure.message) + "\n");
  return failure.status;
}

bool environmentHas(const char* name) {
  const char* const value = std::getenv(name);
  return value && *value != '\0';
}

bool isTerminal(int descriptor) {
  const char* const kind = std::getenv("TERM");
  return isatty(descriptor) != 0 && !(kind && std::strcmp(kind, "dumb") == 0);
}

std::string cannotBeWritten(std::string_view place, int error) {
  return unexpected(place, std::generic_category().message(error), "an output that can be written")
      .message;
}

}  // namespace wifi_profile::cli
