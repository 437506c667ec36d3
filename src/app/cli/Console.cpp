#include "app/cli/Console.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

#include "runtime/SafeText.h"

namespace wifi_profile::cli {

std::string textOf(const Error& error) {
  std::string text = error.subject.empty() ? "" : error.subject + ": ";
  text += error.message;
  if (!error.advice.empty()) text += (text.ends_with('.') ? " " : ". ") + error.advice;
  return runtime::safeText(text);
}

int complain(int status, std::string_view message) {
  std::fputs(("wifi-profile: " + runtime::safeText(message) + "\n").c_str(), stderr);
  return status;
}

int complain(const Failure& failure) { return complain(failure.status, textOf(failure.error)); }

bool environmentHas(const char* name) {
  const char* const value = std::getenv(name);
  return value && *value != '\0';
}

bool isTerminal(int descriptor) {
  const char* const kind = std::getenv("TERM");
  return isatty(descriptor) != 0 && !(kind && std::strcmp(kind, "dumb") == 0);
}

}  // namespace wifi_profile::cli
