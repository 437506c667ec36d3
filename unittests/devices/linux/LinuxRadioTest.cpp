// A FIFO stands in for /dev/rfkill, and a folder for sysfs. There is no bus, or one of the test's.

#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/rfkill.h>
#include <mutex>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "devices/linux/Lines.h"
#include "devices/linux/LinuxRadio.h"
#include "devices/linux/bus/BusFixture.h"
#include "devices/linux/netlink/NetlinkBytes.h"
#include "diagnostic/platform/DiagnosticLog.h"
#include "runtime/ThreadRunLoop.h"

namespace wifi_profile::linux {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr std::chrono::seconds kLongestWait{20};
// Longer than a name of an interface can be, so that no machine has it: it is only in the folder.
constexpr const char* kRadioName = "wlan-of-a-test-only";

ieee80211::Octets switchEvent(std::uint8_t operation, bool soft = false) {
  rfkill_event made{};
  made.idx = 3;
  made.type = RFKILL_TYPE_WLAN;
  made.op = operation;
  made.soft = soft ? 1 : 0;
  return netlink::octetsOf(made);
}

class LinuxRadioTest : public testing::Test {
 protected:
  LinuxRadioTest() {
    std::string name = (fs::temp_directory_path() / "radio-XXXXXX").string();
    EXPECT_NE(mkdtemp(name.data()), nullptr);
    folder_ = name;
    fs::create_directories(switchFolder());
    setSwitch(false);
    EXPECT_EQ(mkfifo(device().c_str(), 0600), 0);
    fifo_ = Descriptor(::open(device().c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    EXPECT_GE(fifo_.number(), 0);
  }
  ~LinuxRadioTest() override {
    loop_.runUntilIdle();
    radio_.reset();
    fs::remove_all(folder_);
  }

  std::string device() const { return (folder_ / "device").string(); }
  fs::path switchFolder() const { return folder_ / kRadioName / "phy80211" / "rfkill3"; }
  void setSwitch(bool blocked, bool byHand = false) const {
    std::ofstream(switchFolder() / "soft") << (blocked ? "1\n" : "0\n");
    std::ofstream(switchFolder() / "hard") << (byHand ? "1\n" : "0\n");
  }
  void happens(const ieee80211::Octets& bytes) const {
    EXPECT_EQ(write(fifo_.number(), bytes.data(), bytes.size()),
              static_cast<ssize_t>(bytes.size()));
  }

  void make(const std::string& bus = "unix:path=/nonexistent/socket") {
    radio_ = std::make_shared<LinuxRadio>(kRadioName, bus::Bus::at(bus),
                                          Rfkill(kRadioName, device(), folder_.string()));
    manager_ = radio_->createClient(0);
  }
  // The one device, with a callback that counts the notifications that came on the main thread.
  void listen() {
    const auto devices = radio_->copyDevices(manager_);
    ASSERT_EQ(radio_->deviceCount(devices), 1U);
    device_ = radio_->deviceAt(devices, 0);
    radio_->retain(device_);
    radio_->registerPowerCallback(
        device_,
        [](WiFiDeviceClientRef, const std::shared_ptr<void>& context) {
          if (WorkQueues::shared()->onMainThread()) ++*static_cast<int*>(context.get());
        },
        notifications_);
    radio_->release(devices);
  }
  // Lets the main thread work until something is as it should be.
  template <class Condition>
  bool comes(Condition condition) {
    const auto deadline = Clock::now() + kLongestWait;
    while (Clock::now() < deadline) {
      loop_.runUntilIdle();
      if (condition()) return true;
      std::this_thread::yield();
    }
    return false;
  }
  bool isOn() { return radio_->getPower(manager_) != 0; }

  runtime::ThreadRunLoop loop_;
  std::shared_ptr<Lines> log_ = std::make_shared<Lines>();
  const InstalledPlatform platform_{{.queues = &loop_, .log = log_.get()}};
  fs::path folder_;
  Descriptor fifo_;
  std::shared_ptr<LinuxRadio> radio_;
  WiFiManagerClientRef manager_ = nullptr;
  WiFiDeviceClientRef device_ = nullptr;
  std::shared_ptr<int> notifications_ = std::make_shared<int>(0);
};

TEST_F(LinuxRadioTest, IsAsItsSwitchSays) {
  make();
  EXPECT_NE(radio_->containsRadio(), 0);
  ASSERT_NE(manager_, nullptr);
  EXPECT_TRUE(isOn());
  setSwitch(true);
  make();
  EXPECT_FALSE(isOn());
  happens(switchEvent(RFKILL_OP_ADD, false));  // newer than the files
  make();
  EXPECT_TRUE(isOn());
}

TEST_F(LinuxRadioTest, IsAsItsSwitchSaysWhereNoNewsCanBeHad) {
  fs::remove(device());
  setSwitch(true);
  make();
  EXPECT_FALSE(isOn());
  setSwitch(false);
  make();
  EXPECT_TRUE(isOn());
}

TEST_F(LinuxRadioTest, WithoutASwitchOrAManagerIsOn) {
  fs::remove_all(switchFolder());
  make();
  EXPECT_TRUE(isOn());
}

TEST_F(LinuxRadioTest, ThatIsGoneIsOff) {
  fs::remove_all(folder_ / kRadioName);
  make();
  EXPECT_FALSE(isOn());
}

TEST_F(LinuxRadioTest, TellsOfAChangeOnTheMainThread) {
  make();
  listen();
  happens(switchEvent(RFKILL_OP_CHANGE, true));
  EXPECT_TRUE(comes([&] { return *notifications_ == 1; }));
  EXPECT_FALSE(isOn());
  happens(switchEvent(RFKILL_OP_CHANGE, false));
  EXPECT_TRUE(comes([&] { return *notifications_ == 2; }));
  EXPECT_TRUE(isOn());
}

TEST_F(LinuxRadioTest, IsOffWhenItWasTakenOut) {
  make();
  listen();
  happens(switchEvent(RFKILL_OP_DEL));
  EXPECT_TRUE(comes([&] { return *notifications_ == 1; }));
  EXPECT_FALSE(isOn());
}

TEST_F(LinuxRadioTest, TellsNobodyAfterTheRelease) {
  make();
  listen();
  radio_->release(device_);
  happens(switchEvent(RFKILL_OP_CHANGE, true));
  EXPECT_TRUE(comes([&] { return !isOn(); })) << "the news came";
  loop_.runUntilIdle();
  EXPECT_EQ(*notifications_, 0);
}

TEST_F(LinuxRadioTest, SaysWhyItCouldNotBeSwitchedOn) {
  setSwitch(true);
  make();
  listen();
  fs::remove_all(folder_ / kRadioName);
  radio_->setPower(manager_, 1);
  ASSERT_TRUE(comes([&] { return !log_->lines().empty(); }));
  EXPECT_THAT(log_->lines().front(), HasSubstr("0 error Wi-Fi could not be switched on. "));
  EXPECT_THAT(log_->lines().front(), HasSubstr("The Wi-Fi interface is gone."));
  EXPECT_THAT(radio_->powerOnFailure(), HasSubstr("The Wi-Fi interface is gone."));
  EXPECT_FALSE(isOn());
  EXPECT_EQ(*notifications_, 0);
}

TEST_F(LinuxRadioTest, IsSwitchedOnWithoutAManager) {
  setSwitch(true);
  make();
  listen();
  radio_->setPower(manager_, 1);
  // What is written to the switches comes out of the FIFO as their news.
  EXPECT_TRUE(comes([&] { return *notifications_ == 1; }));
  EXPECT_TRUE(isOn());
  EXPECT_TRUE(log_->lines().empty());
}

TEST_F(LinuxRadioTest, IsNeverSwitchedOff) {
  make();
  listen();
  radio_->setPower(manager_, 0);
  loop_.runUntilIdle();
  EXPECT_TRUE(isOn());
  EXPECT_TRUE(log_->lines().empty());
}

// What NetworkManager has to say where the kernel says nothing.
class ManagedLinuxRadioTest : public LinuxRadioTest {
 protected:
  ManagedLinuxRadioTest() {
    constexpr auto kRoot = "/org/freedesktop/NetworkManager";
    constexpr auto kName = "org.freedesktop.NetworkManager";
    manager.method(kRoot, kName, "GetDeviceByIpIface",
                   [](const std::string&) { return sdbus::ObjectPath("/device/1"); });
    manager.property("/device/1", "org.freedesktop.NetworkManager.Device", "State",
                     std::uint32_t{100});
    manager.object(kRoot)
        .registerProperty("WirelessEnabled")
        .onInterface(kName)
        .withGetter([this] { return enabled.load(); })
        .withSetter([this](const bool& on) { enabled = on; });
    manager.start();
  }

  std::atomic<bool> enabled = false;
  bus::BusDaemon daemon;
  bus::FakeService manager{daemon.address(), "org.freedesktop.NetworkManager"};
};

TEST_F(ManagedLinuxRadioTest, WithoutASwitchIsAsTheManagerSays) {
  fs::remove_all(switchFolder());
  make(daemon.address());
  EXPECT_FALSE(isOn());
  enabled = true;
  make(daemon.address());
  EXPECT_TRUE(isOn());
}

TEST_F(ManagedLinuxRadioTest, TellsByItselfThatItWasSwitchedOnWhereNoNewsCanBeHad) {
  fs::remove(device());
  setSwitch(true);
  make(daemon.address());
  listen();
  ASSERT_FALSE(isOn());
  radio_->setPower(manager_, 1);
  EXPECT_TRUE(comes([&] { return *notifications_ == 1; }));
  EXPECT_TRUE(isOn());
  EXPECT_TRUE(enabled);
}

TEST_F(ManagedLinuxRadioTest, SaysInTheLogThatOnlyHandsCanSwitchItOn) {
  setSwitch(true, true);
  make(daemon.address());
  listen();
  radio_->setPower(manager_, 1);
  ASSERT_TRUE(comes([&] { return !log_->lines().empty(); }));
  EXPECT_THAT(log_->lines().front(), HasSubstr("a switch or a key on the device"));
  EXPECT_TRUE(enabled) << "the manager agreed";
  EXPECT_FALSE(isOn());
}

TEST_F(ManagedLinuxRadioTest, LeavesTheNewsToTheSwitchWhereItTells) {
  setSwitch(true);
  make(daemon.address());
  listen();
  radio_->setPower(manager_, 1);
  ASSERT_TRUE(comes([&] { return enabled.load(); }));
  EXPECT_FALSE(isOn()) << "the manager agreed, and nothing has happened yet";
  happens(switchEvent(RFKILL_OP_CHANGE, false));
  EXPECT_TRUE(comes([&] { return *notifications_ == 1; }));
  EXPECT_TRUE(isOn());
}

}  // namespace
}  // namespace wifi_profile::linux
