// Dark and light: the colours, their contrast, and the desktop's own setting.

#include <QColor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <cmath>
#include <gtest/gtest.h>

#include "app/window/FakeSettings.h"
#include "app/window/PageFixture.h"
#include "app/window/ReportSample.h"

namespace wifi_profile::testing {
namespace {

double linear(double part) {
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}
double luminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}
double contrast(const QColor& one, const QColor& other) {
  const double a = luminance(one);
  const double b = luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

class Colours : public PageFixture, public ::testing::WithParamInterface<bool> {
 protected:
  // The colour of the nearest filled rectangle behind the middle of a text.
  QColor behind(const QQuickItem& text) {
    const QPointF middle = placeOf(text).center();
    QColor found = window().color();
    for (const QQuickItem* const item : shownItems(window())) {
      if (item == &text) break;
      const QColor color = item->property("color").value<QColor>();
      const bool filled = isOfType(*item, "QQuickRectangle") && color.alpha() == 255;
      if (filled && placeOf(*item).contains(middle)) found = color;
    }
    return found;
  }
  // Disabled, or the name in a row that cannot be pressed now.
  static bool isDisabled(const QQuickItem& text) {
    for (const QQuickItem* item = &text; item; item = item->parentItem()) {
      const QVariant selectable = item->property("selectable");
      if (selectable.isValid() && !selectable.toBool()) return true;
    }
    return !text.isEnabled();
  }
  static bool isSign(const QQuickItem& text) { return text.property("text").toString() == "▾"; }

  void expectEveryTextIsReadable(const char* page) {
    const auto all = shownTexts(window());
    EXPECT_FALSE(all.empty());
    for (const QQuickItem* const text : all) {
      const bool isWeak = isDisabled(*text) || isSign(*text);
      const QColor color = text->property("color").value<QColor>();
      EXPECT_GE(contrast(color, behind(*text)), isWeak ? 3 : 4.5)
          << page << ": " << text->property("text").toString().toStdString() << " "
          << color.name().toStdString() << " on " << behind(*text).name().toStdString();
    }
  }
};

TEST_P(Colours, KeepEveryTextReadable) {
  model().setDark(GetParam());
  joinTo("Home");
  showList({"Alpha"});
  expectEveryTextIsReadable("list");
  key(Qt::Key_F5);
  rest();
  expectEveryTextIsReadable("refreshing");
  nextScanHears({"Alpha"});
  settle();
  key(Qt::Key_End);
  key(Qt::Key_Return);
  settle();
  model().type("Lab");
  rest();
  for (const char* const name : {"alertMessage", "alertField"}) {
    const QQuickItem* const shown = item(name);
    ASSERT_NE(shown, nullptr);
    EXPECT_GE(contrast(shown->property("color").value<QColor>(), behind(*shown)), 4.5) << name;
  }
  key(Qt::Key_Escape);
  drawn->showReport(sampleReport());
  resize({360, 1500});
  rest();
  expectEveryTextIsReadable("report");
}

INSTANTIATE_TEST_SUITE_P(When, Colours, ::testing::Values(true, false), [](const auto& test) {
  return test.param ? std::string("Dark") : std::string("Light");
});

class DesktopsSetting : public PageFixture {};

TEST_F(DesktopsSetting, ChangesEveryColourOfThePage) {
  showList({"Alpha"});
  const auto coloursNow = [&] {
    QList<QColor> colours{window().color()};
    for (const QQuickItem* const text : shownTexts(window())) {
      colours.push_back(text->property("color").value<QColor>());
    }
    return colours;
  };
  model().setDark(false);
  rest();
  const auto light = coloursNow();
  model().setDark(true);
  rest();
  const auto dark = coloursNow();
  ASSERT_EQ(light.size(), dark.size());
  for (qsizetype i = 0; i < light.size(); ++i) EXPECT_NE(light[i], dark[i]) << i;
}

// A second connection of this process plays the portal; a third one a stranger.
class Portal : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(bus.isConnected());  // as under dbus-run-session
    ASSERT_TRUE(bus.registerObject(kPath, &settings, QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(bus.registerService(kName));
  }
  ~Portal() override {
    bus.unregisterService(kName);
    for (const char* const name : {"portal", "stranger"}) {
      QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
    }
  }
  static void say(const QDBusConnection& from, unsigned scheme) {
    QDBusMessage signal = QDBusMessage::createSignal(
        kPath, QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
    signal << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme")
           << QVariant::fromValue(QDBusVariant(scheme));
    from.send(signal);
  }

  static inline const QString kName = QStringLiteral("org.freedesktop.portal.Desktop");
  static inline const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
  QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
  QDBusConnection stranger = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "stranger");
  FakeSettings settings;
};

TEST_F(Portal, IsAskedAtTheStart) {
  settings.scheme = 1;
  const window::Appearance appearance;
  EXPECT_FALSE(appearance.isDark());  // until it has answered
  EXPECT_TRUE(waitUntil([&] { return appearance.isDark(); }));
}

TEST_F(Portal, IsFollowed) {
  const window::Appearance appearance;
  EXPECT_TRUE(waitUntil([&] { return settings.asked > 0; }));
  say(bus, 1);
  EXPECT_TRUE(waitUntil([&] { return appearance.isDark(); }));
  say(bus, 2);
  EXPECT_TRUE(waitUntil([&] { return !appearance.isDark(); }));
}

// The stranger's signal comes before the portal's: when that has arrived, the other one has.
TEST_F(Portal, IsNotMistakenForAnotherSender) {
  const window::Appearance appearance;
  EXPECT_TRUE(waitUntil([&] { return settings.asked > 0; }));
  int changes = 0;
  QObject::connect(&appearance, &window::Appearance::changed, [&] { ++changes; });
  say(stranger, 1);
  // An answered call shows that the bus has dealt with the signal.
  stranger.call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                               "org.freedesktop.DBus", "GetId"));
  say(bus, 2);
  say(bus, 1);
  EXPECT_TRUE(waitUntil([&] { return appearance.isDark(); }));
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace wifi_profile::testing
