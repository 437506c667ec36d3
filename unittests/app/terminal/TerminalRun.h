// The program in a terminal, and what a person does with it.
#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>
#include <string>
#include <unistd.h>

#include "app/terminal/Tmux.h"

namespace wifi_profile::testing {

inline std::string fileContent(const std::filesystem::path& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

// One run in a terminal of its own, with a folder of its own.
class TerminalRun {
 public:
  explicit TerminalRun(terminal::Extent extent) : tmux(extent) {
    static int count = 0;
    folder_ = std::filesystem::path(::testing::TempDir()) /
              ("terminal-run-" + std::to_string(getpid()) + "-" + std::to_string(++count));
    std::filesystem::create_directories(folder_);
    terminalBefore_ = tmux.output("stty -a");
  }
  TerminalRun(const TerminalRun&) = delete;
  TerminalRun& operator=(const TerminalRun&) = delete;
  ~TerminalRun() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  Tmux tmux;

  // `environment` in front of the command, as "TERM=linux". The record goes into a file, what is
  // said on standard error into another.
  void start(const std::string& scenario, const std::string& options,
             const std::string& environment = "") {
    const std::string device =
        scenario == "demo" ? scenario : WIFI_PROFILE_SOURCE_DIR "/scenarios/" + scenario + ".json";
    tmux.enter("clear; " + environment +
               " " WIFI_PROFILE_PROGRAM
               " run --ui terminal --language en"
               " --output json --device " +
               device + " " + options + " >" + record().string() + " 2>" +
               (folder_ / "messages").string() + "; echo ended-with-$?");
  }

  // Waits until the program has ended and the shell is back; the exit status.
  int status() {
    static const std::regex kEnd("ended-with-([0-9]+)\n\\$");
    std::smatch match;
    const std::string seen =
        tmux.screenWhere([](const std::string& screen) { return std::regex_search(screen, kEnd); });
    return std::regex_search(seen, match, kEnd) ? std::stoi(match[1]) : -1;
  }
  // The terminal shows the shell, takes lines and echoes them as it did before.
  void expectTerminalAsBefore() {
    EXPECT_FALSE(tmux.showsSecondScreen());
    EXPECT_EQ(tmux.output("stty -a"), terminalBefore_);
    EXPECT_NE(tmux.output("echo  right-$((40 + 2))").find("right-42\n"), std::string::npos);
  }

  std::filesystem::path record() const { return folder_ / "record"; }
  std::string messages() const { return fileContent(folder_ / "messages"); }
  void expectRecord(const std::string& golden) const {
    const std::filesystem::path kept =
        WIFI_PROFILE_SOURCE_DIR "/unittests/golden/" + golden + ".record.json";
    EXPECT_EQ(fileContent(record()), fileContent(kept)) << kept;
  }

 private:
  std::filesystem::path folder_;
  std::string terminalBefore_;
};

}  // namespace wifi_profile::testing
