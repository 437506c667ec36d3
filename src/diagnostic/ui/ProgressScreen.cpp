// The progress screen: a message and a progress bar below it. State: `mainLabel`, `progressView`,
// `progressScreenVisible`, `completedTests`, `totalTests`.

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/RunObserver.h"
#include "diagnostic/platform/StringTable.h"
#include "diagnostic/platform/WorkQueues.h"
#include "diagnostic/platform/toolkit/Label.h"
#include "diagnostic/platform/toolkit/ProgressView.h"
#include "diagnostic/platform/toolkit/TableView.h"

namespace wifi_profile {

using toolkit::LayoutAttribute;
using toolkit::LayoutRelation;

namespace {

std::shared_ptr<toolkit::Label> makeMessage() {
  auto label = std::make_shared<toolkit::Label>();
  label->setOpaque(false);
  label->setContentMode(toolkit::kContentModeLeft);
  label->setHuggingPriority({251, 251});
  label->textAlignment = toolkit::TextAlignment::center;
  label->lineBreakMode = toolkit::LineBreakMode::byWords;
  label->numberOfLines = 3;
  label->baselineAdjustment = toolkit::BaselineAdjustment::none;
  label->preferredMaxLayoutWidth = 280;
  label->systemFontSize = 27;
  label->text = makeText(localizedString("PROGRESS_TEXT"));
  label->textColor = toolkit::kBlack;
  label->setTranslatesAutoresizingMaskIntoConstraints(false);
  return label;
}

std::shared_ptr<toolkit::ProgressView> makeProgressBar() {
  auto bar = std::make_shared<toolkit::ProgressView>(toolkit::ProgressViewStyle::standard);
  bar->setHuggingPriority({.vertical = 750});
  bar->setTranslatesAutoresizingMaskIntoConstraints(false);
  return bar;
}

}  // namespace

void WiFiProfileViewController::displayProgressScreen() {
  progressScreenVisible.set(true);
  removeNavigationBarButtons();
  if (const auto table = tableView()) table->removeFromSuperview();
  mainLabel.set(makeMessage());
  progressView.set(makeProgressBar());
  view()->setNeedsUpdateConstraints();
  view()->addSubview(mainLabel());
  view()->addSubview(progressView());
}

void WiFiProfileViewController::updateViewConstraints() {
  ViewController::updateViewConstraints();
  if (!progressScreenVisible()) return;
  const auto screen = view();
  const auto label = mainLabel();
  const auto bar = progressView();
  // Added at every pass in addition to the existing ones: duplicates have no effect.
  screen->addConstraint({.first = label.get(),
                         .firstAttribute = LayoutAttribute::leading,
                         .second = screen.get(),
                         .secondAttribute = LayoutAttribute::leading,
                         .constant = 20});
  screen->addConstraint({.first = screen.get(),
                         .firstAttribute = LayoutAttribute::trailing,
                         .second = label.get(),
                         .secondAttribute = LayoutAttribute::trailing,
                         .constant = 20});
  label->addConstraint({.first = label.get(),
                        .firstAttribute = LayoutAttribute::height,
                        .relation = LayoutRelation::greaterThanOrEqual,
                        .constant = 36,
                        .priority = 750});
  screen->addConstraint({.first = label.get(),
                         .firstAttribute = LayoutAttribute::centerX,
                         .second = screen.get(),
                         .secondAttribute = LayoutAttribute::centerX});
  screen->addConstraint({.first = label.get(),
                         .firstAttribute = LayoutAttribute::bottom,
                         .second = screen.get(),
                         .secondAttribute = LayoutAttribute::centerY,
                         .constant = 21});
  bar->addConstraint(
      {.first = bar.get(), .firstAttribute = LayoutAttribute::width, .constant = 240});
  screen->addConstraint({.first = bar.get(),
                         .firstAttribute = LayoutAttribute::centerX,
                         .second = screen.get(),
                         .secondAttribute = LayoutAttribute::centerX});
  screen->addConstraint({.first = bar.get(),
                         .firstAttribute = LayoutAttribute::top,
                         .second = label.get(),
                         .secondAttribute = LayoutAttribute::bottom,
                         .constant = 15});
}

void WiFiProfileViewController::updateProgress() {
  completedTests.set(completedTests() + 1);
  WorkQueues::shared()->postToMain([self = self()] {
    const auto bar = self->progressView();
    if (!bar) return;
    bar->setProgress(static_cast<float>(self->completedTests()) /
                     static_cast<float>(self->totalTests()));
  });
  notifyRunObserver(
      [&](RunObserver& observer) { observer.progressed(completedTests(), totalTests()); });
}

}  // namespace wifi_profile
