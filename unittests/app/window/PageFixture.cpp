#include "app/window/PageFixture.h"

#include <QTest>
#include <gmock/gmock.h>

namespace wifi_profile::testing {
namespace {

constexpr int kLook = 20;  // ms
constexpr int kStillLooks = 3;

// Where everything is; the turning of a wheel does not count.
QList<QRectF> placesIn(const QQuickWindow& window) {
  QList<QRectF> places;
  for (const QQuickItem* const item : shownItems(window)) {
    places.push_back({item->x(), item->y(), item->width(), item->height() + item->opacity()});
  }
  return places;
}

}  // namespace

PageFixture::PageFixture(std::string_view language, QSize size)
    : texts(language),
      drawn([] {
        takeWarnings();
        return std::make_shared<window::WindowScreen>();
      }()),
      installedWindow_({.screen = drawn.get()}) {
  resize(size);
  window().requestActivate();
  EXPECT_TRUE(waitUntil([&] { return window().isExposed() && window().isActive(); }));
}

PageFixture::~PageFixture() {
  service->whileRunning = [this](const FakeService::Request&) { queues->waitForMain(); };
  if (controller) controller->disappear();
  queues->runUntilIdle();
  EXPECT_THAT(takeWarnings(), ::testing::IsEmpty());
}

void PageFixture::start(const TextRef& selected, bool list) {
  setUpController(makeInputs(selected, list));
  drawn->show(controller, [this] { ++timesAskedToStop; });
  controller->start();
  controller->appear();
}

void PageFixture::showList(std::initializer_list<const char*> names) {
  nextScanHears(names);
  startList();
  settle();
}

void PageFixture::atTheNextRequest(std::vector<std::function<void()>> steps) {
  service->whileRunning = [this, steps = std::move(steps),
                           done = false](const FakeService::Request&) mutable {
    if (!std::exchange(done, true)) {
      queues->waitForMain();
      for (const auto& step : steps) {
        queues->postToMain(step);
        queues->waitForMain();
      }
    }
    queues->waitForMain();
  };
}

void PageFixture::settle() {
  queues->runUntilIdle();
  rest();
}

void PageFixture::rest() {
  QList<QRectF> before;
  int still = 0;
  EXPECT_TRUE(waitUntil([&] {
    QTest::qWait(kLook);
    const QList<QRectF> places = placesIn(window());
    still = places == before ? still + 1 : 0;
    before = places;
    return still >= kStillLooks;
  }));
}

QRectF PageFixture::placeOfItem(const QString& name) {
  const QQuickItem* const found = item(name);
  EXPECT_NE(found, nullptr) << name.toStdString();
  return found ? placeOf(*found) : QRectF();
}

void PageFixture::press(const QString& name, HandKind with) {
  QQuickItem* const found = item(name);
  ASSERT_NE(found, nullptr) << name.toStdString();
  EXPECT_TRUE(makeHand(with)->press(window(), *found)) << name.toStdString();
}

void PageFixture::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(&window(), key, modifiers);
}

void PageFixture::resize(QSize size) {
  window().resize(size);
  // The window knows its new size before it tells of it.
  EXPECT_TRUE(waitUntil([&] {
    const auto [width, height] = model().size();
    return window().size() == size && width == size.width() && height == size.height();
  }));
}

}  // namespace wifi_profile::testing
