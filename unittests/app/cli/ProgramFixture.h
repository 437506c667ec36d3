// The program, run by the shell.
#pragma once

#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace wifi_profile::testing {

struct Outcome {
  int status;
  std::string out;
  std::string err;
};

// A folder of its own for what goes in and comes out.
class Program : public ::testing::Test {
 protected:
  Program() : folder_(::testing::TempDir() + "program-" + std::to_string(::getpid()) + "/") {
    std::system(("mkdir -p '" + folder_ + "'").c_str());
  }
  ~Program() override { std::system(("rm -rf '" + folder_ + "'").c_str()); }

  // Runs the program by the shell, in an environment without a language.
  Outcome run(const std::string& arguments, const std::string& before = "",
              const std::string& program = WIFI_PROFILE_PROGRAM) const {
    const std::string command = before + " LC_ALL=C " + program + " " + arguments + " >'" +
                                path("out") + "' 2>'" + path("err") + "' </dev/null";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, content("out"), content("err")};
  }
  std::string path(const std::string& name) const { return folder_ + name; }
  std::string content(const std::string& name) const {
    std::ostringstream text;
    text << std::ifstream(path(name), std::ios::binary).rdbuf();
    return text.str();
  }
  std::string file(const std::string& name, const std::string& text) const {
    std::ofstream(path(name), std::ios::binary) << text;
    return "'" + path(name) + "'";
  }
  // Expects one line on standard error with these pieces, the status, and no output.
  void expectRefusal(const Outcome& outcome, int status, const std::string& piece) const {
    EXPECT_EQ(outcome.status, status) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, ::testing::AllOf(::testing::StartsWith("wifi-profile: "),
                                              ::testing::HasSubstr(piece)));
  }
  std::string runFile(const std::string& text) const {
    return "run --time virtual --device " + file("scenario.json", text);
  }

 private:
  std::string folder_;
};

}  // namespace wifi_profile::testing
