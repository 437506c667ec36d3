#include "app/window/WindowModel.h"

#include <QMetaObject>
#include <algorithm>

#include "app/Content.h"
#include "app/window/ReportEntries.h"
#include "diagnostic/platform/toolkit/Alert.h"
#include "runtime/SafeText.h"

namespace wifi_profile::window {
namespace {

// In points.
constexpr double kSideInset = 16;
constexpr double kWidestList = 640;

QString shown(const std::string& text) { return QString::fromStdString(runtime::safeText(text)); }

QRectF frameIn(const toolkit::Rect& rect) {
  return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

}  // namespace

WindowModel::WindowModel() {
  connect(&appearance_, &Appearance::changed, this, &WindowModel::appearanceChanged);
}

// --- From the host

void WindowModel::show(std::shared_ptr<toolkit::ViewController> controller,
                       std::function<void()> askedToStop) {
  controller_ = std::move(controller);
  askedToStop_ = std::move(askedToStop);
  setSize(size_);
  syncSoon();
}

void WindowModel::setSize(toolkit::Size size) {
  size_ = size;
  if (!controller_) return;
  controller_->view()->setFrame({{0, 0}, size});
  if (app::contentOf(*controller_->view()).label) {
    controller_->view()->setNeedsUpdateConstraints();
  }
  syncSoon();
}

void WindowModel::setTests(const app::TestsDone& tests) {
  tests_ = tests;
  syncSoon();
}

void WindowModel::setEmptyList(app::EmptyList state) {
  emptyList_ = std::move(state);
  syncSoon();
}

void WindowModel::setReport(report::Report report) {
  report_ = std::move(report);
  asksToStop_ = false;
  Q_EMIT reportChanged();
  Q_EMIT changed();
}

void WindowModel::setDark(bool dark) {
  dark_ = dark;
  Q_EMIT appearanceChanged();
}

void WindowModel::scrollTo(toolkit::IndexPath row) {
  if (const int index = rows_.indexOf(row); index >= 0) Q_EMIT scrolledTo(index);
}

void WindowModel::syncSoon() {
  if (std::exchange(syncIsPosted_, true)) return;
  QMetaObject::invokeMethod(this, &WindowModel::sync, Qt::QueuedConnection);
}

void WindowModel::sync() {
  syncIsPosted_ = false;
  if (!controller_) return;
  const toolkit::View& view = *controller_->view();
  const app::Content content = app::contentOf(view);
  if (content.bar) barFrame_ = frameIn(content.bar->frame());
  title_ = content.item ? shown(content.item->title()) : QString();
  const auto button = nextButton();
  nextTitle_ = button ? shown(button->title()) : QString();
  nextEnabled_ = button && button->isEnabled();
  table_ = content.table;
  rows_.setTable(table_);
  if (table_) {
    topInset_ = table_->contentInset().top;
    if (table_->backgroundInset() != sideInset()) {
      table_->setBackgroundInset(sideInset());
      table_->layoutSubviews();
    }
    rows_.headersChanged();
  }
  syncProgress(view);
  Q_EMIT changed();
  if (alert_ != controller_->presentedAlert()) {
    alert_ = controller_->presentedAlert();
    Q_EMIT alertChanged();
  }
  Q_EMIT alertEdited();
}

void WindowModel::syncProgress(const toolkit::View& view) {
  const app::Content content = app::contentOf(view);
  if (content.label) {
    progressText_ = content.label->text ? shown(content.label->text->string()) : QString();
    progressTextFrame_ = frameIn(content.label->frame());
    progressTextSize_ = content.label->systemFontSize;
    progressTextLines_ = content.label->numberOfLines;
  }
  if (content.progress) {
    progressBarFrame_ = frameIn(content.progress->frame());
    progress_ = std::clamp(static_cast<double>(content.progress->progress()), 0.0, 1.0);
  }
}

// --- To the window

QString WindowModel::page() const {
  if (report_) return QStringLiteral("report");
  if (table_) return QStringLiteral("picker");
  return progressText_.isEmpty() ? QStringLiteral("starting") : QStringLiteral("progress");
}

bool WindowModel::rightToLeft() const { return text(QStringLiteral("STARTING")).isRightToLeft(); }

std::shared_ptr<toolkit::BarButtonItem> WindowModel::nextButton() const {
  const auto item = controller_ ? app::contentOf(*controller_->view()).item : nullptr;
  return item ? item->rightBarButtonItem() : nullptr;
}

double WindowModel::sideInset() const {
  return std::max(kSideInset, (size_.width - kWidestList) / 2);
}

bool WindowModel::canRefresh() const {
  return table_ && table_->refreshControl() && !table_->refreshControl()->isRefreshing() && !alert_;
}

bool WindowModel::refreshing() const {
  return table_ && table_->refreshControl() && table_->refreshControl()->isRefreshing();
}

bool WindowModel::scanning() const {
  if (!table_) return false;
  for (std::int64_t section = 0; section < table_->numberOfSections(); ++section) {
    const auto header = table_->headerViewOfSection(section);
    const auto spinner = header ? app::subviewOf<toolkit::Spinner>(*header) : nullptr;
    if (spinner && spinner->isAnimating()) return true;
  }
  return false;
}

// Ignores the row for another network's name.
bool WindowModel::listIsEmpty() const {
  return table_ && table_->rowsOfSection(table_->numberOfSections() - 1).size() <= 1;
}

QString WindowModel::listStatus() const {
  if (scanning()) return text(QStringLiteral("SCANNING"));
  return listIsEmpty() ? QString::fromStdString(app::emptyListText(emptyList_.why)) : QString();
}

QString WindowModel::listReason() const {
  return listIsEmpty() && !scanning() ? shown(emptyList_.reason) : QString();
}

bool WindowModel::canAskForPower() const {
  return listIsEmpty() && !scanning() && emptyList_.askForPower && !alert_ && !stopping_;
}

QString WindowModel::testsDone() const {
  if (tests_.total == 0) return {};
  return QString::fromStdString(app::screenText(
      "TESTS_DONE",
      {{"{done}", std::to_string(tests_.done)}, {"{total}", std::to_string(tests_.total)}}));
}

QString WindowModel::testRunning() const {
  if (tests_.running.empty()) return {};
  return shown(app::screenText("TEST_RUNNING", {{"{test}", tests_.running}}));
}

QString WindowModel::alertMessage() const { return alert_ ? shown(alert_->message()) : QString(); }

QVariantList WindowModel::alertActions() const {
  QVariantList actions;
  if (!alert_) return actions;
  for (const auto& action : alert_->actions()) {
    actions.push_back(QVariantMap{{"title", shown(action->title())},
                                  {"cancels", action->style() == toolkit::ActionStyle::cancel}});
  }
  return actions;
}

bool WindowModel::alertHasField() const { return alert_ && !alert_->textFields().empty(); }

QString WindowModel::alertPlaceholder() const {
  return alertHasField() ? shown(alert_->textFields().front()->placeholder) : QString();
}

QVariantList WindowModel::alertEnabled() const {
  QVariantList enabled;
  if (!alert_) return enabled;
  for (const auto& action : alert_->actions()) enabled.push_back(action->isEnabled());
  return enabled;
}

QString WindowModel::summary() const {
  return report_ ? QString::fromStdString(report_->summary) : QString();
}

QVariantList WindowModel::report() const { return report_ ? entriesOf(*report_) : QVariantList(); }

QString WindowModel::text(const QString& key) {
  return QString::fromStdString(app::screenText(key.toStdString()));
}

// --- From the person

void WindowModel::tapRow(int index) {
  const auto row = rows_.enabledRow(index);
  if (!table_ || alert_ || stopping_ || !row) return;
  if (!table_->allowsSelection()) {
    Q_EMIT noticed(text(QStringLiteral("LIST_BUSY")));
    return;
  }
  table_->tap(*row);
  syncSoon();
}

void WindowModel::tapNext() {
  const auto button = nextButton();
  if (!button || alert_ || stopping_) return;
  if (!button->isEnabled()) {
    Q_EMIT noticed(text(QStringLiteral("CHOOSE_FIRST")));
    return;
  }
  button->tap();
  syncSoon();
}

void WindowModel::refresh() {
  if (canRefresh() && !stopping_) {
    table_->refreshControl()->pull();
  } else if (table_ && !alert_) {
    Q_EMIT noticed(text(QStringLiteral("LIST_BUSY")));
  }
  syncSoon();
}

void WindowModel::askForPower() {
  if (canAskForPower()) emptyList_.askForPower();
}

void WindowModel::type(const QString& text) {
  if (!alertHasField() || text.toStdString() == alert_->textFields().front()->text) return;
  alert_->type(text.toStdString());
}

void WindowModel::tapAction(int action) {
  if (!alert_ || action < 0 || action >= static_cast<int>(alert_->actions().size())) return;
  const auto alert = alert_;  // keeps the alert alive: the answer dismisses it
  alert->tap(*alert->actions()[static_cast<std::size_t>(action)]);
  syncSoon();
}

void WindowModel::cancelAlert() {
  if (!alert_) return;
  const auto& actions = alert_->actions();
  const auto found = std::find_if(actions.begin(), actions.end(), [](const auto& action) {
    return action->style() == toolkit::ActionStyle::cancel;
  });
  if (found != actions.end()) tapAction(static_cast<int>(found - actions.begin()));
}

void WindowModel::askToClose() {
  if (report_ || !controller_ || closed_) {
    closed_ = true;
    Q_EMIT closed();
  } else if (!stopping_) {
    asksToStop_ = true;
    Q_EMIT changed();
  }
}

void WindowModel::answerStop(bool stop) {
  asksToStop_ = false;
  if (stop && !std::exchange(stopping_, true)) askedToStop_();
  Q_EMIT changed();
}

}  // namespace wifi_profile::window
