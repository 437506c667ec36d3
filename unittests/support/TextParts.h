#pragma once

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace wifi_profile {

inline bool contains(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

inline std::vector<std::string> linesOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace wifi_profile
