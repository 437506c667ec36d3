// Whole files in, whole texts out.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <variant>

namespace wifi_profile {

// Why a file could not be read or used, ready to be shown.
struct Problem {
  std::string message;
};

// Largest file that is read, in bytes.
inline constexpr std::size_t kLargestFile = std::size_t{16} << 20U;

// The content of a file; "-" is standard input.
std::variant<std::string, Problem> readFile(const std::string& path);

// Writes everything and flushes. NO when that failed.
bool writeAll(std::FILE* out, std::string_view text);

// "PLACE: found FOUND, expected EXPECTED"
Problem unexpected(std::string_view place, std::string_view found, std::string_view expected);

}  // namespace wifi_profile
