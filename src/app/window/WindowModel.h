// The window's content except the list's rows, and the person's actions.
#pragma once

#include <QObject>
#include <QRectF>
#include <QString>
#include <QVariantList>
#include <functional>
#include <memory>
#include <optional>

#include "app/PersonScreen.h"
#include "app/window/Appearance.h"
#include "app/window/PickerModel.h"
#include "diagnostic/platform/toolkit/ViewController.h"

namespace wifi_profile::window {

// Properties of the window's page and its parts. `sync` reads them from the controller's view. The
// person's actions go directly to the toolkit's objects. Main thread only.
class WindowModel final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString page READ page NOTIFY changed)  // starting, picker, progress, report
  Q_PROPERTY(bool dark READ dark NOTIFY appearanceChanged)
  Q_PROPERTY(bool rightToLeft READ rightToLeft NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QRectF barFrame READ barFrame NOTIFY changed)
  Q_PROPERTY(QString nextTitle READ nextTitle NOTIFY changed)  // empty: no button
  Q_PROPERTY(bool nextEnabled READ nextEnabled NOTIFY changed)
  Q_PROPERTY(QObject* rows READ rows CONSTANT)
  Q_PROPERTY(double topInset READ topInset NOTIFY changed)    // of the list, points
  Q_PROPERTY(double sideInset READ sideInset NOTIFY changed)  // the rows' background, points
  Q_PROPERTY(bool selectable READ selectable NOTIFY changed)
  Q_PROPERTY(bool canRefresh READ canRefresh NOTIFY changed)
  Q_PROPERTY(bool refreshing READ refreshing NOTIFY changed)
  Q_PROPERTY(bool listIsEmpty READ listIsEmpty NOTIFY changed)
  Q_PROPERTY(QString listStatus READ listStatus NOTIFY changed)  // empty: the list has networks
  Q_PROPERTY(QString listReason READ listReason NOTIFY changed)  // may be empty
  Q_PROPERTY(bool canAskForPower READ canAskForPower NOTIFY changed)
  Q_PROPERTY(QString progressText READ progressText NOTIFY changed)
  Q_PROPERTY(QRectF progressTextFrame READ progressTextFrame NOTIFY changed)
  Q_PROPERTY(double progressTextSize READ progressTextSize NOTIFY changed)
  Q_PROPERTY(int progressTextLines READ progressTextLines NOTIFY changed)
  Q_PROPERTY(QRectF progressBarFrame READ progressBarFrame NOTIFY changed)
  Q_PROPERTY(double progress READ progress NOTIFY changed)  // 0 to 1
  Q_PROPERTY(QString testsDone READ testsDone NOTIFY changed)
  Q_PROPERTY(QString testRunning READ testRunning NOTIFY changed)
  Q_PROPERTY(bool stopping READ stopping NOTIFY changed)
  Q_PROPERTY(bool asksToStop READ asksToStop NOTIFY changed)
  Q_PROPERTY(QString alertMessage READ alertMessage NOTIFY alertChanged)  // empty: no alert
  Q_PROPERTY(QVariantList alertActions READ alertActions NOTIFY alertChanged)
  Q_PROPERTY(bool alertHasField READ alertHasField NOTIFY alertChanged)
  Q_PROPERTY(QString alertPlaceholder READ alertPlaceholder NOTIFY alertChanged)
  Q_PROPERTY(QVariantList alertEnabled READ alertEnabled NOTIFY alertEdited)  // one per action
  Q_PROPERTY(QString summary READ summary NOTIFY reportChanged)
  Q_PROPERTY(QVariantList report READ report NOTIFY reportChanged)

 public:
  WindowModel();

  // Shows the controller's view from now on.
  void show(std::shared_ptr<toolkit::ViewController> controller, std::function<void()> askedToStop);
  // `size` is the size of the window's content, in points.
  void setSize(toolkit::Size size);
  toolkit::Size size() const { return size_; }
  void setTests(const app::TestsDone& tests);
  void setEmptyList(app::EmptyList state);
  void setReport(report::Report report);
  bool isClosed() const { return closed_; }
  // Sets dark or light, overriding the desktop's preference.
  void setDark(bool dark);
  // Call after a change that `sync` reads. Schedules `sync` once for all calls before it runs.
  void syncSoon();
  PickerModel& picker() { return rows_; }
  void scrollTo(toolkit::IndexPath row);

  QString page() const;
  bool dark() const { return dark_.value_or(appearance_.isDark()); }
  bool rightToLeft() const;
  QString title() const { return title_; }
  QRectF barFrame() const { return barFrame_; }
  QString nextTitle() const { return nextTitle_; }
  bool nextEnabled() const { return nextEnabled_; }
  QObject* rows() { return &rows_; }
  double topInset() const { return topInset_; }
  double sideInset() const;
  bool selectable() const { return table_ && table_->allowsSelection(); }
  bool canRefresh() const;
  bool refreshing() const;
  bool listIsEmpty() const;
  QString listStatus() const;
  QString listReason() const;
  bool canAskForPower() const;
  QString progressText() const { return progressText_; }
  QRectF progressTextFrame() const { return progressTextFrame_; }
  double progressTextSize() const { return progressTextSize_; }
  int progressTextLines() const { return progressTextLines_; }
  QRectF progressBarFrame() const { return progressBarFrame_; }
  double progress() const { return progress_; }
  QString testsDone() const;
  QString testRunning() const;
  bool stopping() const { return stopping_; }
  bool asksToStop() const { return asksToStop_; }
  QString alertMessage() const;
  QVariantList alertActions() const;
  bool alertHasField() const;
  QString alertPlaceholder() const;
  QVariantList alertEnabled() const;
  QString summary() const;
  QVariantList report() const;

  // Returns a text of the string table by its key.
  Q_INVOKABLE static QString text(const QString& key);

  // The person's actions.
  Q_INVOKABLE void tapRow(int index);  // index of the list's entry
  Q_INVOKABLE void tapNext();
  Q_INVOKABLE void refresh();
  Q_INVOKABLE void askForPower();
  Q_INVOKABLE void type(const QString& text);
  Q_INVOKABLE void tapAction(int action);
  Q_INVOKABLE void cancelAlert();  // performs the action of cancel style, if there is one
  // The person closes the window. During a run, the window asks for confirmation first.
  Q_INVOKABLE void askToClose();
  Q_INVOKABLE void answerStop(bool stop);

 Q_SIGNALS:
  void changed();
  void appearanceChanged();
  void alertChanged();
  void alertEdited();
  void reportChanged();
  void closed();
  void scrolledTo(int index);
  void noticed(const QString& text);  // why an action is not possible

 private:
  void sync();
  void syncProgress(const toolkit::View& view);
  std::shared_ptr<toolkit::BarButtonItem> nextButton() const;
  bool scanning() const;

  std::shared_ptr<toolkit::ViewController> controller_;
  std::function<void()> askedToStop_;
  toolkit::Size size_{360, 640};
  bool syncIsPosted_ = false;
  PickerModel rows_;
  Appearance appearance_;
  std::optional<bool> dark_;

  QString title_;
  QRectF barFrame_{0, 20, 0, 44};  // default until there is a bar
  QString nextTitle_;
  bool nextEnabled_ = false;
  std::shared_ptr<toolkit::TableView> table_;  // null: not on the screen
  double topInset_ = 0;
  QString progressText_;
  QRectF progressTextFrame_;
  double progressTextSize_ = 0;
  int progressTextLines_ = 1;
  QRectF progressBarFrame_;
  double progress_ = 0;
  app::TestsDone tests_;
  app::EmptyList emptyList_;
  std::shared_ptr<toolkit::Alert> alert_;
  bool stopping_ = false;
  bool asksToStop_ = false;
  bool closed_ = false;
  std::optional<report::Report> report_;
};

}  // namespace wifi_profile::window
