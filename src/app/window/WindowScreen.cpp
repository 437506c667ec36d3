#include "app/window/WindowScreen.h"

#include <QGuiApplication>
#include <QQmlContext>
#include <QQuickStyle>
#include <QScreen>
#include <algorithm>

#include "app/window/ProgressAccessible.h"
#include "diagnostic/platform/toolkit/TableEvent.h"

namespace wifi_profile::window {
namespace {

// In points; smaller on a smaller screen.
constexpr int kUsualWidth = 420;
constexpr int kUsualHeight = 760;

}  // namespace

WindowScreen::WindowScreen() {
  QQuickStyle::setStyle(QStringLiteral("Basic"));
  makeProgressAccessible();
  engine_.rootContext()->setContextProperty(QStringLiteral("profile"), model_.get());
  engine_.load(QUrl(QStringLiteral("qrc:/wifi-profile/Main.qml")));
  if (engine_.rootObjects().isEmpty()) qFatal("The window's own files cannot be loaded");
  window_ = qobject_cast<QQuickWindow*>(engine_.rootObjects().first());
  const QSize available = QGuiApplication::primaryScreen()->availableSize();
  window_->resize(std::min(kUsualWidth, available.width()),
                  std::min(kUsualHeight, available.height()));
  const auto updateSize = [this] {
    model_->setSize(
        {static_cast<double>(window_->width()), static_cast<double>(window_->height())});
  };
  QObject::connect(window_, &QWindow::widthChanged, window_, updateSize);
  QObject::connect(window_, &QWindow::heightChanged, window_, updateSize);
  QObject::connect(model_.get(), &WindowModel::closed, window_, [this] { close(); });
  updateSize();
  window_->show();
}

WindowScreen::~WindowScreen() = default;

void WindowScreen::show(std::shared_ptr<toolkit::ViewController> controller,
                        std::function<void()> askedToStop) {
  const bool portraitOnly = controller->supportedInterfaceOrientations() == toolkit::kPortraitOnly;
  if (portraitOnly) window_->reportContentOrientationChange(Qt::PortraitOrientation);
  model_->show(std::move(controller), std::move(askedToStop));
}

void WindowScreen::close() {
  if (std::exchange(closed_, true)) return;
  window_->hide();
  queue_->post([] {});  // wakes the main thread, which waits for the report to be closed
}

void WindowScreen::needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) {
  if (std::exchange(layoutIsPosted_, true)) return;
  WorkQueues::shared()->postToMain([self = shared_from_this(), controller] {
    self->layoutIsPosted_ = false;
    controller->layOut();
    self->model_->syncSoon();
  });
}

void WindowScreen::tableDid(const toolkit::TableEvent& event) {
  using namespace toolkit::table_event;
  if (std::holds_alternative<RowsWereRead>(event)) model_->picker().reread();
  if (const auto* changed = std::get_if<RowsChanged>(&event))
    model_->picker().rowsChanged(*changed);
  if (const auto* scrolled = std::get_if<Scrolled>(&event)) model_->scrollTo(scrolled->row);
  model_->syncSoon();
}

void WindowScreen::progressWasSet(const toolkit::ProgressView& /*progressView*/) {
  model_->syncSoon();
}

void WindowScreen::buttonWasEnabled(const toolkit::BarButtonItem& /*button*/) {
  model_->syncSoon();
}

void WindowScreen::spinnerWasSwitched(const toolkit::Spinner& /*spinner*/) { model_->syncSoon(); }

void WindowScreen::alertWasPresented(const toolkit::Alert& /*alert*/) { model_->syncSoon(); }

void WindowScreen::alertTextWasEdited(const toolkit::Alert& /*alert*/) { model_->syncSoon(); }

}  // namespace wifi_profile::window
