#include "app/terminal/Tmux.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <thread>
#include <unistd.h>
#include <utility>

namespace wifi_profile::testing {
namespace {

using namespace std::chrono_literals;
constexpr auto kDeadline = 30s;
constexpr auto kPoll = 20ms;

std::string uniqueName() {
  static std::atomic<int> count = 0;
  return "wifi-profile-test-" + std::to_string(getpid()) + "-" + std::to_string(++count);
}

std::string quoted(const std::string& word) {
  std::string text = "'";
  for (const char c : word) text += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return text + "'";
}

std::string outputOf(const std::string& commandLine) {
  std::string output;
  FILE* const pipe = popen(commandLine.c_str(), "r");
  if (!pipe) return output;
  std::array<char, 4096> part{};
  while (const std::size_t count = std::fread(part.data(), 1, part.size(), pipe)) {
    output.append(part.data(), count);
  }
  pclose(pipe);
  return output;
}

std::string contentOf(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

}  // namespace

bool comesTrue(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + kDeadline;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(kPoll);
  }
  return true;
}

Tmux::Tmux(terminal::Extent extent) : socket_(uniqueName()) {
  tmux({"new-session", "-d", "-x", std::to_string(extent.columns), "-y",
        std::to_string(extent.lines), "env PS1='$ ' LC_ALL=C.UTF-8 bash --norc --noprofile -i"});
  tmux({"set-option", "-g", "status", "off"});
  resize(extent);
  screenWith({"$"});
}

Tmux::~Tmux() { kill(); }

// A server leaves its socket behind.
void Tmux::kill() {
  std::string socket = tmux({"display-message", "-p", "#{socket_path}"});
  tmux({"kill-server"});
  if (socket.empty()) return;  // it had gone before
  socket.pop_back();           // the end of the line
  std::error_code ignored;
  std::filesystem::remove(socket, ignored);
}

std::string Tmux::tmux(const std::vector<std::string>& arguments) const {
  std::string line = "tmux -u -L " + socket_ + " -f /dev/null";
  for (const std::string& argument : arguments) line += " " + quoted(argument);
  return outputOf("env -u TMUX LC_ALL=C.UTF-8 " + line + " 2>/dev/null");
}

void Tmux::enter(const std::string& commandLine) {
  type(commandLine);
  press({"Enter"});
}

void Tmux::press(const std::vector<std::string>& keys) {
  std::vector<std::string> arguments{"send-keys"};
  arguments.insert(arguments.end(), keys.begin(), keys.end());
  tmux(arguments);
}

void Tmux::type(const std::string& text) { tmux({"send-keys", "-l", text}); }

void Tmux::paste(const std::string& text) {
  tmux({"set-buffer", text});
  tmux({"paste-buffer", "-p", "-r"});
}

void Tmux::resize(terminal::Extent extent) {
  tmux({"resize-window", "-x", std::to_string(extent.columns), "-y", std::to_string(extent.lines)});
}

std::string Tmux::screen() const { return tmux({"capture-pane", "-p"}); }

std::string Tmux::screenWithColours() const { return tmux({"capture-pane", "-p", "-e"}); }

std::string Tmux::screenWith(const std::vector<std::string>& texts) const {
  return screenWhere([&](const std::string& screen) {
    for (const std::string& text : texts) {
      if (screen.find(text) == std::string::npos) return false;
    }
    return true;
  });
}

std::string Tmux::screenWhere(const std::function<bool(const std::string&)>& isRight) const {
  std::string seen;
  const bool came = comesTrue([&] { return isRight(seen = screen()); });
  EXPECT_TRUE(came) << "the screen stayed\n" << seen;
  return seen;
}

std::string Tmux::output(const std::string& commandLine) {
  const std::string number = std::to_string(++outputs_);
  enter("clear; " + commandLine + "; echo end-of-output-$((" + number + "))");
  const std::string end = "end-of-output-" + number + "\n";
  const std::string seen = screenWith({end});
  return seen.substr(0, seen.find(end));
}

bool Tmux::showsSecondScreen() const {
  return tmux({"display-message", "-p", "#{alternate_on}"}) == "1\n";
}

int Tmux::processInForeground() const {
  const int shell = std::atoi(tmux({"display-message", "-p", "#{pane_pid}"}).c_str());
  // "123 (bash) S parent group session terminal foreground-group ..."
  const std::string status = contentOf("/proc/" + std::to_string(shell) + "/stat");
  std::istringstream fields(status.substr(std::min(status.rfind(')') + 1, status.size())));
  std::string skipped;
  int foreground = -1;
  fields >> skipped >> skipped >> skipped >> skipped >> skipped >> foreground;
  return foreground == shell ? -1 : foreground;
}

ScreenBook::ScreenBook(const Tmux& tmux, const std::string& name, terminal::Extent extent)
    : tmux_(tmux),
      path_(std::string(WIFI_PROFILE_SOURCE_DIR "/unittests/golden/screens/") + name + "-" +
            std::to_string(extent.columns) + "x" + std::to_string(extent.lines) + ".txt"),
      writes_(std::getenv("WIFI_PROFILE_WRITE_GOLDEN") != nullptr),
      kept_(contentOf(path_)) {}

// A screen comes in pieces: what was waited for may be there before the rest.
void ScreenBook::add(const std::string& caption, const std::string& screen) {
  std::string seen = screen;
  const std::string before = pages_ + "== " + caption + "\n";
  if (writes_) {
    comesTrue([&] { return std::exchange(seen, tmux_.screen()) == seen; });
  } else {
    const auto isAsKept = [&] { return kept_.starts_with(before + seen); };
    if (!isAsKept()) {
      comesTrue([&] {
        seen = tmux_.screen();
        return isAsKept();
      });
    }
  }
  pages_ = before + seen;
}

ScreenBook::~ScreenBook() {
  if (writes_) {
    std::filesystem::create_directories(std::filesystem::path(path_).parent_path());
    std::ofstream(path_, std::ios::binary) << pages_;
  } else {
    EXPECT_EQ(kept_, pages_) << path_;
  }
}

}  // namespace wifi_profile::testing
