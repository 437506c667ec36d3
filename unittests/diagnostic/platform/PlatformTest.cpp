// How services are installed.

#include <gtest/gtest.h>

#include "diagnostic/platform/NameCollator.h"
#include "diagnostic/platform/Platform.h"
#include "diagnostic/platform/StringTable.h"
#include "runtime/BuiltInStringTable.h"
#include "support/FoldingCollator.h"

namespace wifi_profile {
namespace {

TEST(InstalledPlatform, LeavesTheServicesThatItDoesNotName) {
  FoldingCollator collator;
  runtime::BuiltInStringTable keys(runtime::kKeysLanguage);
  runtime::BuiltInStringTable english("en");
  const InstalledPlatform first({.texts = &keys, .collator = &collator});
  {
    const InstalledPlatform second({.texts = &english});
    EXPECT_EQ(localizedString("NEXT"), "Next");
    EXPECT_EQ(NameCollator::shared(), &collator);
  }
  EXPECT_EQ(localizedString("NEXT"), "NEXT");
}

TEST(InstalledPlatformDeathTest, AbortsAndNamesTheServiceThatIsNotInstalled) {
  EXPECT_DEATH(NameCollator::shared(),
               "the name collator was used, but the host has not installed");
}

}  // namespace
}  // namespace wifi_profile
