// Takes pictures of every state of the window, into a folder: window_pictures FOLDER. Each file is
// named after the state, the language, the size in points and whether it is light or dark.

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QTest>
#include <cstdio>

#include "app/window/WindowRun.h"

namespace wifi_profile::testing {
namespace {

constexpr int kFrame = 50;  // ms: some frames

struct Look {
  const char* language;
  QSize size;
  bool dark;
};

class Album {
 public:
  Album(QDir folder, Look look) : folder_(std::move(folder)), look_(look), texts_(look.language) {}

  void takeAll() const {
    takeList();
    takeEmptyList();
    takeRadioOff();
    takePowerOnFailed();
    takeProblem();
  }

 private:
  using When = std::function<bool(window::WindowModel&)>;

  static bool hasAlert(window::WindowModel& model) { return !model.alertMessage().isEmpty(); }
  static bool isReady(window::WindowModel& model) { return model.canRefresh(); }

  void takeList() const {
    const auto isScanning = [](window::WindowModel& model) {
      return model.page() == "picker" && !model.canRefresh() && !model.listStatus().isEmpty();
    };
    const auto isRefreshing = [](window::WindowModel& model) { return model.refreshing(); };
    const auto isHalfDone = [](window::WindowModel& model) { return model.progress() > 0.4; };
    const auto asksToStop = [](window::WindowModel& model) { return model.asksToStop(); };
    const auto screen = open();
    run(screen, projectFile("scenarios/demo.json"),
        {shoot("list-scanning", isScanning, kAtOnce),
         shoot("list", isReady),
         press("row1.0"),
         shoot("list-chosen", isReady),
         pull(),
         shoot("list-refreshing", isRefreshing, kAtOnce),
         {"rest", [](window::WindowScreen& at) { return at.model().canRefresh(); }},
         press("row1.8"),
         shoot("prompt", hasAlert),
         type("Kellerkneipe"),
         shoot("prompt-typed", hasAlert),
         press("alertButton0"),
         press("barButton"),
         shoot("progress", isHalfDone, kAtOnce),
         askToClose(),
         shoot("stop-question", asksToStop),
         answer(false)});
    shootNow(*screen, "report");
    for (const char* const finding : {"finding1", "finding4"}) {
      if (QQuickItem* const item = itemNamed(screen->window(), finding)) {
        makeHand(HandKind::mouse)->press(screen->window(), *item);
      }
    }
    shootNow(*screen, "report-open");
  }

  void takeEmptyList() const {
    run(open(), R"({"scenario": 1, "answers": {"NoScanResults": [{"result": true, "didPass": true,
                    "info": {"ScanResults": []}}]}})",
        {shoot("list-empty", isReady), answer(true)});
  }

  void takeRadioOff() const {
    const auto screen = open();
    run(screen, projectFile("scenarios/pick-radio-off-no.json"),
        {shoot("power-question", hasAlert), press("alertButton0")});
    shootNow(*screen, "report-cut-short");
  }

  void takePowerOnFailed() const {
    const auto canAsk = [](window::WindowModel& model) { return model.canAskForPower(); };
    run(open(), R"({"scenario": 1, "device": {"power": false, "powerOnSucceeds": false}})",
        {press("alertButton1"), shoot("list-power-on-failed", canAsk), press("powerButton"),
         press("alertButton0")});
  }

  void takeProblem() const {
    const auto screen = open();
    screen->model().setReport(
        {.summary = "could not begin",
         .earlyEnd = report::ReportFinding{.mark = report::ReportMark::problem,
                                           .sentence = "This computer has no Wi-Fi interface.",
                                           .values = {},
                                           .advice = {},
                                           .explanation = {}},
         .sections = {}});
    shootNow(*screen, "problem");
  }

  std::shared_ptr<window::WindowScreen> open() const {
    const auto screen = std::make_shared<window::WindowScreen>();
    screen->model().setDark(look_.dark);
    screen->window().resize(look_.size);
    waitUntil([&] { return screen->window().isExposed(); });
    return screen;
  }

  // Runs to the end, and shows the report of a run that has one.
  void run(const std::shared_ptr<window::WindowScreen>& screen, const std::string& json,
           std::vector<Deed> deeds) const {
    Wish wish;
    wish.pick = true;
    wish.language = look_.language;
    const auto result = runInWindow(json, screen, std::move(deeds), wish);
    if (!result.stuckAt.empty()) std::fprintf(stderr, "stuck at %s\n", result.stuckAt.c_str());
    if (result.run.ending == cli::Ending::finished) screen->model().setReport(result.run.report);
  }

  // Animations take a moment; what goes on by itself has no rest.
  static constexpr int kAtOnce = 0;
  static constexpr int kAtRest = 50;  // tries
  Deed shoot(const char* name, When when, int tries = kAtRest) const {
    return {name, [this, name, when = std::move(when),
                   left = tries](window::WindowScreen& screen) mutable {
              if (!when(screen.model()) || left-- > 0) return false;
              shootNow(screen, name);
              return true;
            }};
  }

  void shootNow(window::WindowScreen& screen, const QString& name) const {
    QTest::qWait(kFrame);
    const QString file = QStringLiteral("%1-%2-%3x%4-%5.png")
                             .arg(name, look_.language)
                             .arg(look_.size.width())
                             .arg(look_.size.height())
                             .arg(look_.dark ? "dark" : "light");
    if (!screen.window().grabWindow().save(folder_.filePath(file))) {
      std::fprintf(stderr, "%s cannot be written\n", qPrintable(folder_.filePath(file)));
    }
  }

  static Deed press(const QString& name) {
    return {name.toStdString(), [name, looks = 0](window::WindowScreen& screen) mutable {
              QQuickItem* const item = itemNamed(screen.window(), name);
              if (!item || !item->isEnabled() || ++looks < 40) return false;
              return makeHand(HandKind::mouse)->press(screen.window(), *item);
            }};
  }
  static Deed type(const QString& text) {
    return {"type", [text](window::WindowScreen& screen) {
              QQuickItem* const field = itemNamed(screen.window(), "alertField");
              return field && makeHand(HandKind::mouse)->type(screen.window(), *field, text);
            }};
  }
  static Deed pull() {
    return {"pull", [](window::WindowScreen& screen) {
              return screen.model().canRefresh() &&
                     makeHand(HandKind::mouse)->pullToRefresh(screen.window());
            }};
  }
  static Deed askToClose() {
    return {"ask to close", [](window::WindowScreen& screen) {
              screen.model().askToClose();
              return true;
            }};
  }
  static Deed answer(bool stop) {
    return {"answer", [stop](window::WindowScreen& screen) {
              screen.model().answerStop(stop);
              return true;
            }};
  }

  const QDir folder_;
  const Look look_;
  runtime::BuiltInStringTable texts_;
  const InstalledPlatform platform_{{.texts = &texts_}};
};

const Look kLooks[] = {
    {"en", {360, 640}, false}, {"en", {360, 640}, true},  {"en", {768, 1024}, false},
    {"en", {1200, 800}, true}, {"ar", {360, 640}, false}, {"de", {360, 640}, true},
    {"ja", {360, 640}, false},
};

}  // namespace
}  // namespace wifi_profile::testing

int main(int argc, char** argv) {
  using namespace wifi_profile::testing;
  const QGuiApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  const QDir folder(argc == 2 ? argv[1] : "");
  if (argc != 2 || !folder.mkpath(".")) {
    std::fprintf(stderr, "usage: window_pictures FOLDER\n");
    return 64;
  }
  for (const Look& look : kLooks) Album(folder, look).takeAll();
  return 0;
}
