// A message bus of a test's own, and services on it. The bus ends with the fixture.
#pragma once

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <sdbus-c++/sdbus-c++.h>
#include <string>
#include <sys/types.h>
#include <vector>

#include "devices/linux/Deadline.h"
#include "devices/linux/bus/Bus.h"

namespace wifi_profile::linux::bus {

using Properties = std::map<std::string, sdbus::Variant>;
using Sections = std::map<std::string, Properties>;

// dbus-daemon, which lets everybody do everything and could start the service
// "org.example.Startable".
class BusDaemon {
 public:
  BusDaemon();
  ~BusDaemon();
  BusDaemon(const BusDaemon&) = delete;
  BusDaemon& operator=(const BusDaemon&) = delete;

  const std::string& address() const { return address_; }
  void end();
  // Whether the bus was told to start "org.example.Startable".
  bool startedService() const;

 private:
  std::filesystem::path folder_;
  std::string address_;
  pid_t process_ = -1;
};

// A service with a thread of its own. Everything is added before `start`, and ends with it; answers
// that a method keeps belong to the method.
class FakeService {
 public:
  FakeService(const std::string& address, std::string name);
  ~FakeService();
  FakeService(const FakeService&) = delete;
  FakeService& operator=(const FakeService&) = delete;

  sdbus::IObject& object(const std::string& path);
  template <class Function>
  void method(const std::string& path, const std::string& interface, const std::string& name,
              Function function) {
    object(path).registerMethod(name).onInterface(interface).implementedAs(std::move(function));
  }
  // Takes calls and never answers.
  template <class Answer, class... Arguments>
  void silentMethod(const std::string& path, const std::string& interface,
                    const std::string& name) {
    using Result = sdbus::Result<Answer>;
    method(path, interface, name,
           [kept = std::make_shared<std::vector<Result>>()](Result&& result, const Arguments&...) {
             kept->push_back(std::move(result));
           });
  }
  template <class T>
  void property(const std::string& path, const std::string& interface, const std::string& name,
                T value) {
    object(path).registerProperty(name).onInterface(interface).withGetter(
        [value = std::move(value)] { return value; });
  }
  // ObjectManager at "/", which tells all objects and their properties.
  void addObjectManager();
  void start();

 private:
  std::string name_;
  std::unique_ptr<sdbus::IConnection> connection_;
  std::map<std::string, std::unique_ptr<sdbus::IObject>> objects_;
};

class BusFixture : public testing::Test {
 protected:
  // Longer than anything here takes; for what is to answer.
  Deadline deadline() const {
    return Deadline::in(std::chrono::seconds(30), cancellation_.get_token());
  }
  Deadline shortDeadline() const {
    return Deadline::in(std::chrono::milliseconds(100), cancellation_.get_token());
  }

  std::stop_source cancellation_;
  BusDaemon daemon_;
  std::unique_ptr<Bus> bus_ = Bus::at(daemon_.address());
};

}  // namespace wifi_profile::linux::bus
