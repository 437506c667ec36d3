#include "app/cli/Files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fmt/format.h>
#include <system_error>

#include "diagnostic/platform/Text.h"
#include "runtime/JsonReader.h"

namespace wifi_profile::cli {
namespace {

// Longest path in a message, in bytes.
constexpr std::size_t kLongestPath = 300;

std::string named(const std::string& path) {
  return path.empty() ? "\"\"" : shortened(path, kLongestPath);
}

}  // namespace

Result<std::string> readFile(const std::string& path) {
  const bool standardInput = path == "-";
  std::FILE* const file = standardInput ? stdin : std::fopen(path.c_str(), "rb");
  if (!file) return systemError("cannot open " + named(path), errno);
  std::string content;
  std::array<char, 65536> buffer{};
  while (content.size() <= kLargestFile) {
    const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file);
    if (count == 0) break;
    content.append(buffer.data(), count);
  }
  const int error = std::ferror(file) != 0 ? errno : 0;
  if (!standardInput) std::fclose(file);
  if (error != 0) return systemError("cannot read " + named(path), error);
  if (content.size() > kLargestFile) {
    return Error{Reason::failed, fmt::format("cannot read {}: larger than {} MiB", named(path),
                                             kLargestFile >> 20U)};
  }
  return content;
}

Result<ObjectRef> readJsonFile(const std::string& path) {
  const auto content = readFile(path);
  if (!content) return content.error();
  return runtime::readJson(*content, path);
}

Status print(std::string_view text) {
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (std::fflush(stdout) == 0 && written) return {};
  return systemError("cannot write standard output", errno);
}

Error systemError(std::string_view what, int number) {
  return {Reason::failed, fmt::format("{}: {}", what, std::generic_category().message(number))};
}

}  // namespace wifi_profile::cli
