// Reads and writes whole files.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <variant>

namespace wifi_profile::cli {

// Why a file could not be read or used, as a message.
struct Problem {
  std::string message;
};

// Largest file that is read, in bytes.
inline constexpr std::size_t kLargestFile = std::size_t{16} << 20U;

// Returns the content of a file. The path "-" means standard input.
std::variant<std::string, Problem> readFile(const std::string& path);

// Writes the text and flushes. Returns false on failure.
bool writeAll(std::FILE* out, std::string_view text);

// Returns the problem "PLACE: found FOUND, expected EXPECTED".
Problem unexpected(std::string_view place, std::string_view found, std::string_view expected);

}  // namespace wifi_profile::cli
