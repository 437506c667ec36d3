#include "app/cli/Files.h"

#include <array>
#include <cerrno>
#include <fmt/format.h>
#include <system_error>

#include "diagnostic/platform/Text.h"

namespace wifi_profile::cli {

std::variant<std::string, Problem> readFile(const std::string& path) {
  const bool standardInput = path == "-";
  std::FILE* const file = standardInput ? stdin : std::fopen(path.c_str(), "rb");
  if (!file)
    return unexpected(path, std::generic_category().message(errno), "a file that can be read");
  std::string content;
  std::array<char, 65536> buffer{};
  while (content.size() <= kLargestFile) {
    const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file);
    if (count == 0) break;
    content.append(buffer.data(), count);
  }
  const int error = std::ferror(file) != 0 ? errno : 0;
  if (!standardInput) std::fclose(file);
  if (error != 0)
    return unexpected(path, std::generic_category().message(error), "a file that can be read");
  if (content.size() > kLargestFile) {
    return unexpected(path, "a larger file", fmt::format("at most {} MiB", kLargestFile >> 20U));
  }
  return content;
}

bool writeAll(std::FILE* out, std::string_view text) {
  const bool written = std::fwrite(text.data(), 1, text.size(), out) == text.size();
  return std::fflush(out) == 0 && written;
}

namespace {

// Longest piece of untrusted text in a message, in bytes: enough to recognise the text.
constexpr std::size_t kLongestPiece = 300;

}  // namespace

Problem unexpected(std::string_view place, std::string_view found, std::string_view expected) {
  return {fmt::format("{}: found {}, expected {}",
                      place.empty() ? "\"\"" : shortened(place, kLongestPiece),
                      shortened(found, kLongestPiece), expected)};
}

}  // namespace wifi_profile::cli
