#include "BusFixture.h"

#include <array>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

// sdbus-c++ 1.2 forgets a connection to an address that cannot be reached. Connections to the
// system's and the session's bus are made in another way.
extern "C" const char* __lsan_default_suppressions();  // NOLINT: the sanitizer's name
extern "C" const char* __lsan_default_suppressions() { return "leak:libsystemd.so"; }

namespace wifi_profile::linux::bus {

namespace fs = std::filesystem;

namespace {

fs::path newFolder() {
  std::string name = (fs::temp_directory_path() / "bus-XXXXXX").string();
  if (!mkdtemp(name.data())) throw std::runtime_error("no folder for the bus");
  return name;
}

void write(const fs::path& file, const std::string& text) { std::ofstream(file) << text; }

// The first line, which the daemon writes when it can be connected to.
std::string readLine(int descriptor) {
  std::string line;
  pollfd watched{descriptor, POLLIN, 0};
  constexpr int kLongest = 30'000;
  for (char letter = 0; poll(&watched, 1, kLongest) == 1 && ::read(descriptor, &letter, 1) == 1;) {
    if (letter == '\n') return line;
    line += letter;
  }
  throw std::runtime_error("dbus-daemon does not start");
}

}  // namespace

BusDaemon::BusDaemon() : folder_(newFolder()) {
  const std::string folder = folder_.string();
  write(folder_ / "bus.conf",
        "<busconfig><type>session</type><listen>unix:path=" + folder +
            "/socket</listen>"
            "<auth>EXTERNAL</auth><servicedir>" +
            folder +
            "</servicedir>"
            "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
            "<allow eavesdrop=\"true\"/>"
            "<allow own=\"*\"/></policy></busconfig>");
  write(folder_ / "org.example.Startable.service",
        "[D-BUS Service]\nName=org.example.Startable\nExec=/bin/touch " + folder + "/started\n");
  std::array<int, 2> pipe{};
  if (::pipe(pipe.data()) != 0) throw std::runtime_error("no pipe");
  const std::string config = "--config-file=" + folder + "/bus.conf";
  const std::string print = "--print-address=" + std::to_string(pipe[1]);
  const std::array<const char*, 5> arguments{"dbus-daemon", config.c_str(), "--nofork",
                                             print.c_str(), nullptr};
  // What it has to say is of no interest, but for its address.
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  const int problem = posix_spawnp(&process_, "dbus-daemon", &actions, nullptr,
                                   const_cast<char* const*>(arguments.data()), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(pipe[1]);
  if (problem != 0) throw std::runtime_error("dbus-daemon is not installed");
  address_ = readLine(pipe[0]);
  close(pipe[0]);
}

BusDaemon::~BusDaemon() {
  end();
  std::error_code error;
  fs::remove_all(folder_, error);
}

void BusDaemon::end() {
  if (process_ < 0) return;
  kill(process_, SIGTERM);
  waitpid(process_, nullptr, 0);
  process_ = -1;
}

bool BusDaemon::startedService() const { return fs::exists(folder_ / "started"); }

FakeService::FakeService(const std::string& address, std::string name)
    : name_(std::move(name)), connection_(sdbus::createSessionBusConnectionWithAddress(address)) {}

FakeService::~FakeService() {
  connection_->leaveEventLoop();
  objects_.clear();
}

sdbus::IObject& FakeService::object(const std::string& path) {
  auto& object = objects_[path];
  if (!object) object = sdbus::createObject(*connection_, path);
  return *object;
}

void FakeService::addObjectManager() { connection_->addObjectManager("/", sdbus::floating_slot); }

void FakeService::start() {
  for (auto& [path, object] : objects_) object->finishRegistration();
  connection_->enterEventLoopAsync();
  connection_->requestName(name_);
}

}  // namespace wifi_profile::linux::bus
