#include "app/terminal/TerminalScreen.h"

#include <asio/io_context.hpp>
#include <asio/posix/stream_descriptor.hpp>
#include <asio/post.hpp>
#include <asio/signal_set.hpp>
#include <asio/steady_timer.hpp>
#include <chrono>
#include <csignal>
#include <utility>

#include "app/terminal/AlertKeys.h"
#include "app/terminal/KeyHandler.h"
#include "app/terminal/TerminalFrame.h"
#include "app/terminal/TerminalRestore.h"
#include "app/terminal/Tty.h"
#include "diagnostic/platform/toolkit/ViewController.h"
#include "runtime/AsioMainQueue.h"
#include "runtime/NoScreen.h"

namespace wifi_profile::terminal {
namespace {

using namespace std::chrono_literals;
constexpr auto kSpinnerStep = 100ms;  // one step of a spinner
constexpr auto kForegroundPoll = 200ms;

bool isIgnored(int signal) {
  struct sigaction action {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

// Stops the process by the default action of SIGTSTP, which does nothing in an orphaned process
// group.
void stopProcess() {
  struct sigaction waiting {};
  struct sigaction usual {};
  usual.sa_handler = SIG_DFL;
  sigaction(SIGTSTP, &usual, &waiting);
  std::raise(SIGTSTP);
  sigaction(SIGTSTP, &waiting, nullptr);
}

volatile std::sig_atomic_t stopRequested = 0;

// Defers SIGTSTP after the terminal was changed and before the screen handles the signal: the
// screen must restore the terminal before the process stops.
class DeferredStop {
 public:
  DeferredStop() {
    if (isIgnored(SIGTSTP)) return;
    stopRequested = 0;
    struct sigaction noting {};
    noting.sa_handler = [](int /*signal*/) { stopRequested = 1; };
    sigaction(SIGTSTP, &noting, &before_.emplace());
  }
  // Call when the screen handles the signal.
  void screenHandlesStop() { before_.reset(); }
  ~DeferredStop() {
    if (before_) sigaction(SIGTSTP, &*before_, nullptr);
    if (std::exchange(stopRequested, 0) != 0) std::raise(SIGTSTP);
  }
  DeferredStop(const DeferredStop&) = delete;
  DeferredStop& operator=(const DeferredStop&) = delete;

 private:
  std::optional<struct sigaction> before_;
};

class TerminalScreen final : public app::PersonScreen,
                             public std::enable_shared_from_this<TerminalScreen> {
 public:
  TerminalScreen(std::unique_ptr<Tty> tty, std::shared_ptr<runtime::AsioMainQueue> queue)
      : queue_(std::move(queue)), tty_(std::move(tty)), input_(queue_->context()) {
    input_.assign(tty_->descriptor());
  }
  ~TerminalScreen() override { close(); }

  // Call once a shared_ptr owns the screen.
  void begin() {
    for (const int signal : {SIGWINCH, SIGTSTP, SIGCONT}) {
      if (signal == SIGWINCH || !isIgnored(signal)) signals_.add(signal);
    }
    waitForSignal();
    waitForKeys();
    draw();
  }

  toolkit::Size size() const override { return layout_->size(); }
  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override {
    layout_->needsLayout(controller);
  }
  void progressWasSet(const toolkit::ProgressView& /*progressView*/) override { draw(); }
  void tableDid(const toolkit::TableEvent& event) override;
  void buttonWasEnabled(const toolkit::BarButtonItem& /*button*/) override { draw(); }
  void buttonWasRemoved() override { draw(); }
  void spinnerWasSwitched(const toolkit::Spinner& /*spinner*/) override { draw(); }
  void refreshWasInstalled() override { draw(); }
  void refreshBegan() override { draw(); }
  void refreshEnded() override { draw(); }
  void alertWasPresented(const toolkit::Alert& alert) override {
    state_.dialog = initialState(alert);
    draw();
  }
  void alertTextWasEdited(const toolkit::Alert& /*alert*/) override { draw(); }
  void alertWasDismissed(const toolkit::Alert& /*alert*/) override { draw(); }

  std::shared_ptr<runtime::MainQueue> mainQueue() const override { return queue_; }
  void show(std::shared_ptr<toolkit::ViewController> controller,
            std::function<void()> askedToStop) override;
  void showTests(const app::TestsDone& tests) override {
    tests_ = tests;
    draw();
  }
  void showEmptyList(app::EmptyList state) override {
    emptyList_ = std::move(state);
    draw();
  }
  void showReport(report::Report report) override;
  void close() override;
  bool isClosed() const override { return closed_; }
  void abandon() override { restoreTerminalNow(); }

 private:
  Shown shown() const;
  Look look() const { return {.extent = tty_->extent(), .marks = tty_->marks()}; }
  void draw();
  void drawNow();
  void stepSpinners(const Shown& shown);
  void waitForKeys();
  void handleNextKey();
  void perform(const Shown& shown, const Effect& effect);
  void askToStop();
  void waitForSignal();
  void handleSignal(int signal);
  void resumeTerminal();

  // Returns a handler that calls a member, unless the screen has been destroyed or closed by then.
  template <class... Arguments>
  auto handlerOf(void (TerminalScreen::*member)(Arguments...)) {
    return
        [weak = weak_from_this(), member](const asio::error_code& error, Arguments... arguments) {
          const auto self = weak.lock();
          if (self && !error && self->tty_) ((*self).*member)(arguments...);
        };
  }

  const std::shared_ptr<runtime::AsioMainQueue> queue_;
  const std::shared_ptr<runtime::NoScreen> layout_ = std::make_shared<runtime::NoScreen>();
  std::unique_ptr<Tty> tty_;  // null: closed
  asio::posix::stream_descriptor input_;
  asio::signal_set signals_{queue_->context()};
  asio::steady_timer spinnerTimer_{queue_->context()};
  asio::steady_timer foregroundTimer_{queue_->context()};

  std::shared_ptr<toolkit::ViewController> controller_;  // null: no view yet
  std::function<void()> askedToStop_;
  app::TestsDone tests_;
  app::EmptyList emptyList_;
  std::optional<report::Report> report_;
  TerminalState state_;
  bool drawIsPosted_ = false;
  bool spinnerTimerRuns_ = false;
  bool closed_ = false;
};

// --- What is shown

Shown TerminalScreen::shown() const {
  Shown shown{
      .content = {}, .alert = nullptr, .tests = tests_, .emptyList = emptyList_, .report = nullptr};
  if (controller_) {
    shown.content = app::contentOf(*controller_->view());
    shown.alert = controller_->presentedAlert();
  }
  if (report_) shown.report = &*report_;
  return shown;
}

void TerminalScreen::show(std::shared_ptr<toolkit::ViewController> controller,
                          std::function<void()> askedToStop) {
  controller_ = std::move(controller);
  askedToStop_ = std::move(askedToStop);
  if (const auto& alert = controller_->presentedAlert()) state_.dialog = initialState(*alert);
  draw();
}

void TerminalScreen::showReport(report::Report report) {
  report_ = std::move(report);
  const TerminalState before = std::exchange(state_, {});
  state_.spinnerStep = before.spinnerStep;
  draw();
}

void TerminalScreen::tableDid(const toolkit::TableEvent& event) {
  if (!tty_) return;
  state_ = afterEvent(shown(), std::move(state_), look(), event);
  draw();
}

// Schedules one drawing; further calls until then have no effect.
void TerminalScreen::draw() {
  if (std::exchange(drawIsPosted_, true)) return;
  asio::post(queue_->context(), [weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->drawNow();
  });
}

void TerminalScreen::drawNow() {
  drawIsPosted_ = false;
  if (!tty_ || tty_->isReleased()) return;
  const Shown now = shown();
  state_ = withValidCursor(now, std::move(state_), look());
  tty_->put(frameOf(now, state_, look()));
  stepSpinners(now);
}

void TerminalScreen::stepSpinners(const Shown& shown) {
  if (spinnerTimerRuns_ || !hasList(shown.content) || !isScanning(*shown.content.table)) return;
  spinnerTimerRuns_ = true;
  spinnerTimer_.expires_after(kSpinnerStep);
  spinnerTimer_.async_wait([weak = weak_from_this()](const asio::error_code& error) {
    const auto self = weak.lock();
    if (!self || error) return;
    self->spinnerTimerRuns_ = false;
    ++self->state_.spinnerStep;
    self->draw();
  });
}

// --- What a person does

void TerminalScreen::waitForKeys() {
  input_.async_wait(asio::posix::stream_descriptor::wait_read,
                    handlerOf(&TerminalScreen::handleNextKey));
}

// Takes one key and posts the taking of the next one, so that work posted by this key comes first.
void TerminalScreen::handleNextKey() {
  if (tty_->isReleased()) return;
  const auto key = tty_->nextKey();
  if (!key) {
    if (tty_->isGone()) {
      askToStop();
      closed_ = true;
    } else {
      waitForKeys();
    }
    return;
  }
  asio::post(queue_->context(), [weak = weak_from_this()] {
    const auto self = weak.lock();
    if (self && self->tty_) self->handleNextKey();
  });
  const Shown now = shown();
  KeyResult result = handleKey(now, withValidCursor(now, std::move(state_), look()), look(), *key);
  state_ = std::move(result.state);
  perform(now, result.effect);
  draw();
}

void TerminalScreen::perform(const Shown& shown, const Effect& effect) {
  applyEffect(shown, effect);
  if (std::holds_alternative<effect::Stop>(effect)) askToStop();
  if (std::holds_alternative<effect::Close>(effect)) closed_ = true;
  if (std::holds_alternative<effect::Repaint>(effect)) tty_->repaint();
}

void TerminalScreen::askToStop() {
  state_.stopping = true;
  if (const auto ask = std::exchange(askedToStop_, nullptr)) ask();
}

// --- What happens to the terminal

void TerminalScreen::waitForSignal() {
  signals_.async_wait(handlerOf(&TerminalScreen::handleSignal));
}

void TerminalScreen::handleSignal(int signal) {
  waitForSignal();
  if (signal == SIGTSTP) {
    input_.cancel();
    tty_->release();
    stopProcess();
    resumeTerminal();
  } else if (signal == SIGCONT) {
    resumeTerminal();
  } else {
    const Extent before = tty_->extent();
    tty_->updateSize();
    if (tty_->extent() == before) return;
  }
  state_ = afterResize(shown(), std::move(state_), look());
  draw();
}

// In the background, another process uses the terminal, even after SIGCONT: try again later.
void TerminalScreen::resumeTerminal() {
  if (tty_->isInForeground()) {
    const bool wasReleased = tty_->isReleased();
    tty_->resume();
    if (wasReleased) waitForKeys();
    draw();
    return;
  }
  if (!tty_->isReleased()) return;
  foregroundTimer_.expires_after(kForegroundPoll);
  foregroundTimer_.async_wait(handlerOf(&TerminalScreen::resumeTerminal));
}

void TerminalScreen::close() {
  closed_ = true;
  askedToStop_ = nullptr;
  if (!tty_) return;
  input_.release();
  spinnerTimer_.cancel();
  foregroundTimer_.cancel();
  // Restore the terminal before the signals are cleared, so that a SIGTSTP in between finds it
  // restored.
  tty_.reset();
  signals_.clear();
  signals_.cancel();
}

}  // namespace

Result<std::shared_ptr<app::PersonScreen>> makeTerminalScreen(TerminalStyle style) {
  auto queue = std::make_shared<runtime::AsioMainQueue>();
  DeferredStop stops;
  auto tty = Tty::open(style.color);
  if (!tty) return tty.error();
  auto screen = std::make_shared<TerminalScreen>(*std::move(tty), std::move(queue));
  screen->begin();
  stops.screenHandlesStop();
  return std::shared_ptr<app::PersonScreen>(std::move(screen));
}

}  // namespace wifi_profile::terminal
