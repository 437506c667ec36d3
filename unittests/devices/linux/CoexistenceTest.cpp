// Drivers that take turns with Bluetooth, in a sysfs on paper.

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>

#include "devices/linux/Coexistence.h"

namespace wifi_profile::linux {
namespace {

namespace fs = std::filesystem;
using facts::Coexistence;

class CoexistenceTest : public testing::Test {
 protected:
  CoexistenceTest() {
    std::string name = (fs::temp_directory_path() / "sysfs-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no folder for sysfs");
    sysfs_ = name;
  }
  ~CoexistenceTest() override { fs::remove_all(sysfs_); }

  // wlan0, with a driver and its module, as the kernel shows them.
  void driver(const std::string& name, const std::string& module) {
    fs::create_directories(sysfs_ / "bus/drivers" / name);
    fs::create_directories(sysfs_ / "module" / module / "parameters");
    fs::create_directories(sysfs_ / "class/net/wlan0/device");
    fs::create_directory_symlink(sysfs_ / "module" / module,
                                 sysfs_ / "bus/drivers" / name / "module");
    fs::create_directory_symlink(sysfs_ / "bus/drivers" / name,
                                 sysfs_ / "class/net/wlan0/device/driver");
  }
  void parameter(const std::string& module, const std::string& name, const std::string& value) {
    std::ofstream(sysfs_ / "module" / module / "parameters" / name) << value;
  }
  Result<facts::Coexistence> read() { return readCoexistence("wlan0", sysfs_); }

  fs::path sysfs_;
};

TEST_F(CoexistenceTest, IsTheParameterOfTheDriversModule) {
  driver("rtl8723be", "rtl8723be");
  parameter("rtl8723be", "btcoex", "0\n");
  EXPECT_EQ(read(), Result<facts::Coexistence>(facts::Coexistence{false}));
  parameter("rtl8723be", "btcoex", "2\n");
  EXPECT_EQ(read(), Result<facts::Coexistence>(facts::Coexistence{true}));
}

TEST_F(CoexistenceTest, IsABooleanOfTheKernels) {
  driver("wifi_pci", "wifi");
  parameter("wifi", "bt_coex_active", "Y\n");
  EXPECT_EQ(read(), Result<facts::Coexistence>(facts::Coexistence{true}));
  parameter("wifi", "bt_coex_active", "N\n");
  EXPECT_EQ(read(), Result<facts::Coexistence>(facts::Coexistence{false}));
}

TEST_F(CoexistenceTest, OfADriverWithoutTheParameterIsNotSupported) {
  driver("plain", "plain");
  EXPECT_EQ(read().error().reason, Reason::notSupported);
}

TEST_F(CoexistenceTest, ThatIsNeitherOnNorOffFailed) {
  driver("plain", "plain");
  parameter("plain", "btcoex_enable", "maybe\n");
  EXPECT_EQ(read().error().reason, Reason::failed);
}

TEST_F(CoexistenceTest, OfAnInterfaceWithoutDriverIsNoHardware) {
  EXPECT_EQ(read().error().reason, Reason::noHardware);
  EXPECT_EQ(readCoexistence("", sysfs_).error().reason, Reason::noHardware);
  EXPECT_EQ(readCoexistence("../../etc", sysfs_).error().reason, Reason::noHardware);
}

}  // namespace
}  // namespace wifi_profile::linux
