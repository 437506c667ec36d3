// Views and what stands in them belong to the main thread.

#include <thread>

#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/ProgressView.h"
#include "diagnostic/platform/toolkit/RefreshControl.h"
#include "diagnostic/platform/toolkit/Spinner.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "support/DiagnosticFixture.h"

namespace wifi_profile::toolkit {
namespace {

class MainThreadDeathTest : public DiagnosticFixture {
 protected:
  void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

  static void expectDeath(const std::function<void()>& act, const char* operation) {
    EXPECT_DEATH(std::thread(act).join(),
                 "wifi-profile: " + std::string(operation) + " was called off the main thread");
  }
};

TEST_F(MainThreadDeathTest, MayNotChangeAViewElsewhere) {
  const auto view = std::make_shared<View>();
  expectDeath([&] { view->setFrame({}); }, "View::setFrame");
  expectDeath([&] { view->addSubview(std::make_shared<View>()); }, "View::addSubview");
  expectDeath([&] { view->removeFromSuperview(); }, "View::removeFromSuperview");
  expectDeath([&] { view->addConstraint({}); }, "View::addConstraint");
}

TEST_F(MainThreadDeathTest, MayNotChangeATableElsewhere) {
  const auto table = std::make_shared<TableView>();
  expectDeath([&] { table->reloadData(); }, "TableView::reloadData");
  expectDeath([&] { table->beginUpdates(); }, "TableView::beginUpdates");
  expectDeath([&] { table->insertRows({}, RowAnimation::fade); }, "TableView::insertRows");
  expectDeath([&] { table->setAllowsSelection(true); }, "TableView::setAllowsSelection");
}

TEST_F(MainThreadDeathTest, MayNotChangeAControlElsewhere) {
  Spinner spinner(SpinnerStyle::smallGrey);
  expectDeath([&] { spinner.startAnimating(); }, "Spinner::setAnimating");
  BarButtonItem button("GO", BarButtonStyle::plain, [] {});
  expectDeath([&] { button.setEnabled(true); }, "BarButtonItem::setEnabled");
  RefreshControl control([] {});
  expectDeath([&] { control.endRefreshing(); }, "RefreshControl::endRefreshing");
  ProgressView bar(ProgressViewStyle::standard);
  expectDeath([&] { bar.setProgress(1); }, "ProgressView::setProgress");
}

TEST_F(MainThreadDeathTest, MayNotAskAPersonElsewhere) {
  const auto owner = std::make_shared<ViewController>();
  const auto alert = std::make_shared<Alert>("SURE");
  expectDeath([&] { owner->present(alert, true); }, "ViewController::present");
  expectDeath([&] { alert->type("text"); }, "Alert::type");
  expectDeath([&] { owner->layOut(); }, "ViewController::layOut");
}

TEST_F(MainThreadDeathTest, MayLetGoOfAViewElsewhere) {
  auto view = std::make_shared<View>();
  view->addSubview(std::make_shared<View>());
  const std::weak_ptr<View> watch = view;
  std::thread([last = std::exchange(view, nullptr)]() mutable { last.reset(); }).join();
  EXPECT_TRUE(watch.expired());
}

}  // namespace
}  // namespace wifi_profile::toolkit
