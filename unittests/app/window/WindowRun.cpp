#include "app/window/WindowRun.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include "diagnostic/platform/toolkit/Alert.h"
#include "runtime/ThreadRunLoop.h"

namespace wifi_profile::testing {
namespace {

constexpr int kPatience = 30000;  // ms
constexpr int kBetweenTries = 10;

using scenario::Action;
using scenario::Step;

// Places of the rows and the list's way at the last look.
bool hasStoodStill(window::WindowScreen& screen, QQuickItem& item) {
  static QRectF before;
  static int looks = 0;
  const QRectF place = placeOf(item);
  looks = place == before ? looks + 1 : 0;
  before = place;
  return looks >= 3 && isAtRest(screen);
}

// The row, or the button, once it is there, enabled and at rest.
bool pressWhenReady(window::WindowScreen& screen, Hand& hand, QQuickItem* item) {
  if (!item || !item->isEnabled() || !hasStoodStill(screen, *item)) return false;
  return hand.press(screen.window(), *item);
}

QQuickItem* lastRow(const QQuickWindow& window) {
  QQuickItem* last = nullptr;
  for (int row = 0;; ++row) {
    QQuickItem* const item = itemNamed(window, QStringLiteral("row1.%1").arg(row));
    if (!item) return last;
    last = item;
  }
}

bool listIsReady(const window::WindowScreen& screen) {
  return const_cast<window::WindowScreen&>(screen).model().canRefresh();
}

QString titleOf(const scenario::Step& step) { return QString::fromStdString(step.text); }

bool tryStep(window::WindowScreen& screen, Hand& hand, const scenario::Step& step) {
  QQuickWindow& window = screen.window();
  switch (step.action) {
    case scenario::Action::tapNetwork:
      return listIsReady(screen) &&
             pressWhenReady(screen, hand, itemSaying(window, "row1", titleOf(step)));
    case scenario::Action::tapRow:
      return listIsReady(screen) &&
             pressWhenReady(
                 screen, hand,
                 itemNamed(window, QStringLiteral("row%1.%2").arg(step.section).arg(step.row)));
    case scenario::Action::tapOther:
      return listIsReady(screen) && pressWhenReady(screen, hand, lastRow(window));
    case scenario::Action::type: {
      QQuickItem* const field = itemNamed(window, "alertField");
      return field && hasStoodStill(screen, *field) &&
             hand.type(window, *field, QString::fromStdString(step.text));
    }
    case scenario::Action::tapAction:
      return pressWhenReady(screen, hand, itemSaying(window, "alertButton", titleOf(step)));
    case scenario::Action::tapNext:
      return screen.model().alertMessage().isEmpty() &&
             pressWhenReady(screen, hand, itemNamed(window, "barButton"));
    default:
      return listIsReady(screen) && hasStoodStill(screen, *itemNamed(window, "networkList")) &&
             hand.pullToRefresh(window);
  }
}

std::string nameOf(const scenario::Step& step) {
  return "action " + std::to_string(static_cast<int>(step.action)) + " " + step.text;
}

std::vector<std::string>& warnings() {
  static std::vector<std::string> all;
  return all;
}

void keepWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type != QtDebugMsg && type != QtInfoMsg) warnings().push_back(message.toStdString());
}

}  // namespace

bool waitUntil(const std::function<bool()>& done) {
  QElapsedTimer timer;
  for (timer.start(); timer.elapsed() < kPatience; QTest::qWait(1)) {
    if (done()) return true;
  }
  return false;
}

bool isAtRest(window::WindowScreen& screen) {
  const QQuickItem* const list = itemNamed(screen.window(), "networkList");
  return !list || (!list->property("moving").toBool() &&
                   list->property("verticalOvershoot").toDouble() == 0);
}

WindowResult runInWindow(const std::string& json,
                         const std::shared_ptr<window::WindowScreen>& screen,
                         std::vector<Deed> deeds, const Wish& wish) {
  WindowResult result;
  std::size_t next = 0;
  QElapsedTimer patience;
  patience.start();
  bool trying = false;  // a deed handles events, and the timer's may be among them
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    if (trying) return;
    trying = true;
    if (next < deeds.size() && deeds[next].tryIt(*screen)) {
      ++next;
      patience.restart();
    }
    trying = false;
    if (patience.elapsed() < kPatience || !result.stuckAt.empty()) return;
    result.stuckAt = next < deeds.size() ? deeds[next].name : "the end";
    screen->model().answerStop(true);
  });
  timer.start(kBetweenTries);
  runtime::ThreadRunLoop loop(screen->mainQueue());
  Wish asked = wish;
  asked.person = screen;
  result.run = runScenario(json, loop, asked);
  return result;
}

std::vector<Deed> deedsOf(const scenario::Scenario& scenario, HandKind kind) {
  std::vector<Deed> deeds;
  const std::shared_ptr<Hand> hand = makeHand(kind);
  for (const scenario::Step& step : scenario.user.value_or(std::vector<scenario::Step>())) {
    const bool worlds =
        step.action == scenario::Action::setPower || step.action == scenario::Action::wait ||
        step.action == scenario::Action::teardown || step.action == scenario::Action::scrollAway;
    if (worlds) continue;
    deeds.push_back({nameOf(step), [hand, step](window::WindowScreen& screen) {
                       return tryStep(screen, *hand, step);
                     }});
  }
  return deeds;
}

std::vector<std::string> takeWarnings() {
  static const bool installed = (qInstallMessageHandler(keepWarning), true);
  Q_UNUSED(installed)
  return std::exchange(warnings(), {});
}

}  // namespace wifi_profile::testing
