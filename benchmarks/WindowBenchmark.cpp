// How long the window takes for a frame while a list of 10,000 networks scrolls: input, polish,
// synchronisation and drawing, on the main thread, drawn by Qt's software renderer without a
// display.

#include <QEvent>
#include <QGuiApplication>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <cstdio>

#include "app/window/WindowScreen.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/VirtualTimeRunLoop.h"

namespace wifi_profile {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::int64_t kNetworks = 10'000;
constexpr int kSteps = 400;    // of each way to scroll
constexpr int kDragStep = 24;  // points: a fast finger, at 60 frames a second
constexpr int kDragMargin = 100;
constexpr int kPatience = 200;  // ms, for a frame

// Adds up the time of the frames.
class Application final : public QGuiApplication {
 public:
  using QGuiApplication::QGuiApplication;
  int frames = 0;
  Milliseconds inFrames{0};

  bool notify(QObject* receiver, QEvent* event) override {
    if (event->type() != QEvent::UpdateRequest) return QGuiApplication::notify(receiver, event);
    const auto before = Clock::now();
    const bool handled = QGuiApplication::notify(receiver, event);
    inFrames += Clock::now() - before;
    ++frames;
    return handled;
  }
};

class Networks final : public toolkit::TableViewDataSource, public toolkit::TableViewDelegate {
 public:
  static constexpr const char* kIdentifier = "row";

  std::int64_t numberOfSectionsInTableView(const toolkit::TableView& /*table*/) override {
    return 1;
  }
  std::int64_t tableViewNumberOfRowsInSection(const toolkit::TableView& /*table*/,
                                              std::int64_t /*section*/) override {
    return kNetworks;
  }
  std::shared_ptr<toolkit::TableViewCell> tableViewCellForRowAtIndexPath(
      toolkit::TableView& table, toolkit::IndexPath path) override {
    auto cell = table.dequeueReusableCell(kIdentifier, path);
    cell->textLabel().text = makeText("Network of house number " + std::to_string(path.row));
    return cell;
  }
  double tableViewHeightForHeaderInSection(const toolkit::TableView& /*table*/,
                                           std::int64_t /*section*/) override {
    return 0;
  }
  std::shared_ptr<toolkit::View> tableViewViewForHeaderInSection(
      const toolkit::TableView& /*table*/, std::int64_t /*section*/) override {
    return nullptr;
  }
  double tableViewHeightForFooterInSection(const toolkit::TableView& /*table*/,
                                           std::int64_t /*section*/) override {
    return toolkit::kAutomaticDimension;
  }
  void tableViewDidSelectRowAtIndexPath(toolkit::TableView& /*table*/,
                                        toolkit::IndexPath /*path*/) override {}
};

// The window with the list.
class ListWindow {
 public:
  explicit ListWindow(QSize size) {
    screen_->window().resize(size);
    while (screen_->model().size() !=
           toolkit::Size{static_cast<double>(size.width()), static_cast<double>(size.height())}) {
      QTest::qWait(1);
    }
    const toolkit::NavigationContainer container(*controller_);
    container.navigationBar()->setItems({std::make_shared<toolkit::NavigationItem>("Networks")});
    const auto table = std::make_shared<toolkit::TableView>(controller_->view()->frame());
    table->setContentInset({.top = 64});
    table->setDataSource(networks_);
    table->setDelegate(networks_);
    table->registerCell<toolkit::TableViewCell>(Networks::kIdentifier);
    controller_->view()->addSubview(table);
    controller_->view()->addSubview(container.navigationBar());
    screen_->show(controller_, [] {});
    controller_->appear();
    screen_->window().requestActivate();
    QTest::qWait(500);  // nothing is measured before everything has been drawn
  }
  QQuickWindow& window() { return screen_->window(); }

 private:
  runtime::BuiltInStringTable texts_{"en"};
  runtime::VirtualTimeRunLoop queues_;
  const InstalledPlatform platform_{{.queues = &queues_, .texts = &texts_}};
  const std::shared_ptr<window::WindowScreen> screen_ = std::make_shared<window::WindowScreen>();
  const InstalledPlatform installedScreen_{{.screen = screen_.get()}};
  const std::shared_ptr<Networks> networks_ = std::make_shared<Networks>();
  const std::shared_ptr<toolkit::ViewController> controller_ =
      std::make_shared<toolkit::ViewController>();
};

// Does `act` and draws the frame that comes of it; the time of both. Nothing where no frame comes
// of it, as of a finger's first move.
template <class Act>
void addTimeOf(const Act& act, Application& application, std::vector<double>& times) {
  application.inFrames = Milliseconds(0);
  application.frames = 0;
  const auto before = Clock::now();
  act();
  const Milliseconds acting = Clock::now() - before;
  const bool drawnMeanwhile = application.frames > 0;
  if (!QTest::qWaitFor([&] { return application.frames > 0; }, kPatience)) return;
  times.push_back((drawnMeanwhile ? acting : acting + application.inFrames).count());
}

void report(const char* what, QSize size, std::vector<double> times) {
  if (times.empty()) return;
  std::sort(times.begin(), times.end());
  std::printf("%-9s %4d x %-4d  median %6.2f ms  95 of 100 %6.2f ms  worst %6.2f ms\n", what,
              size.width(), size.height(), times[times.size() / 2], times[times.size() * 95 / 100],
              times.back());
}

void drag(Application& application, QSize size) {
  ListWindow list(size);
  std::vector<double> times;
  while (times.size() < kSteps) {
    QPoint place(size.width() / 2, size.height() - kDragMargin);
    QTest::mousePress(&list.window(), Qt::LeftButton, {}, place);
    while (place.y() > kDragMargin) {
      place.ry() -= kDragStep;
      addTimeOf([&] { QTest::mouseMove(&list.window(), place); }, application, times);
    }
    QTest::mouseRelease(&list.window(), Qt::LeftButton, {}, place);
    QTest::qWait(50);
  }
  report("drag", size, times);
}

void pageDown(Application& application, QSize size) {
  ListWindow list(size);
  std::vector<double> times;
  for (int step = 0; step < kSteps; ++step) {
    addTimeOf([&] { QTest::keyClick(&list.window(), Qt::Key_PageDown); }, application, times);
  }
  report("page down", size, times);
}

}  // namespace
}  // namespace wifi_profile

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  wifi_profile::Application application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  for (const QSize size : {QSize(360, 640), QSize(1200, 800)}) {
    wifi_profile::drag(application, size);
    wifi_profile::pageDown(application, size);
  }
}
