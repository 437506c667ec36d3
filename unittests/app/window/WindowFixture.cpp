#include "app/window/WindowFixture.h"

#include <gmock/gmock.h>

namespace wifi_profile::testing {

WindowFixture::WindowFixture(std::string_view inLanguage)
    : language(inLanguage), texts(inLanguage), screen([] {
        takeWarnings();
        return std::make_shared<window::WindowScreen>();
      }()) {
  screen->window().resize(360, 640);
  EXPECT_TRUE(waitUntil([&] { return screen->window().isExposed(); }));
  screen->window().requestActivate();
}

WindowFixture::~WindowFixture() { EXPECT_THAT(takeWarnings(), ::testing::IsEmpty()); }

WindowResult WindowFixture::runWith(const std::string& json, std::vector<Deed> deeds, bool pick) {
  Wish wish;
  wish.pick = pick;
  wish.language = language;
  return runInWindow(json, screen, std::move(deeds), wish);
}

QVariant WindowFixture::property(const QString& name, const char* which) {
  QQuickItem* const found = item(name);
  EXPECT_NE(found, nullptr) << name.toStdString();
  return found ? found->property(which) : QVariant();
}

}  // namespace wifi_profile::testing
