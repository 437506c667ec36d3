// A FIFO stands in for /dev/rfkill, and a folder for sysfs. What is written to the FIFO comes back
// as an event, as from the kernel.

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/rfkill.h>
#include <sys/stat.h>
#include <unistd.h>

#include "devices/linux/Rfkill.h"
#include "devices/linux/netlink/NetlinkBytes.h"

namespace wifi_profile::linux {
namespace {

namespace fs = std::filesystem;
using ieee80211::operator+;
using testing::ElementsAre;
using testing::IsEmpty;
using News = Rfkill::News;

ieee80211::Octets event(std::uint32_t index, std::uint8_t operation, bool soft = false,
                        bool hard = false) {
  rfkill_event made{};
  made.idx = index;
  made.type = RFKILL_TYPE_WLAN;
  made.op = operation;
  made.soft = soft ? 1 : 0;
  made.hard = hard ? 1 : 0;
  return netlink::octetsOf(made);
}

TEST(RfkillEvents, AreReadFromEightBytesOrMore) {
  const RfkillEvent expected{.index = 7,
                             .operation = RfkillEvent::Operation::changed,
                             .softBlocked = true,
                             .hardBlocked = false};
  const ieee80211::Octets bytes = event(7, RFKILL_OP_CHANGE, true);
  EXPECT_EQ(parseRfkillEvent(bytes), expected);
  EXPECT_EQ(parseRfkillEvent(bytes + ieee80211::Octets{3, 9, 9}), expected);
  EXPECT_FALSE(parseRfkillEvent(ieee80211::Bytes(bytes).first(7)));
  EXPECT_FALSE(parseRfkillEvent({}));
}

TEST(RfkillEvents, OfOtherOperationsAreNone) {
  EXPECT_FALSE(parseRfkillEvent(event(7, RFKILL_OP_CHANGE_ALL)));
  EXPECT_FALSE(parseRfkillEvent(event(7, 200)));
}

class Switches : public testing::Test {
 protected:
  Switches() {
    std::string name = (fs::temp_directory_path() / "rfkill-XXXXXX").string();
    EXPECT_NE(mkdtemp(name.data()), nullptr);
    folder_ = name;
    fs::create_directories(folder_ / "wlan0" / "phy80211" / "rfkill3");
    fs::create_directories(folder_ / "wlan0" / "phy80211" / "power");
    EXPECT_EQ(mkfifo(device().c_str(), 0600), 0);
    fifo_ = Descriptor(::open(device().c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    EXPECT_GE(fifo_.number(), 0);
  }
  ~Switches() override { fs::remove_all(folder_); }

  std::string device() const { return (folder_ / "device").string(); }
  Rfkill rfkill(const std::string& interface = "wlan0") const {
    return Rfkill(interface, device(), folder_.string());
  }
  void happens(const ieee80211::Octets& bytes) const {
    EXPECT_EQ(write(fifo_.number(), bytes.data(), bytes.size()),
              static_cast<ssize_t>(bytes.size()));
  }
  static std::vector<News> newsOf(Rfkill& switches) {
    std::vector<News> news;
    switches.handleEvents([&news](News one) { news.push_back(one); });
    return news;
  }

  fs::path folder_;
  Descriptor fifo_;
};

TEST_F(Switches, OfTheRadioCountAndThoseOfOthersDoNot) {
  happens(event(1, RFKILL_OP_ADD, true) + event(3, RFKILL_OP_ADD));
  Rfkill switches = rfkill();
  ASSERT_TRUE(switches.open());
  EXPECT_EQ(switches.poweredOn(), true);
  EXPECT_GE(switches.descriptor(), 0);
}

TEST_F(Switches, TellWhenTheRadioGoesOffAndOn) {
  happens(event(3, RFKILL_OP_ADD));
  Rfkill switches = rfkill();
  ASSERT_TRUE(switches.open());
  EXPECT_THAT(newsOf(switches), IsEmpty());
  happens(event(3, RFKILL_OP_CHANGE, true));
  EXPECT_THAT(newsOf(switches), ElementsAre(News::off));
  EXPECT_EQ(switches.poweredOn(), false);
  EXPECT_FALSE(switches.isHardBlocked());
  happens(event(3, RFKILL_OP_CHANGE, true, true));
  EXPECT_THAT(newsOf(switches), IsEmpty()) << "it was off before";
  EXPECT_TRUE(switches.isHardBlocked());
  happens(event(3, RFKILL_OP_CHANGE));
  EXPECT_THAT(newsOf(switches), ElementsAre(News::on));
}

TEST_F(Switches, TellOnceThatTheRadioIsGone) {
  happens(event(3, RFKILL_OP_ADD));
  Rfkill switches = rfkill();
  ASSERT_TRUE(switches.open());
  happens(event(3, RFKILL_OP_DEL));
  EXPECT_THAT(newsOf(switches), ElementsAre(News::removed));
  EXPECT_FALSE(switches.poweredOn());
  happens(event(3, RFKILL_OP_ADD, true));
  EXPECT_THAT(newsOf(switches), IsEmpty()) << "the number is another device's now";
}

TEST_F(Switches, OfTheRadioAreTurnedOn) {
  happens(event(3, RFKILL_OP_ADD, true));
  Rfkill switches = rfkill();
  ASSERT_TRUE(switches.open());
  ASSERT_EQ(switches.poweredOn(), false);
  EXPECT_TRUE(switches.switchOn());
  EXPECT_THAT(newsOf(switches), ElementsAre(News::on));
}

TEST_F(Switches, ThatOnlyHandsCanTurnAreNotTurned) {
  happens(event(3, RFKILL_OP_ADD, false, true));
  Rfkill switches = rfkill();
  ASSERT_TRUE(switches.open());
  const auto problem = switches.switchOn();
  ASSERT_FALSE(problem);
  EXPECT_EQ(problem.error().reason, Reason::radioOff);
  EXPECT_THAT(newsOf(switches), IsEmpty());
}

TEST_F(Switches, OfAnInterfaceThatIsGoneAreUnknown) {
  Rfkill switches = rfkill("wlan9");
  const auto problem = switches.open();
  ASSERT_FALSE(problem);
  EXPECT_EQ(problem.error().reason, Reason::noHardware);
  EXPECT_FALSE(switches.poweredOn());
  EXPECT_THAT(newsOf(switches), IsEmpty());
}

TEST_F(Switches, ThatARadioLacksAreNotSupported) {
  fs::create_directories(folder_ / "wlan1" / "phy80211" / "rfkill");
  Rfkill switches = rfkill("wlan1");
  const auto problem = switches.open();
  ASSERT_FALSE(problem);
  EXPECT_EQ(problem.error().reason, Reason::notSupported);
  EXPECT_EQ(switches.switchOn().error().reason, Reason::notSupported);
}

TEST_F(Switches, ThatGiveNoNewsAreKnownAsTheyAreNow) {
  for (const char* state : {"0", "1"}) {
    const fs::path one = folder_ / "wlan0" / "phy80211" / "rfkill3";
    std::ofstream(one / "soft") << state << '\n';
    std::ofstream(one / "hard") << "0\n";
    fs::remove(device());
    Rfkill switches = rfkill();
    EXPECT_FALSE(switches.open());
    EXPECT_EQ(switches.poweredOn(), *state == '0');
    EXPECT_THAT(newsOf(switches), IsEmpty());
  }
}

TEST_F(Switches, OfAKernelWithoutTheDeviceAreNotSupported) {
  fs::remove(device());
  Rfkill switches = rfkill();
  const auto problem = switches.open();
  ASSERT_FALSE(problem);
  EXPECT_EQ(problem.error().reason, Reason::notSupported);
}

}  // namespace
}  // namespace wifi_profile::linux
