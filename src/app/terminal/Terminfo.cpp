// A separate file because <term.h> defines macros with common names.

#include "app/terminal/Terminfo.h"

#include <cstdint>
#include <curses.h>
#include <term.h>

namespace wifi_profile::terminal {
namespace {

// Returns a capability without its padding; empty: the terminal has no such capability.
std::string capability(const char* name) {
  const char* const value = tigetstr(name);
  if (!value || reinterpret_cast<std::intptr_t>(value) == -1) return {};  // -1: no such name
  std::string text = value;
  for (auto wait = text.find("$<"); wait != std::string::npos; wait = text.find("$<")) {
    text.erase(wait, text.find('>', wait) - wait + 1);
  }
  return text;
}

}  // namespace

bool hasSecondScreen() { return !capability("rmcup").empty(); }

std::string restoringSequence(int lineCount) {
  std::string sequence;
  for (const char* const name : {"sgr0", "op", "cnorm", "rmkx"}) sequence += capability(name);
  if (!hasSecondScreen()) {
    const std::string place = capability("cup");
    if (const char* const bottom = tparm(place.c_str(), lineCount - 1, 0)) sequence += bottom;
    sequence += capability("el");
  }
  return sequence + capability("rmcup");
}

std::optional<std::string> restoringSequenceOf(const std::string& kind, int descriptor,
                                               int lineCount) {
  int error = 0;
  if (kind.empty() || setupterm(kind.c_str(), descriptor, &error) != OK) return std::nullopt;
  std::optional<std::string> sequence;
  if (!capability("cup").empty()) sequence = restoringSequence(lineCount);
  del_curterm(cur_term);  // newterm makes its own
  return sequence;
}

}  // namespace wifi_profile::terminal
