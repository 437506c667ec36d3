// Reads and writes whole files.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "diagnostic/platform/Object.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::cli {

// Largest file that is read, in bytes.
inline constexpr std::size_t kLargestFile = std::size_t{16} << 20U;

// Returns the content of a file. The path "-" means standard input.
Result<std::string> readFile(const std::string& path);

// Returns the JSON value that a file contains.
Result<ObjectRef> readJsonFile(const std::string& path);

// Writes the text to standard output and flushes.
Status print(std::string_view text);

// Returns the error "WHAT: REASON". `number` is the `errno` of the failed call.
Error systemError(std::string_view what, int number);

}  // namespace wifi_profile::cli
