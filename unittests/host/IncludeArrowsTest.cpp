// Holds the tree to the arrows between its rooms.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Rooms = std::set<std::string>;

// Which rooms a room may include, besides itself.
const std::map<std::string, Rooms> kArrows{
    {"platform", {}},
    {"controller", {"platform", "tests", "wifi", "ui"}},
    {"tests", {"platform", "controller", "wifi", "ui"}},
    {"wifi", {"platform", "controller", "tests", "ui"}},
    {"ui", {"platform", "controller", "tests", "wifi"}},
    {"runtime", {"platform"}},
    {"ieee80211", {}},
    {"checks", {"platform", "ieee80211"}},
    {"devices", {"platform", "ieee80211", "checks"}},
    {"screens", {"platform", "runtime"}},
    {"host",
     {"platform", "controller", "tests", "wifi", "ui", "runtime", "ieee80211", "checks", "devices",
      "screens"}},
};

// Files outside the host that may include a package's headers, by the first part of the path.
const std::map<std::string, Rooms> kPackages{
    {"checks/IpAddresses.cpp", {"arpa"}},
    {"devices/linux/bus/Bus.cpp", {"sdbus-c++"}},
    {"devices/linux/bus/MessageReader.cpp", {"sdbus-c++"}},
    {"devices/linux/netlink/Socket.cpp", {"netlink"}},
    {"devices/linux/reach/Http.cpp", {"curl"}},
    {"devices/linux/reach/Names.cpp", {"ares.h"}},
    {"devices/linux/reach/RouterAnswers.cpp", {"miniupnpc"}},
    {"devices/linux/reach/WebAnswers.cpp", {"nlohmann"}},
    {"runtime/AsioMainQueue.cpp", {"asio"}},
    {"runtime/IcuLetterKeys.cpp", {"unicode"}},
    {"runtime/IcuNameCollator.cpp", {"unicode"}},
    {"runtime/Interrupts.cpp", {"asio"}},
    {"runtime/JsonReader.cpp", {"nlohmann"}},
    {"runtime/ThreadRunLoop.cpp", {"asio"}},
    {"screens/terminal/TerminalScreen.cpp", {"asio"}},
    {"screens/terminal/Terminfo.cpp", {"curses.h", "term.h"}},
    {"screens/terminal/Tty.cpp", {"curses.h"}},
};

// What the system has besides the standard library.
const Rooms kSystem{"arpa",    "fcntl.h", "ifaddrs.h", "langinfo.h", "linux",     "net",
                    "netdb.h", "netinet", "poll.h",    "sys",        "termios.h", "unistd.h"};

struct Include {
  std::string file;  // below src/
  std::string header;
  bool quoted;
};

std::vector<Include> allIncludes() {
  static const std::regex kDirective(R"(\s*#\s*include\s*([<"])([^>"]+)[>"].*)");
  const fs::path root = fs::path(WIFI_PROFILE_SOURCE_DIR) / "src";
  std::vector<Include> includes;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string ending = entry.path().extension();
    if (ending != ".h" && ending != ".cpp" && ending != ".in") continue;
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) {
      std::smatch match;
      if (!std::regex_match(line, match, kDirective)) continue;
      includes.push_back(
          {fs::relative(entry.path(), root).generic_string(), match[2], match[1] == "\""});
    }
  }
  return includes;
}

std::string firstPart(const std::string& path) { return path.substr(0, path.find('/')); }

TEST(IncludeArrows, OfTheProjectGoOneWay) {
  const auto includes = allIncludes();
  ASSERT_GT(includes.size(), 100U);
  for (const Include& include : includes) {
    if (!include.quoted) continue;
    const std::string from = firstPart(include.file);
    const std::string to = firstPart(include.header);
    ASSERT_TRUE(kArrows.contains(from)) << include.file;
    EXPECT_TRUE(from == to || kArrows.at(from).contains(to))
        << include.file << " includes " << include.header;
  }
}

TEST(IncludeArrows, OfPackagesStayInTheFilesThatAreMeantForThem) {
  for (const Include& include : allIncludes()) {
    if (include.quoted || firstPart(include.file) == "host") continue;
    // Standard headers have neither a folder nor an ending.
    const bool ofQt = include.header.starts_with('Q');
    if (ofQt && include.file.starts_with("screens/window/")) continue;
    const bool standard = !ofQt && include.header.find_first_of("/.") == std::string::npos;
    const auto allowed = kPackages.find(include.file);
    const bool system = (include.file.starts_with("screens/terminal/") ||
                         include.file.starts_with("devices/linux/")) &&
                        kSystem.contains(firstPart(include.header));
    EXPECT_TRUE(standard || system ||
                (allowed != kPackages.end() && allowed->second.contains(firstPart(include.header))))
        << include.file << " includes <" << include.header << ">";
  }
}

}  // namespace
