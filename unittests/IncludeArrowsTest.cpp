// Holds the tree to the arrows between its folders.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

// Folders that a folder may include, besides itself and the folders below it. A file belongs to the
// longest folder of this list that its path begins with.
const std::map<std::string, Names> kArrows{
    {"diagnostic/platform", {}},
    {"diagnostic/controller",
     {"diagnostic/platform", "diagnostic/tests", "diagnostic/wifi", "diagnostic/ui"}},
    {"diagnostic/tests",
     {"diagnostic/platform", "diagnostic/controller", "diagnostic/wifi", "diagnostic/ui"}},
    {"diagnostic/wifi",
     {"diagnostic/platform", "diagnostic/controller", "diagnostic/tests", "diagnostic/ui"}},
    {"diagnostic/ui",
     {"diagnostic/platform", "diagnostic/controller", "diagnostic/tests", "diagnostic/wifi"}},
    {"analysis/ieee80211", {}},
    {"analysis/facts", {"diagnostic/platform", "analysis/ieee80211"}},
    {"analysis/checks", {"diagnostic/platform", "analysis/ieee80211", "analysis/facts"}},
    {"runtime", {"diagnostic/platform"}},
    {"devices", {"diagnostic/platform", "analysis", "runtime"}},
    {"report", {"diagnostic", "analysis", "runtime"}},
    {"app", {"diagnostic", "analysis", "runtime", "devices", "report"}},
};

// Files outside app/cli that may include a package's headers, by the first part of the path.
const std::map<std::string, Names> kPackages{
    {"analysis/facts/IpAddresses.cpp", {"arpa"}},
    {"app/terminal/TerminalScreen.cpp", {"asio"}},
    {"app/terminal/Terminfo.cpp", {"curses.h", "term.h"}},
    {"app/terminal/Tty.cpp", {"curses.h"}},
    {"devices/linux/bus/Bus.cpp", {"sdbus-c++"}},
    {"devices/linux/bus/MessageReader.cpp", {"sdbus-c++"}},
    {"devices/linux/netlink/Socket.cpp", {"netlink"}},
    {"devices/linux/probes/Http.cpp", {"curl"}},
    {"devices/linux/probes/Names.cpp", {"ares.h"}},
    {"devices/linux/probes/RouterAnswers.cpp", {"miniupnpc"}},
    {"devices/linux/probes/WebAnswers.cpp", {"nlohmann"}},
    {"report/Explanation.cpp", {"fmt"}},
    {"report/ReportDocument.cpp", {"fmt"}},
    {"report/ReportText.cpp", {"fmt"}},
    {"report/ValueText.cpp", {"fmt"}},
    {"runtime/AsioMainQueue.cpp", {"asio"}},
    {"runtime/IcuNameCollator.cpp", {"unicode"}},
    {"runtime/Interrupts.cpp", {"asio"}},
    {"runtime/JsonReader.cpp", {"nlohmann"}},
    {"runtime/ThreadRunLoop.cpp", {"asio"}},
};

// What the system has besides the standard library.
const Names kSystem{"arpa",    "fcntl.h", "ifaddrs.h", "langinfo.h", "linux",     "net",
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

bool isBelow(const std::string& path, const std::string& folder) {
  return path.starts_with(folder + '/');
}

// Returns the row of the folder that a file belongs to; null: there is none.
const std::pair<const std::string, Names>* rowOf(const std::string& file) {
  const auto row =
      std::ranges::find_if(kArrows, [&](const auto& one) { return isBelow(file, one.first); });
  return row == kArrows.end() ? nullptr : &*row;
}

TEST(IncludeArrows, OfTheProjectGoOneWay) {
  const auto includes = allIncludes();
  ASSERT_GT(includes.size(), 100U);
  for (const Include& include : includes) {
    if (!include.quoted) continue;
    const auto* row = rowOf(include.file);
    ASSERT_TRUE(row) << include.file;
    const bool isAllowed = std::ranges::any_of(
        row->second, [&](const std::string& folder) { return isBelow(include.header, folder); });
    EXPECT_TRUE(isAllowed || isBelow(include.header, row->first))
        << include.file << " includes " << include.header;
  }
}

TEST(IncludeArrows, OfPackagesStayInTheFilesThatAreMeantForThem) {
  for (const Include& include : allIncludes()) {
    if (include.quoted || isBelow(include.file, "app/cli")) continue;
    // Standard headers have neither a folder nor an ending.
    const bool ofQt = include.header.starts_with('Q');
    if (ofQt && isBelow(include.file, "app/window")) continue;
    const bool standard = !ofQt && include.header.find_first_of("/.") == std::string::npos;
    const auto allowed = kPackages.find(include.file);
    const bool system =
        (isBelow(include.file, "app/terminal") || isBelow(include.file, "devices/linux")) &&
        kSystem.contains(firstPart(include.header));
    EXPECT_TRUE(standard || system ||
                (allowed != kPackages.end() && allowed->second.contains(firstPart(include.header))))
        << include.file << " includes <" << include.header << ">";
  }
}

}  // namespace
