// A window for every test.
#pragma once

#include <gtest/gtest.h>

#include "app/window/WindowRun.h"
#include "runtime/BuiltInStringTable.h"

namespace wifi_profile::testing {

// No test may leave a warning behind.
class WindowFixture : public ::testing::Test {
 protected:
  explicit WindowFixture(std::string_view language = "en");
  ~WindowFixture() override;

  WindowResult runWith(const std::string& json, std::vector<Deed> deeds, bool pick);
  QQuickItem* item(const QString& name) { return itemNamed(screen->window(), name); }
  // A property of the item of that name, which must be there.
  QVariant property(const QString& name, const char* which);

  const std::string_view language;
  runtime::BuiltInStringTable texts;
  const InstalledPlatform platform{{.texts = &texts}};
  const std::shared_ptr<window::WindowScreen> screen;
};

}  // namespace wifi_profile::testing
