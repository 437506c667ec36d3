#include "simulation/Arguments.h"

#include <charconv>
#include <optional>

namespace wifi_profile::simulation {
namespace {

std::optional<std::uint64_t> numberFrom(const std::string& text) {
  std::uint64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (text.empty() || read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

}  // namespace

std::variant<Arguments, std::string> readArguments(const std::vector<std::string>& given) {
  Arguments arguments;
  for (std::size_t i = 0; i < given.size(); ++i) {
    const std::string& option = given[i];
    if (option == "--verbose") {
      arguments.verbose = true;
    } else if (option == "--twice") {
      arguments.twice = true;
    } else if (option == "--threads") {
      arguments.threads = true;
    } else if (option == "--runs" || option == "--seed") {
      const std::string value = i + 1 < given.size() ? given[++i] : "";
      const auto number = numberFrom(value);
      if (!number) return option + ": found \"" + value + "\", expected a whole number";
      (option == "--runs" ? arguments.runs : arguments.seed) = *number;
    } else {
      return "found \"" + option +
             "\", expected --runs N, --seed S, --verbose, --twice or --threads";
    }
  }
  if (arguments.threads && arguments.twice) {
    return std::string(
        "found --threads with --twice, expected one of them: threads run in any order");
  }
  return arguments;
}

}  // namespace wifi_profile::simulation
