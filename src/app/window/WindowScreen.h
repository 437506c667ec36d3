// The screen in a window, for phones, tablets and desktops.
#pragma once

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <memory>
#include <string>
#include <variant>

#include "app/PersonScreen.h"
#include "app/window/QtMainQueue.h"
#include "app/window/WindowModel.h"

namespace wifi_profile::window {

// A QGuiApplication must exist during its lifetime. Shows the window immediately.
class WindowScreen final : public app::PersonScreen,
                           public std::enable_shared_from_this<WindowScreen> {
 public:
  WindowScreen();
  ~WindowScreen() override;

  QQuickWindow& window() { return *window_; }
  WindowModel& model() { return *model_; }

  std::shared_ptr<runtime::MainQueue> mainQueue() const override { return queue_; }
  void show(std::shared_ptr<toolkit::ViewController> controller,
            std::function<void()> askedToStop) override;
  void showTests(const app::TestsDone& tests) override { model_->setTests(tests); }
  void showEmptyList(app::EmptyList state) override { model_->setEmptyList(std::move(state)); }
  void showReport(report::Report report) override { model_->setReport(std::move(report)); }
  void close() override;
  bool isClosed() const override { return closed_ || model_->isClosed(); }
  void abandon() override {}  // a window disappears with its process

  toolkit::Size size() const override { return model_->size(); }
  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override;
  void progressWasSet(const toolkit::ProgressView& progressView) override;
  void tableDid(const toolkit::TableEvent& event) override;
  void buttonWasEnabled(const toolkit::BarButtonItem& button) override;
  void buttonWasRemoved() override { model_->syncSoon(); }
  void spinnerWasSwitched(const toolkit::Spinner& spinner) override;
  void refreshWasInstalled() override { model_->syncSoon(); }
  void refreshBegan() override { model_->syncSoon(); }
  void refreshEnded() override { model_->syncSoon(); }
  void alertWasPresented(const toolkit::Alert& alert) override;
  void alertTextWasEdited(const toolkit::Alert& alert) override;
  void alertWasDismissed(const toolkit::Alert& /*alert*/) override { model_->syncSoon(); }

 private:
  std::shared_ptr<QtMainQueue> queue_ = std::make_shared<QtMainQueue>();
  std::unique_ptr<WindowModel> model_ = std::make_unique<WindowModel>();
  QQmlApplicationEngine engine_;
  QQuickWindow* window_ = nullptr;  // owned by the engine
  bool layoutIsPosted_ = false;
  bool closed_ = false;
};

}  // namespace wifi_profile::window
