#include "analysis/checks/Names.h"

namespace wifi_profile::checks {
namespace {

char lowerCased(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

std::string lowerCased(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower) letter = lowerCased(letter);
  return lower;
}

std::string withoutZeros(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of('\0') + 1));
}

bool matchesPattern(std::string_view name, std::string_view pattern) {
  std::size_t at = 0;
  std::size_t in = 0;
  // The last star, and the end of the bytes that it covers so far. It is enough to return to the
  // last star, because it can cover whatever an earlier one could.
  std::size_t star = std::string_view::npos;
  std::size_t taken = 0;
  while (at < name.size()) {
    if (in < pattern.size() && pattern[in] == '*') {
      star = in++;
      taken = at;
    } else if (in < pattern.size() && lowerCased(name[at]) == lowerCased(pattern[in])) {
      ++at;
      ++in;
    } else if (star != std::string_view::npos) {
      in = star + 1;
      at = ++taken;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', in) == std::string_view::npos;
}

}  // namespace wifi_profile::checks
