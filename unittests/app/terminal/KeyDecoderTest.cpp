// What a terminal sends, as keys.

#include <gtest/gtest.h>
#include <string_view>
#include <vector>

#include "app/terminal/KeyDecoder.h"

namespace wifi_profile::terminal {
namespace {

using Keys = std::vector<Key>;

class DecodedKeys : public ::testing::Test {
 protected:
  Keys after(std::string_view bytes) {
    Keys keys;
    for (const char byte : bytes) {
      if (const auto key = decoder.byte(static_cast<unsigned char>(byte))) keys.push_back(*key);
    }
    return keys;
  }
  KeyDecoder decoder;
};

TEST_F(DecodedKeys, AreCharactersOfOneToFourBytes) {
  EXPECT_EQ(after("aé茶📶"), (Keys{typed("a"), typed("é"), typed("茶"), typed("📶")}));
}

TEST_F(DecodedKeys, AreWholeHoweverTheirBytesCome) {
  EXPECT_EQ(after("\xe8"), Keys{});
  EXPECT_EQ(after("\x8c"), Keys{});
  EXPECT_EQ(after("\xb6"), Keys{typed("茶")});
}

TEST_F(DecodedKeys, LeaveOutWhatIsNoUtf8) {
  EXPECT_EQ(after("\x80"
                  "a\xff"
                  "b\xc3(c\xed\xa0\x80"
                  "d"),
            (Keys{typed("a"), typed("b"), typed("("), typed("c"), typed("d")}));
}

TEST_F(DecodedKeys, HaveNames) {
  EXPECT_EQ(after("\r\n\t\x1b\x7f\b\f\x15\x17"), (Keys{{Key::Name::enter, ""},
                                                       {Key::Name::enter, ""},
                                                       {Key::Name::tab, ""},
                                                       {Key::Name::escape, ""},
                                                       {Key::Name::backspace, ""},
                                                       {Key::Name::backspace, ""},
                                                       {Key::Name::repaint, ""},
                                                       {Key::Name::eraseToStart, ""},
                                                       {Key::Name::eraseWord, ""}}));
  EXPECT_EQ(decoder.named(Key::Name::up), (Key{Key::Name::up, ""}));
}

TEST_F(DecodedKeys, LeaveOutOtherControls) { EXPECT_EQ(after("\x01\x1f"), Keys{}); }

TEST_F(DecodedKeys, ArePutTogetherWhenPasted) {
  decoder.pasteBegins();
  EXPECT_EQ(after("Käse\nq"), Keys{});
  EXPECT_EQ(decoder.named(Key::Name::up), std::nullopt);
  EXPECT_EQ(decoder.pasteEnds(), (Key{Key::Name::paste, "Käse\nq"}));
  EXPECT_EQ(after("q"), Keys{typed("q")});
}

TEST_F(DecodedKeys, AreNoneAtTheEndOfAPasteThatDidNotBegin) {
  EXPECT_EQ(decoder.pasteEnds(), std::nullopt);
}

}  // namespace
}  // namespace wifi_profile::terminal
