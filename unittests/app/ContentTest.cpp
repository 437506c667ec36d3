// What screens find in a controller's view, and the texts that they put around it.

#include "app/Content.h"
#include "runtime/BuiltInStringTable.h"
#include "support/DiagnosticFixture.h"

namespace wifi_profile::app {
namespace {

class ContentOfAScreen : public DiagnosticFixture {
 protected:
  const std::shared_ptr<toolkit::View> view = std::make_shared<toolkit::View>();
};

TEST_F(ContentOfAScreen, IsNothingInAnEmptyView) {
  const Content content = contentOf(*view);
  EXPECT_FALSE(content.bar || content.item || content.table || content.label || content.progress);
}

TEST_F(ContentOfAScreen, IsWhatTheViewHolds) {
  const auto bar = std::make_shared<toolkit::NavigationBar>();
  const auto item = std::make_shared<toolkit::NavigationItem>("Title");
  const auto label = std::make_shared<toolkit::Label>();
  bar->setItems({item});
  view->addSubview(label);
  view->addSubview(bar);
  const Content content = contentOf(*view);
  EXPECT_EQ(content.bar, bar);
  EXPECT_EQ(content.item, item);
  EXPECT_EQ(content.label, label);
  EXPECT_FALSE(content.table || content.progress);
}

TEST_F(ContentOfAScreen, IsTheFrontmostOfAKind) {
  view->addSubview(std::make_shared<toolkit::Label>());
  const auto front = std::make_shared<toolkit::Label>();
  view->addSubview(front);
  EXPECT_EQ(contentOf(*view).label, front);
}

TEST_F(ContentOfAScreen, HasTextsWithPartsReplaced) {
  runtime::BuiltInStringTable english("en");
  const InstalledPlatform platform({.texts = &english});
  EXPECT_EQ(screenText("TESTS_DONE", {{"{done}", "3"}, {"{total}", "40"}}), "3 of 40 tests done");
  EXPECT_EQ(screenText("NEXT"), "Next");
  EXPECT_EQ(screenText("NEXT", {{"{done}", "3"}}), "Next");
  EXPECT_EQ(screenText("NO_SUCH_KEY"), "");
}

}  // namespace
}  // namespace wifi_profile::app
