// Bluetooth, as BlueZ tells it.

#include "BusFixture.h"
#include "Values.h"
#include "devices/linux/bus/Bluez.h"

namespace wifi_profile::linux::bus {
namespace {

using sdbus::Variant;

constexpr auto kAdapter = "org.bluez.Adapter1";
constexpr auto kDevice = "org.bluez.Device1";

TEST(BluetoothFacts, WithoutAdapterAreNoHardware) {
  EXPECT_EQ(bluetoothFrom(map({{"/org/bluez", map({{"org.bluez.AgentManager1", map({})}})}}))
                .error()
                .reason,
            Reason::noHardware);
}

TEST(BluetoothFacts, WithoutAnyObjectFailed) {
  EXPECT_EQ(bluetoothFrom({}).error().reason, Reason::failed);
  EXPECT_EQ(bluetoothFrom(text("objects")).error().reason, Reason::failed);
}

TEST(BluetoothFacts, OfWrongTypesAreAsIfOff) {
  const auto bluetooth = bluetoothFrom(
      map({{"/a", map({{kAdapter, map({{"Powered", text("yes")}})}})},
           {"/a/d", map({{kDevice, map({{"Paired", number(1)}, {"Connected", text("yes")}})}})},
           {"/b", number(3)}}));
  ASSERT_TRUE(bluetooth);
  EXPECT_EQ(*bluetooth, facts::Bluetooth{});
}

class BluezTest : public BusFixture {};

TEST_F(BluezTest, CountsPairedAndConnectedDevicesOfAllAdapters) {
  FakeService service(daemon_.address(), "org.bluez");
  service.addObjectManager();
  service.property("/org/bluez/hci0", kAdapter, "Powered", false);
  service.property("/org/bluez/hci1", kAdapter, "Powered", true);
  for (int number = 0; number < 5; ++number) {
    const std::string path = "/org/bluez/hci1/" + std::to_string(number);
    service.property(path, kDevice, "Paired", number < 3);
    service.property(path, kDevice, "Connected", number < 1);
    // Its keys are numbers.
    service.property(path, kDevice, "ManufacturerData",
                     std::map<std::uint16_t, Variant>{{76, Variant(std::string("maker"))}});
  }
  service.start();
  const auto bluetooth = readBluetooth(*bus_, deadline());
  ASSERT_TRUE(bluetooth) << bluetooth.error().message;
  EXPECT_EQ(*bluetooth, (facts::Bluetooth{3, 1}));
}

TEST_F(BluezTest, ThatIsNotRunningIsNoService) {
  EXPECT_EQ(readBluetooth(*bus_, deadline()).error().reason, Reason::noService);
}

TEST_F(BluezTest, WithoutABusIsNoService) {
  const auto none = Bus::at("unix:path=/nonexistent/socket");
  EXPECT_EQ(readBluetooth(*none, deadline()).error().reason, Reason::noService);
}

}  // namespace
}  // namespace wifi_profile::linux::bus
